#include "UpperLayer.h"

namespace vdicom {

namespace {

using enum UpperStep;
using Event = UpperEvent;
using Failure = OnFailure;

constexpr UpperRow kRows[kUpperEvents] = {
    // The association is not established before it is accepted; on a failure to send the state stays.
    {Event::sendAssociateRequest, Failure::giveBack, {encode, keepRequest, resetAccepted, send, notEstablished}},
    {Event::sendAssociateAccept, Failure::giveBack, {encode, keepAccept, takeAbstracts, takeTitles, send, established}},
    // A reject that is sent leaves the accepted association as it is.
    {Event::sendAssociateReject, Failure::ignore, {encode, notEstablished, send}},
    {Event::sendReleaseRequest, Failure::ignore, {encode, notEstablished, resetAccepted, send}},
    {Event::sendReleaseResponse, Failure::ignore, {encode, notEstablished, resetAccepted, send}},
    {Event::sendAbort, Failure::ignore, {encode, notEstablished, resetAccepted, send}},

    {Event::associateRequest, Failure::report, {notEstablished, decodeRequest, onReceive, onAssociateRequest}},
    // Established also when the accept turns out to be damaged; the titles come after the notification.
    {Event::associateAccept,
     Failure::report,
     {established, decodeAccept, takeAbstracts, onReceive, onAssociateAccept, takeTitles}},
    {Event::associateReject, Failure::report, {notEstablished, resetAccepted, onReceive, onAssociateReject}},
    {Event::data, Failure::report, {onReceive, collectData}},
    {Event::releaseRequest, Failure::report, {notEstablished, resetAccepted, onReceive, onReleaseRequest}},
    {Event::releaseResponse, Failure::report, {notEstablished, resetAccepted, onReceive, onReleaseResponse}},
    {Event::abort, Failure::report, {notEstablished, resetAccepted, onReceive, onAbort}},
    {Event::unknown, Failure::report, {}},
};

constexpr bool RowsStandInOrder() {
    for (std::size_t i = 0; i < kUpperEvents; ++i) {
        if (kRows[i].event != static_cast<Event>(i))
            return false;
    }
    return true;
}
static_assert(RowsStandInOrder(), "a row is found by its event");

} // namespace

UpperEvent ReceivedEvent(unsigned char pduType) {
    static constexpr Event events[] = {
        Event::unknown, Event::associateRequest, Event::associateAccept, Event::associateReject,
        Event::data,    Event::releaseRequest,   Event::releaseResponse, Event::abort};
    return events[pduType <= pdu::kAbort ? pduType : 0];
}

const UpperRow& UpperRowOf(UpperEvent event) { return kRows[static_cast<std::size_t>(event)]; }

unsigned int UpperLayer::Run(UpperEvent event, UpperLayerSteps& connection) {
    const UpperRow& row = UpperRowOf(event);
    for (const UpperStep step : row.steps) {
        if (step == none)
            break;
        if (step == established || step == notEstablished) {
            m_associated = step == established;
            continue;
        }
        const unsigned int code = connection.Do(step);
        if (code == UpperLayerSteps::kGone)
            return DICOM_OK;
        if (code == DICOM_OK || row.onFailure == Failure::ignore)
            continue;
        if (row.onFailure == Failure::giveBack)
            return code;
        connection.Report(code);
        return DICOM_OK;
    }
    return DICOM_OK;
}

} // namespace vdicom

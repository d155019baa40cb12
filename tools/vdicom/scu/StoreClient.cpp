#include "scu/StoreClient.h"

#include "Message.h"
#include "ValueText.h"
#include "Writing.h"

#include <fmt/format.h>

#include <algorithm>

namespace program {

namespace {

constexpr unsigned short kMediumPriority = 0;

std::string NameOrUid(const std::string& uid) {
    const std::string_view name = NameOfUid(uid);
    return name.empty() ? uid : std::string(name);
}

} // namespace

StoreClient::StoreClient(const Peer& peer, StoreJob& job) : Client(peer), m_job(job), m_next(job.FirstUnanswered()) {
    SetSendInPlace(1);
}

bool StoreClient::Propose(VDicomAssociate& request) {
    bool good = true;
    for (const StoreContext& context : m_job.Contexts())
        good = good && AddContext(request, context.id, context.classUid.c_str(), context.syntaxes);
    return good;
}

void StoreClient::Start() {
    VDicomAssociate* accept = GetAssociate();
    for (const StoreContext& context : m_job.Contexts()) {
        const char* syntax = accept->GetTransfer(context.id, 0);
        if (accept->FindPresentation(context.id) && accept->GetResult(context.id) == DICOM_PRESENTATION_ACCEPTED &&
            syntax)
            m_accepted.push_back({context.id, context.classUid, {syntax}});
    }
    PrepareNext();
    SendNext();
}

// Makes the next file ready that can be sent; those before it that cannot are told to the report.
void StoreClient::PrepareNext() {
    Ready& ready = m_slots[1 - m_sending];
    while (!ready.isReady && m_job.Seek(m_next)) {
        StoreFile& file = m_job.FileAt(m_next);
        ready.position = m_next;
        ready.isReady = Prepare(ready, file);
        StoreJob::Step(m_next);
    }
}

bool StoreClient::Prepare(Ready& ready, StoreFile& file) {
    const ObjectKind& kind = m_job.Kinds()[file.kind];
    const StoreContext* context = ChooseContext(m_accepted, kind);
    if (!context) {
        GiveUp(ready.position, {}, RefusalOf(kind));
        return false;
    }
    unsigned int code = ready.ds.LoadDS(file.path.c_str(), 0);
    if (code != DICOM_OK) {
        GiveUp(ready.position, {}, LoadFailure(ready.ds, code));
        return false;
    }
    ready.names = NamesOf(ready.ds);
    ready.context = context->id;
    code = ready.ds.FixBadElements();
    if (code != DICOM_OK)
        GiveUp(ready.position, ready.names, GetErrorText(code));
    else if (ready.names.classUid != kind.classUid || ready.names.syntaxUid != kind.syntaxUid)
        GiveUp(ready.position, ready.names, "the file has changed since it was first looked at; send it again");
    else if (IsUncompressed(kind.syntaxUid) && HasEncapsulatedPixelData(ready.ds))
        GiveUp(ready.position, ready.names,
               "its pixel data are compressed, and it names a transfer syntax without compression");
    else
        return true;
    return false;
}

void StoreClient::GiveUp(const StoreJob::Position& position, const ObjectNames& names, const std::string& text) {
    StoreFile& file = m_job.FileAt(position);
    file.isOver = true;
    m_job.Skipped(position, m_job.RoundsFrom(position));
    m_job.Report().Failed(file.path, names, text, 0);
}

std::string StoreClient::RefusalOf(const ObjectKind& kind) {
    unsigned char result = DICOM_PRESENTATION_NO_REASON;
    for (const StoreContext& context : m_job.Contexts()) {
        if (context.classUid == kind.classUid && context.syntaxes.front() == kind.syntaxUid)
            result = GetAssociate()->GetResult(context.id);
    }
    // Some peers refuse every context for the class's sake, though they took it in another syntax.
    const auto sameClass = [&kind](const StoreContext& context) { return context.classUid == kind.classUid; };
    if (std::any_of(m_accepted.begin(), m_accepted.end(), sameClass))
        result = DICOM_PRESENTATION_TRANSFER_SYNTAXES;
    std::string sentence = fmt::format("{} in {} is not accepted: {}", NameOrUid(kind.classUid),
                                       NameOrUid(kind.syntaxUid), ContextText(result));
    if (result == DICOM_PRESENTATION_TRANSFER_SYNTAXES && !IsUncompressed(kind.syntaxUid))
        sentence += "; decompress the file with another program";
    return sentence;
}

void StoreClient::SendNext() {
    m_waitsForQueue = false;
    PrepareNext();
    if (!m_slots[1 - m_sending].isReady) {
        Release();
        return;
    }
    m_sending = 1 - m_sending;
    Ready& ready = m_slots[m_sending];
    ready.isReady = false;
    const unsigned int code =
        SendCStoreRequest(ready.context, ++m_messageID, ready.names.classUid.c_str(), ready.names.instanceUid.c_str(),
                          kMediumPriority, nullptr, 0, &ready.ds);
    m_queued = GetQueueSend();
    m_isUnderWay = code == DICOM_OK;
    if (code == DICOM_OK)
        return;
    // The command may be out without its data set: this association is of no more use.
    GiveUp(ready.position, ready.names, fmt::format("it cannot be encoded: {}", GetErrorText(code)));
    m_wantsAnother = true;
    Fail(GetErrorText(code));
}

void StoreClient::OnSend(int nError, unsigned char, VDicomULong) {
    if (nError != 0 || !IsWorking())
        return;
    const VDicomULong left = GetQueueSend();
    if (left > 0) {
        m_job.ShowProgress(m_queued - std::min(m_queued, left));
    } else if (m_waitsForQueue) {
        SendNext();
    } else {
        PrepareNext();
    }
}

void StoreClient::OnReceiveCStoreResponse(unsigned char, unsigned short messageID, const char*, const char*,
                                          unsigned short status) {
    if (!Expect(messageID, m_messageID) || !m_isUnderWay)
        return;
    m_isUnderWay = false;
    const StatusKind kind = KindOfStatus(status);
    if (GetQueueSend() > 0 && (kind == StatusKind::success || kind == StatusKind::warning)) {
        Fail("the peer acknowledged an object that it had not received");
        return;
    }
    const Ready& sent = m_slots[m_sending];
    TakeStatus(m_job.FileAt(sent.position), status);
    m_job.Answered(sent.position);
    // A peer may refuse an object before it has all of it; the data set must stay until it has left.
    m_waitsForQueue = GetQueueSend() > 0;
    if (!m_waitsForQueue)
        SendNext();
}

void StoreClient::TakeStatus(StoreFile& file, unsigned short status) {
    const ObjectNames& names = m_slots[m_sending].names;
    switch (KindOfStatus(status)) {
    case StatusKind::success:
        m_job.Report().Stored(file);
        break;
    case StatusKind::warning:
        m_job.Report().Warned(file, names, Text(Service::store, status), status);
        break;
    default:
        file.isOver = true;
        m_job.Skipped(m_slots[m_sending].position, m_job.RoundsFrom(m_slots[m_sending].position) - 1);
        m_job.Report().Failed(file.path, names, Text(Service::store, status), status);
        break;
    }
}

} // namespace program

/// @file UpperLayer.h
/// What happens when a PDU is sent or received, as a table: the state of an association, the association objects, the
/// notifications, and in which order. Pure: the steps are carried out by somebody else.
///
/// The connection implements UpperLayerSteps. Its Send... functions run the row of what is sent (with the PDU's
/// arguments at hand for the step `encode`); its Receive runs ReceivedEvent(type). A receive error is no event: the
/// connection calls OnReceive with it and that is all.
///
/// The state is whether an association is established. What happens depends on the event alone, in either state: any
/// PDU may be sent at any time, and one that is received is taken as it comes. There are no protocol timers.
#pragma once

#include "PduCodec.h"

namespace vdicom {

enum class UpperEvent : unsigned char {
    sendAssociateRequest,
    sendAssociateAccept,
    sendAssociateReject,
    sendReleaseRequest,
    sendReleaseResponse,
    sendAbort,
    associateRequest, ///< from here on: received
    associateAccept,
    associateReject,
    data,
    releaseRequest,
    releaseResponse,
    abort,
    unknown ///< a PDU of a type that PS3.8 does not have
};
constexpr std::size_t kUpperEvents = 14;

/// The event of a received PDU.
UpperEvent ReceivedEvent(unsigned char pduType);

enum class UpperStep : unsigned char {
    none,
    established,    ///< the association is established from now on
    notEstablished, ///< it is not
    encode,         ///< make the PDU that is sent; an association is first marked as request or accept
    send,           ///< hand it to the socket's queue
    keepRequest,    ///< decode the PDU sent into the request association
    keepAccept,     ///< decode it into the accepted association, matched against the object that was sent
    decodeRequest,  ///< decode the PDU received into the request association, matched against nothing
    decodeAccept,   ///< decode it into the accepted association, matched against the request association
    resetAccepted,  ///< Reset(0) of the accepted association
    takeAbstracts,  ///< every accepted context gets the abstract syntax of the requested one with its ID
    takeTitles,     ///< the accepted association gets the called and calling titles of the request
    collectData,    ///< the presentation data values (PDataAssembler)
    onReceive,      ///< OnReceive(0, type, PDU)
    onAssociateRequest,
    onAssociateAccept,
    onAssociateReject,
    onReleaseRequest,
    onReleaseResponse,
    onAbort
};

/// What becomes of a step that fails.
enum class OnFailure : unsigned char {
    giveBack, ///< it is the result of the call
    ignore,   ///< the rest of the row is done all the same, and the call has no result
    report    ///< OnReceive(code, type, PDU) is called, and nothing more
};

constexpr std::size_t kMostUpperSteps = 7;

struct UpperRow {
    UpperEvent event;
    OnFailure onFailure;
    UpperStep steps[kMostUpperSteps]; ///< up to the first `none`
};

const UpperRow& UpperRowOf(UpperEvent event);

/// The steps, as the connection carries them out.
class UpperLayerSteps {
public:
    virtual ~UpperLayerSteps() = default;

    /// The step has called the application, which closed or destroyed the connection: nothing of it may be touched.
    static constexpr unsigned int kGone = 0xFFFFFFFF;

    /// Carries one step out; never established, notEstablished or none.
    /// @return 0, a result code, or kGone
    virtual unsigned int Do(UpperStep step) = 0;
    /// Calls OnReceive with a result code. @return false: the connection is gone
    virtual bool Report(unsigned int code) = 0;
};

class UpperLayer {
public:
    bool IsAssociated() const { return m_associated; }
    /// Closing the connection ends an association without any PDU.
    void Close() { m_associated = false; }

    /// Runs the row of an event.
    /// @return 0; the result of the step that failed where the row gives it back. Also 0 when the connection is gone.
    unsigned int Run(UpperEvent event, UpperLayerSteps& connection);

private:
    bool m_associated = false;
};

} // namespace vdicom

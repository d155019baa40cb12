/// @file SubOperations.h
/// The C-STORE sub-operations of a C-MOVE or C-GET: one object after the other over a channel, and their count.
#pragma once

#include "Archive.h"

#include "scu/StorePlan.h"

#include "VDicomNet.h"

#include <optional>
#include <string>
#include <vector>

namespace program {

/// An association over which objects are stored.
class StoreChannel {
public:
    virtual ~StoreChannel() = default;

    enum class State { opening, ready, closed };
    virtual State GetState() = 0;
    /// The contexts in which objects may be stored, each with the one transfer syntax that was accepted.
    virtual const std::vector<StoreContext>& Contexts() = 0;
    /// Sends a C-STORE-RQ in place. @return as VDicomNet::SendCStoreRequest
    virtual unsigned int Store(unsigned char contextId, unsigned short messageId,
                               const archive::RetrievedObject& object, VDicomDS& ds) = 0;
    /// For the next request over the association.
    virtual unsigned short NextMessageId() = 0;
    /// Whether all that was queued has left.
    virtual bool HasSent() = 0;
};

class SubOperations {
public:
    explicit SubOperations(std::unique_ptr<archive::Retrieval> retrieval);

    /// Every kind of object that is to be sent.
    const std::vector<ObjectKind>& Kinds() const { return m_kinds; }

    /// The next object that waits to be sent; null: there is none, or one is under way. @throw DatabaseError
    const archive::RetrievedObject* Next();
    std::size_t KindOfNext() const { return m_kind; }
    /// Sends the object that Next gave, or counts it as failed.
    void Send(StoreChannel& channel);
    /// It cannot be sent.
    void Fail(const std::string& reason);

    /// The answer has come, perhaps before the object has left, which is then still needed. @return whether it was
    /// awaited
    bool OnStored(unsigned short messageId, unsigned short status);
    bool HasAnswer() const { return m_answer.has_value(); }
    /// Counts the answer; the object is done with.
    void TakeAnswer();
    /// The channel has broken: the object under way failed.
    void OnLost(const std::string& reason);
    bool IsUnderWay() const { return m_underWay; }

    /// Numbers for the responses, at most 65535.
    unsigned short Remaining() const;
    unsigned short Completed() const { return Number(m_completed); }
    unsigned short Failed() const { return Number(m_failed); }
    unsigned short Warning() const { return Number(m_warnings); }
    /// 0000, B000 (some failed, or ended with a warning) or `allFailed`.
    unsigned short FinalStatus(unsigned short allFailed) const;
    /// Fills the data set of the last response: Failed SOP Instance UID List. @return null when nothing failed
    VDicomDS* FailedList(VDicomDS& ds) const;
    /// Why the last object failed.
    const std::string& Reason() const { return m_reason; }
    /// How many answers there have been, of whatever kind.
    std::uint64_t Answered() const { return m_completed + m_failed + m_warnings; }

private:
    static unsigned short Number(std::uint64_t count);
    /// m_kinds.size(): it is none of them.
    std::size_t KindOf(const archive::RetrievedObject& object) const;
    unsigned int Load();

    std::unique_ptr<archive::Retrieval> m_retrieval;
    std::vector<ObjectKind> m_kinds;
    archive::RetrievedObject m_object;
    std::size_t m_kind = 0;
    bool m_has = false; ///< m_object waits or is under way
    bool m_underWay = false;
    unsigned short m_messageId = 0;
    std::optional<unsigned short> m_answer;
    VDicomDS m_ds; ///< being sent in place
    std::uint64_t m_total;
    std::uint64_t m_completed = 0;
    std::uint64_t m_failed = 0;
    std::uint64_t m_warnings = 0;
    std::vector<std::string> m_failedInstances;
    std::string m_reason;
};

} // namespace program

/// @file Operation.h
/// What a peer has asked for and takes longer than one answer: a query or a retrieval. A session has several at most;
/// the server lets each go on by a little in every turn of its loop. (Storage commitments are CommitOperation's.)
#pragma once

#include <string>

namespace program {

class Operation {
public:
    explicit Operation(unsigned short messageId) : m_messageId(messageId) {}
    virtual ~Operation() = default;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    enum class Pace {
        more,    ///< can go on at once
        waiting, ///< for an event
        done     ///< has sent its last answer
    };
    /// Does a little.
    virtual Pace Work() = 0;
    /// The peer wants it to end (C-CANCEL); it is answered by Work.
    virtual void Cancel() = 0;
    /// The association is over before its last answer. @param why for the log
    virtual void Drop(const std::string& why) = 0;
    /// The answer to an object that it sent over the session itself. @return whether it was this operation's
    virtual bool OnStored(unsigned short /*messageId*/, unsigned short /*status*/) { return false; }

    /// Message ID of the request.
    unsigned short MessageId() const { return m_messageId; }

private:
    unsigned short m_messageId;
};

} // namespace program

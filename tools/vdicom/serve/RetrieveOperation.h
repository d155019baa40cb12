/// @file RetrieveOperation.h
/// Answers C-GET and C-MOVE requests: the objects go out one after the other, with a response after each.
#pragma once

#include "serve/Forwarder.h"
#include "serve/Operation.h"
#include "serve/Session.h"
#include "serve/SubOperations.h"

namespace program {

class RetrieveOperation : public Operation {
public:
    RetrieveOperation(Session& session, const Request& request, std::unique_ptr<archive::Retrieval> retrieval);

    Pace Work() override;
    void Cancel() override { m_cancelled = true; }
    void Drop(const std::string& why) override;
    bool OnStored(unsigned short messageId, unsigned short status) override {
        return m_objects.OnStored(messageId, status);
    }

protected:
    /// The channel for the next object; it may be opening still. Null: there is none, `reason` says why.
    virtual StoreChannel* ChannelFor(std::size_t kind, std::string& reason) = 0;
    /// A channel that broke with an object under way. @return why; empty: none has
    virtual std::string Broken() = 0;
    /// Whether the object under way has left.
    virtual bool HasSent() = 0;
    virtual void Respond(unsigned short status, VDicomDS* list) = 0;
    virtual const char* Name() const = 0;
    /// To whom the objects go, where that is another one than asked.
    virtual std::string Destination() const { return {}; }
    virtual unsigned short AllFailed() const = 0;
    virtual void Close() {}

    Session& m_session;
    Request m_request;
    SubOperations m_objects;

private:
    Pace Finish(unsigned short status);
    void LogCounts(LogLine& line);
    void TellProgress();

    bool m_cancelled = false;
    std::uint64_t m_told = 0; ///< answers that the peer knows of
    std::chrono::steady_clock::time_point m_tellNext;
};

class GetOperation final : public RetrieveOperation {
public:
    using RetrieveOperation::RetrieveOperation;

private:
    StoreChannel* ChannelFor(std::size_t kind, std::string& reason) override;
    std::string Broken() override { return {}; } // the session is
    bool HasSent() override { return m_session.HasSent(); }
    void Respond(unsigned short status, VDicomDS* list) override;
    const char* Name() const override { return "get"; }
    unsigned short AllFailed() const override { return 0xA702; }
};

class MoveOperation final : public RetrieveOperation {
public:
    MoveOperation(Session& session, const Request& request, std::unique_ptr<archive::Retrieval> retrieval,
                  const KnownPeer& peer);

private:
    StoreChannel* ChannelFor(std::size_t kind, std::string& reason) override;
    std::string Broken() override;
    bool HasSent() override;
    void Respond(unsigned short status, VDicomDS* list) override;
    const char* Name() const override { return "move"; }
    std::string Destination() const override { return m_peer.title; }
    unsigned short AllFailed() const override { return 0xA702; }
    void Close() override;

    KnownPeer m_peer;
    StorePlan m_plan;
    std::vector<std::unique_ptr<Forwarder>> m_channels; ///< one for each association of the plan
};

} // namespace program

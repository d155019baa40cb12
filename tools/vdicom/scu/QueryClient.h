/// @file QueryClient.h
/// Queries over one association, one after the other: what find, get and move share.
#pragma once

#include "scu/Client.h"
#include "scu/Query.h"

namespace program {

class QueryClient : public Client {
public:
    QueryClient(const Peer& peer, const Query& query, Service service)
        : Client(peer), m_query(query), m_service(service), m_classUid(query.ClassFor(service)) {}

    /// Of the final response, or of the first one that was none of success; 0xFF00 while there is none.
    unsigned short FinalStatus() const { return m_status; }
    /// What the final status means; empty after success.
    const std::string& FinalText() const { return m_text; }

protected:
    static constexpr unsigned char kContext = 1;
    static constexpr unsigned short kCancelled = 0xFE00;

    /// Message ID of the request under way.
    unsigned short Message() const { return m_message; }

    bool Propose(VDicomAssociate& request) override {
        return AddContext(request, kContext, m_classUid, {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2"});
    }

    void Start() override {
        m_context = ContextFor(m_classUid);
        if (m_context != 0)
            AskFor(FirstQuery());
    }

    /// Sends the request.
    virtual unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) = 0;
    /// What is asked first.
    virtual const Query& FirstQuery() { return m_query; }
    /// What is asked next, of the same information model. @param status of the request before @return null: all is done
    virtual const Query* NextQuery([[maybe_unused]] unsigned short status) { return nullptr; }

    void Cancel() override { CancelRequest(); }
    void CancelRequest() {
        if (m_isCancelled)
            return;
        m_isCancelled = true;
        LimitPatience();
        Sent(SendCCancelRequest(m_context, m_message));
    }
    bool IsCancelled() const { return m_isCancelled; }

    /// Takes the status of a response. @return true: it was the last one, and the association is being released, or the
    /// next query is under way
    bool TakeStatus(unsigned short status) {
        if (KindOfStatus(status) == StatusKind::pending)
            return false;
        if (m_status == 0xFF00 || m_status == 0) {
            m_status = status;
            m_text = status == 0 ? std::string() : Text(m_service, status);
        }
        const Query* next = NextQuery(status);
        if (next && !m_isCancelled)
            AskFor(*next);
        else
            Release();
        if (next && m_isCancelled)
            m_status = kCancelled; // even if the peer was done with this one before it heard of it
        return true;
    }

private:
    void AskFor(const Query& query) {
        ++m_message;
        VDicomDS identifier;
        if (const std::string wrong = query.Build(identifier); !wrong.empty())
            Fail(wrong);
        else
            Sent(Ask(m_context, m_classUid, identifier));
    }

    const Query& m_query;
    Service m_service;
    const char* m_classUid;
    unsigned char m_context = 0;
    unsigned short m_message = 0;
    bool m_isCancelled = false;
    unsigned short m_status = 0xFF00;
    std::string m_text;
};

} // namespace program

/// @file QueryClient.h
/// One query over one association: what find, get and move share.
#pragma once

#include "scu/Client.h"
#include "scu/Query.h"

namespace program {

class QueryClient : public Client {
public:
    QueryClient(const Peer& peer, const Query& query, Service service)
        : Client(peer), m_query(query), m_service(service), m_classUid(query.ClassFor(service)) {}

    /// Of the final response; 0xFF00 while there is none.
    unsigned short FinalStatus() const { return m_status; }
    /// What the final status means; empty after success.
    const std::string& FinalText() const { return m_text; }

protected:
    static constexpr unsigned short kMessage = 1;
    static constexpr unsigned char kContext = 1;

    bool Propose(VDicomAssociate& request) override {
        return AddContext(request, kContext, m_classUid, {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2"});
    }

    void Start() override {
        m_context = ContextFor(m_classUid);
        if (m_context == 0)
            return;
        VDicomDS identifier;
        if (const std::string wrong = m_query.Build(identifier); !wrong.empty())
            Fail(wrong);
        else
            Sent(Ask(m_context, m_classUid, identifier));
    }

    /// Sends the request.
    virtual unsigned int Ask(unsigned char context, const char* classUid, VDicomDS& identifier) = 0;

    void Cancel() override { CancelRequest(); }
    void CancelRequest() {
        if (m_isCancelled)
            return;
        m_isCancelled = true;
        LimitPatience();
        Sent(SendCCancelRequest(m_context, kMessage));
    }
    bool IsCancelled() const { return m_isCancelled; }

    /// Takes the status of a response. @return true: it was the last one, and the association is being released
    bool TakeStatus(unsigned short status) {
        if (KindOfStatus(status) == StatusKind::pending)
            return false;
        m_status = status;
        if (status != 0)
            m_text = Text(m_service, status);
        Release();
        return true;
    }

private:
    const Query& m_query;
    Service m_service;
    const char* m_classUid;
    unsigned char m_context = 0;
    bool m_isCancelled = false;
    unsigned short m_status = 0xFF00;
    std::string m_text;
};

} // namespace program

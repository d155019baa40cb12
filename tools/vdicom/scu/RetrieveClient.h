/// @file RetrieveClient.h
/// What get and move share: the responses to a retrieval.
#pragma once

#include "scu/QueryClient.h"
#include "scu/RetrieveReport.h"

namespace program {

class RetrieveClient : public QueryClient {
public:
    RetrieveClient(const Peer& peer, const Query& query, Service service, RetrieveReport& report)
        : QueryClient(peer, query, service), m_report(report) {}

protected:
    /// Takes a response to the request.
    void TakeResponse(unsigned short status, const SubOperationCounts& numbers, VDicomDS* data) {
        constexpr VDicomULong kFailedList = 0x00080058;
        m_report.Take(numbers, status);
        if (KindOfStatus(status) == StatusKind::pending)
            return;
        m_report.EndRequest(data ? ReadUids(*data, kFailedList) : std::vector<std::string>());
        TakeStatus(status);
    }

private:
    RetrieveReport& m_report;
};

} // namespace program

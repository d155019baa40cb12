/// @file FindOperation.h
/// Answers a C-FIND request, be it of the archive or of the worklist.
#pragma once

#include "serve/Operation.h"
#include "serve/Session.h"

#include <functional>

namespace program {

class FindOperation final : public Operation {
public:
    /// Fills the next match. @throw std::exception when the index fails
    using Source = std::function<archive::Step(VDicomDS& match)>;

    FindOperation(Session& session, const Request& request, Source source, unsigned short pendingStatus);

    Pace Work() override;
    void Cancel() override { m_cancelled = true; }
    void Drop(const std::string& why) override;

private:
    Pace Finish(unsigned short status, const std::string& comment);

    Session& m_session;
    Request m_request;
    Source m_source;
    unsigned short m_pendingStatus;
    VDicomDS m_match;
    std::uint64_t m_matches = 0;
    bool m_cancelled = false;
};

} // namespace program

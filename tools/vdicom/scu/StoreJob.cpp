#include "scu/StoreJob.h"

#include "scu/Interrupt.h"
#include "scu/StoreClient.h"

#include "VDicomMessageLoop.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

namespace program {

namespace {

constexpr std::uint64_t kMegabyte = 1'000'000;
constexpr std::uint64_t kLongestPause = 16; // seconds between two tries

} // namespace

StoreJob::StoreJob(const StoreSettings& settings, StoreList& list, StoreReport& report)
    : m_settings(settings), m_list(list), m_report(report), m_plan(list.Kinds()),
      m_progress("MB", list.Bytes() * settings.rounds, kMegabyte) {
    m_progress.Pieces("files", list.Files().size() * settings.rounds);
    if (report.IsJson())
        m_progress.Off();
}

void StoreJob::Run() {
    for (m_association = 0; m_association < m_plan.CountAssociations(); ++m_association) {
        m_position = {};
        if (!RunAssociation())
            return;
    }
}

bool StoreJob::RunAssociation() {
    std::uint64_t tries = 0;
    for (;;) {
        const Position before = m_position;
        ++m_made;
        StoreClient client(m_settings.peer, *this);
        if (client.Run())
            return true;
        Position rest = m_position;
        if (client.WantsAnother()) {
            if (!Seek(rest))
                return true;
            continue;
        }
        // Only tries that brought nothing count.
        if (m_position.round != before.round || m_position.file != before.file)
            tries = 0;
        if (client.LossKind() != Client::Loss::connection || tries >= m_settings.retries || !WaitForRetry(tries)) {
            const bool hasWaited = client.LossKind() == Client::Loss::connection && InterruptWatch::Count() > 0;
            ReportRest(fmt::format("{}{}", hasWaited ? "interrupted; " : "", client.Failure()));
            return false;
        }
        ++tries;
    }
}

void StoreJob::ReportRest(const std::string& reason) {
    m_report.Lost(m_settings.peer, reason);
    for (; m_association < m_plan.CountAssociations(); ++m_association, m_position = {}) {
        // Only files of the round that broke off: with --repeat, those that come later are stored from an earlier
        // round.
        Position rest = m_position;
        const std::uint64_t round = rest.round;
        for (; Seek(rest) && rest.round == round; Step(rest))
            m_report.NotSent(FileAt(rest).path);
    }
}

bool StoreJob::WaitForRetry(std::uint64_t number) const {
    using Clock = std::chrono::steady_clock;
    const auto end =
        Clock::now() +
        std::chrono::seconds(std::min(kLongestPause, std::uint64_t{1} << std::min<std::uint64_t>(number, 4)));
    while (InterruptWatch::Count() == 0 && Clock::now() < end)
        VDicomMessageLoop::RunOnce(100);
    return InterruptWatch::Count() == 0;
}

bool StoreJob::Seek(Position& position) const {
    const std::vector<StoreFile>& files = m_list.Files();
    for (; position.round < m_settings.rounds; ++position.round, position.file = 0) {
        for (; position.file < files.size(); ++position.file) {
            const StoreFile& file = files[position.file];
            if (!file.isOver && m_plan.AssociationOf(file.kind) == m_association)
                return true;
        }
    }
    return false;
}

void StoreJob::Answered(const Position& position) {
    ++m_doneFiles;
    m_doneBytes += m_list.Files()[position.file].bytes;
    m_position = position;
    Step(m_position);
    m_progress.Done(m_doneBytes, m_doneFiles);
}

void StoreJob::Skipped(const Position& position, std::uint64_t rounds) {
    m_doneFiles += rounds;
    m_doneBytes += m_list.Files()[position.file].bytes * rounds;
}

void StoreJob::ShowProgress(std::uint64_t sent) { m_progress.Done(m_doneBytes + sent, m_doneFiles); }

} // namespace program

#include "scu/RetrieveReport.h"

#include "Message.h"
#include "Output.h"
#include "VisibleText.h"
#include "scu/QueryClient.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>

namespace program {

namespace {

constexpr unsigned short kWarning = 0xB000;
constexpr std::size_t kMostNamed = 20;

std::string Objects(std::uint64_t count) { return count == 1 ? "1 object" : fmt::format("{} objects", count); }

SubOperationCounts Sum(const SubOperationCounts& one, const SubOperationCounts& other) {
    return {one.remaining + other.remaining, one.completed + other.completed, one.failed + other.failed,
            one.warning + other.warning};
}

} // namespace

RetrieveReport::RetrieveReport(const Peer& peer, const ObjectFolder* folder, bool json)
    : m_peer(peer), m_folder(folder), m_json(json), m_progress("objects", 0) {
    if (json)
        m_progress.Off();
}

void RetrieveReport::Take(const SubOperationCounts& numbers, unsigned short status) {
    // Peers leave numbers out of the final response now and then; success then means that the rest was sent as well.
    if (numbers.completed + numbers.failed + numbers.warning + numbers.remaining > 0)
        m_numbers = numbers;
    else if (status == 0)
        m_numbers.completed += std::exchange(m_numbers.remaining, 0);
    ShowProgress();
}

void RetrieveReport::Arrived(std::uint64_t bytes) {
    if (bytes == 0)
        return;
    m_arrived += bytes;
    m_progress.Bytes(m_arrived);
    ShowProgress();
}

// Some peers send no response before the last one; then the folder alone knows.
void RetrieveReport::ShowProgress() {
    const SubOperationCounts sum = Sum(m_ended, m_numbers);
    std::uint64_t done = std::uint64_t{sum.completed} + sum.failed + sum.warning;
    if (m_folder)
        done = std::max(done, m_folder->CountWritten() + m_folder->CountKept() + m_folder->CountFailed());
    if (m_requests == 1 && m_numbers.remaining > 0)
        m_progress.Total(std::uint64_t{sum.completed} + sum.failed + sum.warning + sum.remaining);
    m_progress.Done(done);
}

void RetrieveReport::EndRequest(const std::vector<std::string>& failedUids) {
    m_ended = Sum(m_ended, std::exchange(m_numbers, {}));
    m_failedUids.insert(m_failedUids.end(), failedUids.begin(), failedUids.end());
}

void RetrieveReport::EndAssociation(bool good, const QueryClient& client) {
    EndRequest({});
    if (!good && m_good) {
        m_good = false;
        m_failure = client.Failure();
    }
    if (m_status == 0xFF00 || m_status == 0) {
        m_status = client.FinalStatus();
        m_text = client.FinalText();
    }
}

void RetrieveReport::Interrupt() {
    if (m_good)
        m_failure = "interrupted";
    m_good = false;
}

// A warning without failures: all objects were stored, some of them with a warning.
bool RetrieveReport::IsWell() const {
    const bool isStatusWell = m_status == 0 || (m_status == kWarning && m_ended.warning > 0);
    return m_good && isStatusWell && m_ended.failed == 0 && m_ended.remaining == 0 &&
           (!m_folder || m_folder->CountFailed() == 0) && MissingText({}).empty();
}

// Empty unless the peer says that it sent more than there was here, or that it is done and something remains.
std::string RetrieveReport::MissingText(const std::string& hint) const {
    if (m_status == 0 && m_ended.remaining > 0)
        return fmt::format("the peer says that all is done, and that {} remain{}; fetch again what is missing",
                           Objects(m_ended.remaining), m_ended.remaining == 1 ? "s" : "");
    const std::uint64_t sent = m_ended.completed + m_ended.warning;
    if (!m_folder || m_folder->CountWritten() + m_folder->CountKept() + m_folder->CountFailed() >= sent)
        return {};
    return fmt::format("the peer says it sent {}; {} arrived here{}{}", Objects(sent),
                       m_folder->CountWritten() + m_folder->CountKept(), hint.empty() ? "" : "; ", hint);
}

std::string RetrieveReport::UnwrittenText() const {
    if (!m_folder || m_folder->CountUnwritten() == 0)
        return {};
    return fmt::format("{} could not be written: {}", Objects(m_folder->CountUnwritten()), m_folder->UnwrittenReason());
}

void RetrieveReport::SayOutcome(const std::string& hint, const std::string& missing) const {
    if (!m_good)
        Say(m_peer.Name(), m_failure);
    else if (KindOfStatus(m_status) == StatusKind::cancelled)
        Say(m_peer.Name(), "interrupted");
    else if (m_status != 0)
        Say(m_peer.Name(), m_text);
    for (std::size_t i = 0; i < std::min(m_failedUids.size(), kMostNamed); ++i)
        Say(m_failedUids[i], "the peer could not send it");
    if (m_failedUids.size() > kMostNamed)
        SayPlain(fmt::format("  and {} more; --json names all of them", m_failedUids.size() - kMostNamed));
    const std::string unwritten = UnwrittenText();
    if (!unwritten.empty())
        Say(m_folder->Path(), fmt::format("{}; {}, and fetch again what is missing", unwritten,
                                          m_folder->IsFull() ? "make room" : "put that right"));
    else if (m_ended.failed > 0 && !hint.empty())
        Say(hint);
    if (!missing.empty())
        Say(m_peer.Name(), missing);
    if (m_good && m_status == 0 && m_ended.completed + m_ended.failed + m_ended.warning == 0)
        Say(m_peer.Name(), "nothing matched");
}

std::string RetrieveReport::Json(const std::string& missing) const {
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    const auto number = [&writer](const char* name, std::uint64_t value) {
        writer.Key(name);
        writer.Uint64(value);
    };
    const auto text = [&writer](std::string_view value) {
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    };
    writer.StartObject();
    number("status", m_status);
    number("completed", m_ended.completed);
    number("warnings", m_ended.warning);
    number("failed", m_ended.failed);
    number("remaining", m_ended.remaining);
    if (m_folder) {
        number("written", m_folder->CountWritten());
        number("kept", m_folder->CountKept());
        number("refused", m_folder->CountFailed());
        number("bytes", m_folder->CountBytes());
    }
    writer.Key("failedSOPInstanceUIDs");
    writer.StartArray();
    for (const std::string& uid : m_failedUids)
        text(VisibleCopy(uid));
    writer.EndArray();
    if (m_folder) {
        writer.Key("problems");
        writer.StartArray();
        for (const Refusal& refusal : m_folder->Refusals()) {
            writer.StartObject();
            if (!refusal.instanceUid.empty()) {
                writer.Key("sopInstanceUID");
                text(refusal.instanceUid);
            }
            number("status", refusal.status);
            writer.Key("text");
            text(VisibleCopy(refusal.text));
            writer.EndObject();
        }
        writer.EndArray();
        if (m_folder->CountFailed() > m_folder->Refusals().size())
            number("problemsNotListed", m_folder->CountFailed() - m_folder->Refusals().size());
    }
    const std::string unwritten = UnwrittenText();
    std::string error = !m_good              ? m_failure
                        : !unwritten.empty() ? fmt::format("{}: {}", m_folder->Path(), unwritten)
                                             : m_text;
    if (error.empty())
        error = missing;
    if (!error.empty()) {
        writer.Key("error");
        text(VisibleCopy(error));
    }
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

std::string RetrieveReport::Line() const {
    std::string line;
    if (m_folder)
        line = fmt::format("{} written, {:.1f} MB", Objects(m_folder->CountWritten()),
                           static_cast<double>(m_folder->CountBytes()) / 1e6);
    else
        line = fmt::format("{} sent", Objects(m_ended.completed + m_ended.warning));
    if (m_folder && m_folder->CountKept() > 0)
        line += fmt::format("; {} kept that were there", m_folder->CountKept());
    if (m_ended.warning > 0)
        line += fmt::format("; {} with a warning", m_ended.warning);
    if (m_ended.failed > 0)
        line += fmt::format("; {} failed", m_ended.failed);
    if (m_ended.remaining > 0)
        line += fmt::format("; {} remaining", m_ended.remaining);
    return line;
}

int RetrieveReport::Tell(const std::string& hint, const std::string& missingHint) {
    m_progress.Hide();
    const std::string missing = MissingText(missingHint);
    SayOutcome(hint, missing);
    Output out(DICOM_STDOUT);
    out.Put(m_json ? Json(missing) : Line());
    out.Put('\n');
    if (!out.Flush())
        return ReportOutputFailure(out);
    return IsWell() ? kDone : kInputFailed;
}

} // namespace program

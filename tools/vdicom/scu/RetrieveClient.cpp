#include "scu/RetrieveClient.h"

#include "Message.h"
#include "Output.h"
#include "TextReader.h"
#include "VisibleText.h"

#include <fmt/format.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace program {

namespace {

constexpr VDicomULong kFailedList = 0x00080058;
constexpr unsigned short kWarning = 0xB000;
constexpr std::size_t kMostNamed = 20;

std::vector<std::string> ReadUids(VDicomDS& ds) {
    std::vector<std::string> uids;
    DICOMELEMENT* e = ds.FindFirstElement(nullptr, kFailedList, 1);
    if (!e)
        return uids;
    TextReader reader(ds);
    std::string_view text = reader.Text(e, e->nLength).text;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\\'), text.size());
        if (end > 0)
            uids.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return uids;
}

std::string Objects(std::uint64_t count) { return count == 1 ? "1 object" : fmt::format("{} objects", count); }

} // namespace

void RetrieveClient::TakeResponse(unsigned short status, const SubOperations& numbers, VDicomDS* data) {
    // Peers leave numbers out of the final response now and then.
    const unsigned int sum = numbers.completed + numbers.failed + numbers.warning;
    if (sum + numbers.remaining > 0)
        m_numbers = numbers;
    m_progress.Done(sum);
    if (KindOfStatus(status) == StatusKind::pending)
        return;
    if (data)
        m_failedUids = ReadUids(*data);
    TakeStatus(status);
}

// A warning without failures: all objects were stored, some of them with a warning.
bool RetrieveClient::IsStatusWell() const {
    return FinalStatus() == 0 ||
           (FinalStatus() == kWarning && m_numbers.failed == 0 && m_numbers.remaining == 0 && m_numbers.warning > 0);
}

bool RetrieveClient::IsWell(bool good, const ObjectFolder* folder) const {
    return good && IsStatusWell() && m_numbers.failed == 0 && (!folder || folder->CountFailed() == 0) &&
           MissingText(folder).empty();
}

// Empty unless the peer says that it sent more than there was here.
std::string RetrieveClient::MissingText(const ObjectFolder* folder) const {
    const std::uint64_t sent = m_numbers.completed + m_numbers.warning;
    if (!folder || folder->CountWritten() + folder->CountKept() + folder->CountFailed() >= sent)
        return {};
    const std::string hint = MissingHint();
    return fmt::format("the peer says it sent {}; {} arrived here{}{}", Objects(sent),
                       folder->CountWritten() + folder->CountKept(), hint.empty() ? "" : "; ", hint);
}

void RetrieveClient::SayOutcome(bool good, const ObjectFolder* folder, const std::string& hint) const {
    if (!good)
        Say(ThePeer().Name(), Failure());
    else if (KindOfStatus(FinalStatus()) == StatusKind::cancelled)
        Say(ThePeer().Name(), "interrupted");
    else if (FinalStatus() != 0)
        Say(ThePeer().Name(), FinalText());
    for (std::size_t i = 0; i < std::min(m_failedUids.size(), kMostNamed); ++i)
        Say(m_failedUids[i], "the peer could not send it");
    if (m_failedUids.size() > kMostNamed)
        SayPlain(fmt::format("  and {} more; --json names all of them", m_failedUids.size() - kMostNamed));
    if (m_numbers.failed > 0 && !hint.empty())
        Say(hint);
    if (const std::string missing = MissingText(folder); !missing.empty())
        Say(ThePeer().Name(), missing);
    if (good && FinalStatus() == 0 && m_numbers.completed + m_numbers.failed + m_numbers.warning == 0)
        Say(ThePeer().Name(), "nothing matched");
}

int RetrieveClient::Report(bool good, bool json, const ObjectFolder* folder, const std::string& hint) const {
    SayOutcome(good, folder, hint);
    Output out(DICOM_STDOUT);
    if (json) {
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
        number("status", FinalStatus());
        number("completed", m_numbers.completed);
        number("warnings", m_numbers.warning);
        number("failed", m_numbers.failed);
        number("remaining", m_numbers.remaining);
        if (folder) {
            number("written", folder->CountWritten());
            number("kept", folder->CountKept());
            number("refused", folder->CountFailed());
            number("bytes", folder->CountBytes());
        }
        writer.Key("failedSOPInstanceUIDs");
        writer.StartArray();
        for (const std::string& uid : m_failedUids)
            text(VisibleCopy(uid));
        writer.EndArray();
        std::string error = good ? FinalText() : Failure();
        if (error.empty())
            error = MissingText(folder);
        if (!error.empty()) {
            writer.Key("error");
            text(VisibleCopy(error));
        }
        writer.EndObject();
        out.Put({buffer.GetString(), buffer.GetSize()});
        out.Put('\n');
    } else {
        std::string line;
        if (folder)
            line = fmt::format("{} written, {:.1f} MB", Objects(folder->CountWritten()),
                               static_cast<double>(folder->CountBytes()) / 1e6);
        else
            line = fmt::format("{} sent", Objects(m_numbers.completed + m_numbers.warning));
        if (folder && folder->CountKept() > 0)
            line += fmt::format("; {} kept that were there", folder->CountKept());
        if (m_numbers.warning > 0)
            line += fmt::format("; {} with a warning", m_numbers.warning);
        if (m_numbers.failed > 0)
            line += fmt::format("; {} failed", m_numbers.failed);
        if (m_numbers.remaining > 0)
            line += fmt::format("; {} remaining", m_numbers.remaining);
        out.Put(line);
        out.Put('\n');
    }
    if (!out.Flush())
        return ReportOutputFailure(out);
    return IsWell(good, folder) ? kDone : kInputFailed;
}

} // namespace program

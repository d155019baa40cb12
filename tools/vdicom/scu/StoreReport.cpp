#include "scu/StoreReport.h"

#include "Message.h"
#include "VisibleText.h"
#include "scu/Peer.h"
#include "scu/Uid.h"

#include <fmt/format.h>

#include <algorithm>

namespace program {

namespace {

constexpr std::uint64_t kMostNamed = 20;
constexpr double kMegabyte = 1e6;

std::string Files(std::uint64_t count) { return count == 1 ? "1 file" : fmt::format("{} files", count); }

} // namespace

StoreReport::StoreReport(bool json) : m_json(json), m_out(DICOM_STDOUT), m_writer(m_buffer) {
    m_writer.SetIndent(' ', 2);
    if (!m_json)
        return;
    m_writer.StartObject();
    m_writer.Key("problems");
    m_writer.StartArray();
}

void StoreReport::Stored(const StoreFile& file) {
    ++m_stored;
    m_bytes += file.bytes;
}

void StoreReport::Warned(const StoreFile& file, const ObjectNames& names, const std::string& text,
                         unsigned short status) {
    Stored(file);
    ++m_warned;
    if (m_json)
        WriteProblem("warning", file.path, names, text, status);
    else
        Say(file.path, "stored with a warning: " + text);
}

void StoreReport::Failed(const std::string& path, const ObjectNames& names, const std::string& text,
                         unsigned short status) {
    ++m_failed;
    if (m_json)
        WriteProblem("failed", path, names, text, status);
    else
        Say(path, "not stored: " + text);
}

void StoreReport::NotSent(const std::string& path) {
    ++m_notSent;
    if (m_json)
        WriteProblem("notSent", path, {}, m_error, 0);
    else if (m_notSent <= kMostNamed)
        Say(path, "not sent");
    else if (m_notSent == kMostNamed + 1)
        SayPlain("  and more; --json names all of them");
}

void StoreReport::Lost(const Peer& peer, const std::string& text) {
    m_error = text;
    Say(peer.Name(), text);
}

bool StoreReport::End(double seconds, std::size_t associations) {
    if (m_json) {
        m_writer.EndArray();
        WriteNumbers(seconds, associations);
        m_writer.EndObject();
        FlushJson();
        m_out.Put('\n');
    } else {
        if (m_passedOver > 0)
            Say(fmt::format("{} in folders passed over, being no DICOM objects", Files(m_passedOver)));
        const double megabytes = static_cast<double>(m_bytes) / kMegabyte;
        const double span = std::max(seconds, 1e-6);
        std::string line = fmt::format("stored {}, {:.1f} MB in {:.2f} s: {:.1f} MB/s, {:.0f} files/s", Files(m_stored),
                                       megabytes, seconds, megabytes / span, static_cast<double>(m_stored) / span);
        if (m_warned > 0)
            line += fmt::format("; {} with a warning", m_warned);
        if (m_failed > 0)
            line += fmt::format("; {} failed", m_failed);
        if (m_notSent > 0)
            line += fmt::format("; {} not sent", m_notSent);
        m_out.Put(line);
        m_out.Put('\n');
    }
    if (m_out.Flush())
        return true;
    ReportOutputFailure(m_out);
    return false;
}

void StoreReport::WriteProblem(const char* result, const std::string& path, const ObjectNames& names,
                               const std::string& text, unsigned short status) {
    m_writer.StartObject();
    Member("file", VisibleCopy(path));
    Member("result", std::string_view(result));
    if (IsUid(names.classUid) && IsUid(names.instanceUid)) {
        Member("sopClassUID", names.classUid);
        Member("sopInstanceUID", names.instanceUid);
    }
    if (status != 0)
        Member("status", std::uint64_t{status});
    Member("text", VisibleCopy(text));
    m_writer.EndObject();
    FlushJson();
}

void StoreReport::WriteNumbers(double seconds, std::size_t associations) {
    Member("stored", m_stored);
    Member("warnings", m_warned);
    Member("failed", m_failed);
    Member("notSent", m_notSent);
    Member("passedOver", m_passedOver);
    Member("bytes", m_bytes);
    Member("associations", std::uint64_t{associations});
    m_writer.Key("seconds");
    m_writer.Double(seconds);
    const double span = std::max(seconds, 1e-6);
    m_writer.Key("megabytesPerSecond");
    m_writer.Double(static_cast<double>(m_bytes) / kMegabyte / span);
    m_writer.Key("filesPerSecond");
    m_writer.Double(static_cast<double>(m_stored) / span);
    if (!m_error.empty())
        Member("error", VisibleCopy(m_error));
}

void StoreReport::Member(const char* name, std::string_view value) {
    m_writer.Key(name);
    m_writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
}

void StoreReport::Member(const char* name, std::uint64_t value) {
    m_writer.Key(name);
    m_writer.Uint64(value);
}

void StoreReport::FlushJson() {
    m_out.Put({m_buffer.GetString(), m_buffer.GetSize()});
    m_buffer.Clear();
    m_out.FlushFull();
}

} // namespace program

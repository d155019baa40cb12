#include "serve/Log.h"

#include <fmt/format.h>
#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <utility>

namespace program {

namespace {

constexpr std::size_t kLargest = std::size_t{64} << 20;
constexpr std::size_t kKept = 4;

spdlog::level::level_enum Severity(LogLine::Level level) {
    switch (level) {
    case LogLine::Level::warning:
        return spdlog::level::warn;
    case LogLine::Level::error:
        return spdlog::level::err;
    default:
        return spdlog::level::info;
    }
}

bool NeedsQuotes(std::string_view text) {
    for (const char c : text) {
        if (c <= ' ' || c == '"' || c == '=' || c == '\\' || c == '\x7F')
            return true;
    }
    return text.empty();
}

} // namespace

LogLine::LogLine(Log& log, Level level, std::string_view event) : m_log(&log), m_level(level) { Add("event", event); }

LogLine::LogLine(LogLine&& other) noexcept
    : m_log(std::exchange(other.m_log, nullptr)), m_level(other.m_level), m_line(std::move(other.m_line)) {}

LogLine::~LogLine() {
    if (m_log == nullptr)
        return;
    try {
        m_log->m_logger->log(Severity(m_level), "{}", m_line);
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): there is nobody left to tell
    }
}

void LogLine::AddKey(std::string_view key) {
    if (m_log->m_json) {
        m_line += m_line.empty() ? "\"" : ",\"";
        m_line += key;
        m_line += "\":";
    } else {
        m_line += m_line.empty() ? "" : " ";
        m_line += key;
        m_line += '=';
    }
}

// As in JSON; bytes beyond ASCII stay.
void LogLine::AddQuoted(std::string_view text) {
    m_line += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            m_line += '\\';
            m_line += c;
        } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') {
            m_line += fmt::format("\\u{:04x}", static_cast<unsigned int>(c));
        } else {
            m_line += c;
        }
    }
    m_line += '"';
}

LogLine& LogLine::Add(std::string_view key, std::string_view text) {
    if (text.empty())
        return *this;
    AddKey(key);
    if (m_log->m_json || NeedsQuotes(text))
        AddQuoted(text);
    else
        m_line += text;
    return *this;
}

LogLine& LogLine::AddNumber(std::string_view key, const std::string& digits) {
    AddKey(key);
    m_line += digits;
    return *this;
}

LogLine& LogLine::AddStatus(unsigned short status) {
    return Add("status", fmt::format("{:04X}", static_cast<unsigned int>(status)));
}

Log::Log(const std::string& path, bool json) : m_json(json) {
    spdlog::sink_ptr sink;
    if (path.empty())
        sink = std::make_shared<spdlog::sinks::stderr_sink_st>();
    else
        sink = std::make_shared<spdlog::sinks::rotating_file_sink_st>(path, kLargest, kKept);
    m_logger = std::make_shared<spdlog::logger>("serve", std::move(sink));
    m_logger->set_pattern(json ? R"({"time":"%Y-%m-%dT%H:%M:%S.%e%z","level":"%l",%v})"
                               : "%Y-%m-%dT%H:%M:%S.%e%z %l %v");
    m_logger->flush_on(spdlog::level::info);
}

Log::~Log() = default;

} // namespace program

/// @file Log.h
/// The server's log: one line for each event, either `key=value` pairs or a JSON object.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

namespace spdlog {
class logger;
}

namespace program {

class Log;

/// Collects one line; it is written when it goes out of scope. Texts may come from peers and are made safe.
class LogLine {
public:
    enum class Level { info, warning, error };

    LogLine(Log& log, Level level, std::string_view event);
    ~LogLine();
    LogLine(LogLine&& other) noexcept;
    LogLine& operator=(LogLine&&) = delete;

    /// Empty texts are left out.
    LogLine& Add(std::string_view key, std::string_view text);
    template <class Number, class = std::enable_if_t<std::is_integral_v<Number>>>
    LogLine& Add(std::string_view key, Number number) {
        return AddNumber(key, std::to_string(number));
    }
    /// "0xA700"
    LogLine& AddStatus(unsigned short status);

private:
    LogLine& AddNumber(std::string_view key, const std::string& digits);
    void AddKey(std::string_view key);
    void AddQuoted(std::string_view text);

    Log* m_log; ///< null: moved away
    Level m_level;
    std::string m_line;
};

class Log {
public:
    /// @param path a file, which is rotated at 64 MiB and kept four times; empty: standard error
    /// @throw std::exception when the file cannot be written
    Log(const std::string& path, bool json);
    ~Log();

    LogLine Info(std::string_view event) { return {*this, LogLine::Level::info, event}; }
    LogLine Warning(std::string_view event) { return {*this, LogLine::Level::warning, event}; }
    LogLine Error(std::string_view event) { return {*this, LogLine::Level::error, event}; }

private:
    friend class LogLine;
    std::shared_ptr<spdlog::logger> m_logger;
    bool m_json;
};

} // namespace program

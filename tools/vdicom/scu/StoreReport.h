/// @file StoreReport.h
/// What became of the files of a store command, told while it goes on.
#pragma once

#include "Output.h"
#include "scu/StoreList.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace program {

struct Peer;

/// Messages on standard error, or one JSON object on standard output. Keeps numbers alone, however many files there
/// are.
class StoreReport {
public:
    explicit StoreReport(bool json);

    void Stored(const StoreFile& file);
    /// @param status 0: no response has come
    void Warned(const StoreFile& file, const ObjectNames& names, const std::string& text, unsigned short status);
    void Failed(const std::string& path, const ObjectNames& names, const std::string& text, unsigned short status);
    /// A file that was not sent because there is no association any more.
    void NotSent(const std::string& path);
    /// A file in a folder that is no DICOM object.
    void PassedOver() { ++m_passedOver; }
    /// Why there is no association any more.
    void Lost(const Peer& peer, const std::string& text);

    /// Whether standard output gets an object that nothing may be drawn into.
    bool IsJson() const { return m_json; }
    std::uint64_t CountStored() const { return m_stored; }
    std::uint64_t CountStoredBytes() const { return m_bytes; }
    bool AllWell() const { return m_failed == 0 && m_notSent == 0 && m_error.empty(); }

    /// Says the numbers. @param seconds from the first association request to the end of the last association
    /// @return false: standard output could not be written, which has been said
    bool End(double seconds, std::size_t associations);

private:
    void WriteProblem(const char* result, const std::string& path, const ObjectNames& names, const std::string& text,
                      unsigned short status);
    void WriteNumbers(double seconds, std::size_t associations);
    void Member(const char* name, std::string_view value);
    void Member(const char* name, std::uint64_t value);
    void FlushJson();

    bool m_json;
    Output m_out;
    rapidjson::StringBuffer m_buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> m_writer;
    std::uint64_t m_stored = 0;
    std::uint64_t m_warned = 0;
    std::uint64_t m_failed = 0;
    std::uint64_t m_notSent = 0;
    std::uint64_t m_passedOver = 0;
    std::uint64_t m_bytes = 0;
    std::string m_error;
};

} // namespace program

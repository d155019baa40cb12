/// @file Output.h
/// One growing buffer before a standard stream, written out in large pieces.
#pragma once

#include "VDicomConsole.h"

#include <cstring>
#include <memory>
#include <string_view>

namespace program {

/// Bytes on their way to a standard stream. After a failed write everything is thrown away and Failed is true.
class Output {
public:
    explicit Output(unsigned int stream) : m_stream(stream), m_buffer(new char[kCapacity]) {}
    ~Output() { Flush(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    /// Room for `size` bytes, at most kReserve; Advance says how many were used.
    char* Reserve(std::size_t size) {
        if (kCapacity - m_used < size)
            Flush();
        return m_buffer.get() + m_used;
    }
    void Advance(std::size_t size) { m_used += size; }

    void Put(char c) {
        if (m_used == kCapacity)
            Flush();
        m_buffer[m_used++] = c;
    }
    void Put(std::string_view text) {
        if (kCapacity - m_used < text.size()) {
            PutLarge(text);
            return;
        }
        std::memcpy(m_buffer.get() + m_used, text.data(), text.size());
        m_used += text.size();
    }
    void Repeat(char c, std::size_t count) {
        for (; count > 0; --count)
            Put(c);
    }
    void Decimal(unsigned long long number);
    /// `digits` upper-case hexadecimal digits, at most 16.
    void Hex(unsigned long long number, unsigned int digits);

    /// The place where the next byte goes, for Truncate; holds until something is flushed (see Reserve).
    std::size_t Mark() const { return m_used; }
    void Truncate(std::size_t mark) { m_used = mark; }

    /// Writes the buffer when it is well filled; called between lines so that lines are seldom torn.
    void FlushFull() {
        if (m_used >= kFull)
            Flush();
    }
    /// @return false when a write has failed
    bool Flush();
    bool Failed() const { return m_failed; }
    /// The platform's number of the failure.
    int Error() const { return m_error; }

    static constexpr std::size_t kReserve = 32 * 1024;

private:
    void PutLarge(std::string_view text);

    static constexpr std::size_t kFull = 64 * 1024;
    static constexpr std::size_t kCapacity = kFull + kReserve;

    unsigned int m_stream;
    bool m_failed = false;
    int m_error = 0;
    std::size_t m_used = 0;
    std::unique_ptr<char[]> m_buffer;
};

} // namespace program

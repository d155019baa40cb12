#include "Output.h"

#include <charconv>

namespace program {

void Output::Decimal(unsigned long long number) {
    char* at = Reserve(24);
    Advance(static_cast<std::size_t>(std::to_chars(at, at + 24, number).ptr - at));
}

void Output::Hex(unsigned long long number, unsigned int digits) {
    char* at = Reserve(16);
    for (unsigned int i = digits; i-- > 0; number >>= 4)
        at[i] = "0123456789ABCDEF"[number & 15];
    Advance(digits);
}

bool Output::Flush() {
    if (!m_failed && m_used > 0 && !VDicomConsole::Write(m_stream, m_buffer.get(), m_used, &m_error))
        m_failed = true;
    m_used = 0;
    return !m_failed;
}

void Output::PutLarge(std::string_view text) {
    Flush();
    if (text.size() < kCapacity) {
        std::memcpy(m_buffer.get(), text.data(), text.size());
        m_used = text.size();
    } else if (!m_failed && !VDicomConsole::Write(m_stream, text.data(), text.size(), &m_error)) {
        m_failed = true;
    }
}

} // namespace program

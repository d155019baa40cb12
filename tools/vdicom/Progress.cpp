#include "Progress.h"

#include "Message.h"
#include "VDicomConsole.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

namespace program {

namespace {

constexpr auto kFirst = std::chrono::milliseconds(700);
constexpr auto kAgain = std::chrono::milliseconds(100);
constexpr std::size_t kShortestBar = 5, kLongestBar = 30, kUsualColumns = 79;

void Write(const std::string& text) { VDicomConsole::Write(DICOM_STDERR, text.data(), text.size(), nullptr); }

} // namespace

Progress::Progress(std::string_view what, std::uint64_t total, std::uint64_t unit)
    : m_what(what), m_total(total), m_unit(unit), m_outer(SetMessageProgress(this)),
      m_active(VDicomConsole::IsTerminal(DICOM_STDERR) != 0), m_hasBegun(total > 0), m_start(Clock::now()),
      m_next(m_start + kFirst) {}

Progress::~Progress() {
    SetMessageProgress(m_outer);
    Hide();
}

void Progress::Pieces(std::string_view what, std::uint64_t total) {
    m_piece = what;
    m_pieces = total;
}

void Progress::Begin(std::uint64_t count) {
    if (m_hasBegun || (count == 0 && m_bytes == 0))
        return;
    m_hasBegun = true;
    m_start = Clock::now();
    m_firstBytes = m_bytes;
    m_firstCount = count;
}

void Progress::Bytes(std::uint64_t bytes) {
    m_bytes = bytes;
    Begin(0);
}

void Progress::Off() {
    Hide();
    m_active = false;
}

void Progress::Done(std::uint64_t count, std::uint64_t pieces) {
    if (!m_active)
        return;
    Begin(count);
    const Clock::time_point now = Clock::now();
    if (now < m_next)
        return;
    m_next = now + kAgain;
    Draw(count, pieces);
}

void Progress::Hide() {
    if (m_shown)
        Write("\r\033[K");
    m_shown = false;
}

void Progress::AddBytes(std::string& line, double seconds) const {
    if (m_bytes > 0)
        line += fmt::format(", {:.0f} MB, {:.0f} MB/s", static_cast<double>(m_bytes) / 1e6,
                            static_cast<double>(m_bytes - m_firstBytes) / 1e6 / std::max(seconds, 1e-3));
}

void Progress::Draw(std::uint64_t count, std::uint64_t pieces) {
    const std::chrono::duration<double> spent = Clock::now() - m_start;
    std::string text, bar;
    if (m_total > 0) {
        if (!m_piece.empty())
            text += fmt::format("{} of {} {}, ", std::min(pieces, m_pieces), m_pieces, m_piece);
        text += fmt::format("{} of {} {}", count / m_unit, m_total / m_unit, m_what);
        if (m_unit > 1)
            text += fmt::format(", {:.0f} {}/s",
                                static_cast<double>(count) / static_cast<double>(m_unit) / spent.count(), m_what);
        AddBytes(text, spent.count());
        if (count > m_firstCount) {
            const double left = spent.count() / static_cast<double>(count - m_firstCount) *
                                static_cast<double>(m_total - std::min(count, m_total));
            text += fmt::format(", {:.0f} s left", left);
        }
    } else {
        text += fmt::format("{} {}", count / m_unit, m_what);
        AddBytes(text, spent.count());
        text += fmt::format(", {:.0f} s", spent.count());
    }
    // Not wider than the terminal: a wrapped line could not be taken back. The text is worth more than the bar.
    const VDicomULong known = VDicomConsole::GetColumns(DICOM_STDERR);
    const std::size_t columns = known > 1 ? known - 1 : kUsualColumns;
    const std::size_t room = columns - std::min(columns, text.size());
    if (m_total > 0 && room >= kShortestBar + 3) {
        const std::size_t width = std::min(kLongestBar, room - 3);
        const auto filled = static_cast<std::size_t>(static_cast<double>(std::min(count, m_total)) /
                                                     static_cast<double>(m_total) * static_cast<double>(width));
        bar = fmt::format("[{}{}] ", std::string(filled, '#'), std::string(width - filled, '.'));
    }
    Write("\r\033[K" + bar + text.substr(0, columns));
    m_shown = true;
}

} // namespace program

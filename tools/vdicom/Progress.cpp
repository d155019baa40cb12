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

void Write(const std::string& text) { VDicomConsole::Write(DICOM_STDERR, text.data(), text.size(), nullptr); }

} // namespace

Progress::Progress(std::string_view what, std::uint64_t total, std::uint64_t unit)
    : m_what(what), m_total(total), m_unit(unit), m_outer(SetMessageProgress(this)),
      m_active(VDicomConsole::IsTerminal(DICOM_STDERR) != 0), m_start(Clock::now()), m_next(m_start + kFirst) {}

Progress::~Progress() {
    SetMessageProgress(m_outer);
    Hide();
}

void Progress::Pieces(std::string_view what, std::uint64_t total) {
    m_piece = what;
    m_pieces = total;
}

void Progress::Done(std::uint64_t count, std::uint64_t pieces) {
    if (!m_active)
        return;
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

void Progress::Draw(std::uint64_t count, std::uint64_t pieces) {
    const std::chrono::duration<double> spent = Clock::now() - m_start;
    std::string line = "\r\033[K";
    if (m_total > 0) {
        const std::size_t width = 30;
        const auto filled = static_cast<std::size_t>(static_cast<double>(std::min(count, m_total)) /
                                                     static_cast<double>(m_total) * static_cast<double>(width));
        line += fmt::format("[{}{}] ", std::string(filled, '#'), std::string(width - filled, '.'));
        if (!m_piece.empty())
            line += fmt::format("{} of {} {}, ", pieces, m_pieces, m_piece);
        line += fmt::format("{} of {} {}", count / m_unit, m_total / m_unit, m_what);
        if (m_unit > 1)
            line += fmt::format(", {:.0f} {}/s",
                                static_cast<double>(count) / static_cast<double>(m_unit) / spent.count(), m_what);
        if (count > 0) {
            const double left = spent.count() / static_cast<double>(count) * static_cast<double>(m_total - count);
            line += fmt::format(", {:.0f} s left", left);
        }
    } else {
        line += fmt::format("{} {}, {:.0f} s", count / m_unit, m_what, spent.count());
    }
    // Not wider than the terminal: a wrapped line could not be taken back.
    const VDicomULong columns = VDicomConsole::GetColumns(DICOM_STDERR);
    if (columns > 1)
        line.resize(std::min<std::size_t>(line.size(), columns - 1 + 4));
    Write(line);
    m_shown = true;
}

} // namespace program

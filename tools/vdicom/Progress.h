/// @file Progress.h
/// A progress line on standard error, for work that takes longer than a moment. Never written into a pipe or file.
#pragma once

#include <chrono>
#include <cstddef>
#include <string_view>

namespace program {

class Progress {
public:
    /// @param what "converted", shown behind the numbers @param total 0: not known
    Progress(std::string_view what, std::size_t total);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Says how much is done. Cheap: the line is drawn ten times a second at most.
    void Done(std::size_t count);
    /// Takes the line away until the next Done.
    void Hide();

private:
    void Draw(std::size_t count);

    using Clock = std::chrono::steady_clock;
    std::string_view m_what;
    std::size_t m_total;
    bool m_active;
    bool m_shown = false;
    Clock::time_point m_start;
    Clock::time_point m_next;
};

} // namespace program

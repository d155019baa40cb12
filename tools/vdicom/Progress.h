/// @file Progress.h
/// A progress line on standard error, for work that takes longer than a moment. Never written into a pipe or file.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace program {

class Progress {
public:
    /// @param what "files", shown behind the numbers @param total 0: not known @param unit the numbers are shown
    ///        divided by it, and with how many a second
    Progress(std::string_view what, std::uint64_t total, std::uint64_t unit = 1);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Shows a second number in front: how many of `total` pieces are done.
    void Pieces(std::string_view what, std::uint64_t total);

    /// How much there is to do, where that comes to be known later.
    void Total(std::uint64_t total) { m_total = total; }
    /// Shows how many bytes have gone, and how many a second.
    void Bytes(std::uint64_t bytes);
    /// Nothing is shown from now on.
    void Off();

    /// Says how much is done. Cheap: the line is drawn ten times a second at most.
    void Done(std::uint64_t count, std::uint64_t pieces = 0);
    /// Takes the line away until the next Done.
    void Hide();

private:
    void Begin(std::uint64_t count);
    void AddBytes(std::string& line, double seconds) const;
    void Draw(std::uint64_t count, std::uint64_t pieces);

    using Clock = std::chrono::steady_clock;
    std::string_view m_what;
    std::uint64_t m_total;
    std::uint64_t m_unit;
    std::string_view m_piece; ///< empty: there is no second number
    std::uint64_t m_pieces = 0;
    std::uint64_t m_bytes = 0;
    Progress* m_outer; ///< the one whose line this one's takes
    bool m_active;
    bool m_shown = false;
    // Where the total was not known, time counts from the first byte or count: what came before is no work.
    bool m_hasBegun;
    std::uint64_t m_firstBytes = 0, m_firstCount = 0;
    Clock::time_point m_start;
    Clock::time_point m_next;
};

} // namespace program

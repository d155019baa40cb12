/// @file Journal.h
/// The files that the archive has taken and the index does not have yet: one line each. Writing a line takes a fraction
/// of what a transaction of the index takes, and outlasts a killed process as well.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace archive {

class Journal {
public:
    /// @param path of its file, which need not be there
    explicit Journal(std::string path) : m_path(std::move(path)) {}

    /// The lines of an earlier process. What it was writing when it was killed does not count.
    std::vector<std::string> Read() const;

    /// All of the lines, or none. @param lines without a line feed in them
    /// @return 0; else the system's error
    int Append(const std::vector<std::string>& lines);

    /// Takes the lines away. @return 0; else the system's error: they are still there
    int Clear();
    /// Whether this process has added lines that are still there.
    bool IsEmpty() const { return m_size == 0; }

private:
    std::string m_path;
    std::ofstream m_file;
    std::uint64_t m_size = 0;
};

} // namespace archive

#include "Journal.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace archive {

std::vector<std::string> Journal::Read() const {
    std::vector<std::string> lines;
    std::ifstream file(m_path, std::ios::binary);
    for (std::string line; std::getline(file, line) && !file.eof();)
        lines.push_back(std::move(line));
    return lines;
}

int Journal::Append(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append(1, '\n');
    errno = 0;
    if (!m_file.is_open())
        m_file.open(m_path, std::ios::binary | std::ios::app);
    m_file.write(text.data(), static_cast<std::streamsize>(text.size())).flush();
    if (m_file.good()) {
        m_size += text.size();
        return 0;
    }
    const int error = errno == 0 ? EIO : errno;
    m_file.close();
    m_file.clear();
    std::error_code ignored;
    std::filesystem::resize_file(m_path, m_size, ignored); // half a line would spoil the next one
    return error;
}

int Journal::Clear() {
    std::error_code error;
    std::filesystem::resize_file(m_path, 0, error);
    if (error && error != std::errc::no_such_file_or_directory)
        return error.value();
    m_size = 0;
    return 0;
}

} // namespace archive

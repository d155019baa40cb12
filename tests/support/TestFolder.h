/// @file TestFolder.h
/// A folder of a test's own that is gone when the test is.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

class TestFolder {
public:
    TestFolder() {
        static std::atomic<unsigned> counter{0};
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        m_path = std::filesystem::temp_directory_path() /
                 ("vdicom-test-" + std::to_string(now) + "-" + std::to_string(counter++));
        std::filesystem::create_directories(m_path);
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    /// The path of a file in the folder, as the library takes it (UTF-8).
    std::string File(const std::string& name) const { return Utf8(m_path / FromUtf8(name)); }

    std::string Write(const std::string& name, const std::string& content) const {
        std::ofstream out(m_path / FromUtf8(name), std::ios::binary);
        out << content;
        return File(name);
    }

    static std::string Read(const std::string& file) {
        std::ifstream in(FromUtf8(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    /// How many entries the folder has.
    std::size_t Count() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

    static std::filesystem::path FromUtf8(const std::string& text) { return {std::u8string(text.begin(), text.end())}; }
    static std::string Utf8(const std::filesystem::path& path) {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    }

private:
    std::filesystem::path m_path;
};

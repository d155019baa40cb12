// Streams as the reader and the writer use them, and texts on their way to UTF-8.
#include "CharacterSet.h"
#include "StreamAccess.h"
#include "VDicomFile.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using vdicom::ByteSpan;
using vdicom::CharacterSet;
using vdicom::StreamAccess;
using vdicom::TextKind;

/// A folder of files that are gone with the benchmark.
class Files {
public:
    Files(std::size_t count, std::size_t size) {
        m_folder = std::filesystem::temp_directory_path() / ("vdicom-bench-" + std::to_string(size));
        std::filesystem::create_directories(m_folder);
        const std::string content(size, 'x');
        for (std::size_t i = 0; i < count; ++i) {
            paths.push_back((m_folder / std::to_string(i)).string());
            std::ofstream(paths.back(), std::ios::binary) << content;
        }
    }
    ~Files() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;

    std::vector<std::string> paths;

private:
    std::filesystem::path m_folder;
};

/// Headers of 8 bytes before values of `step` bytes, as a reader looks at them.
std::size_t ReadHeaders(VDicomFile& file, std::size_t step) {
    std::size_t sum = 0;
    for (VDicomUInt64 at = 0;;) {
        const ByteSpan view = StreamAccess::View(file, at, 8);
        if (view.size < 8)
            return sum;
        sum += view.data[0];
        at += 8 + step;
    }
}

void OpenSmallFiles(benchmark::State& state) {
    const Files files(1000, 6000);
    VDicomFile file;
    for (auto _ : state) {
        for (const std::string& path : files.paths) {
            file.Open(path.c_str(), DICOM_FILE_MODE_LOAD);
            benchmark::DoNotOptimize(ReadHeaders(file, 40));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(files.paths.size()));
}
BENCHMARK(OpenSmallFiles);

void StepOverValues(benchmark::State& state) {
    constexpr std::size_t size = std::size_t{64} << 20;
    const auto step = static_cast<std::size_t>(state.range(0));
    const Files files(1, size);
    VDicomFile file;
    for (auto _ : state) {
        file.Open(files.paths[0].c_str(), DICOM_FILE_MODE_LOAD);
        benchmark::DoNotOptimize(ReadHeaders(file, step));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(size / (step + 8)));
}
BENCHMARK(StepOverValues)->Arg(16)->Arg(300)->Arg(100000)->Unit(benchmark::kMillisecond);

void WriteShortValues(benchmark::State& state) {
    VDicomFile file;
    const char bytes[24] = {};
    for (auto _ : state) {
        file.Open(nullptr, static_cast<unsigned short>(state.range(0)));
        for (int i = 0; i < 200000; ++i)
            benchmark::DoNotOptimize(file.Write(bytes, sizeof bytes));
        file.Close();
    }
    state.SetItemsProcessed(state.iterations() * 200000);
}
BENCHMARK(WriteShortValues)
    ->ArgName("mode")
    ->Arg(DICOM_FILE_MODE_MEMORY)
    ->Arg(DICOM_FILE_MODE_SCRATCH)
    ->Unit(benchmark::kMillisecond);

void DecodeNames(benchmark::State& state, const char* specific, const std::string& bytes) {
    const CharacterSet set(specific);
    std::string utf8;
    for (auto _ : state) {
        utf8.clear();
        set.Decode(bytes, TextKind::names, utf8);
        benchmark::DoNotOptimize(utf8.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK_CAPTURE(DecodeNames, plain, "ISO_IR 100", "Yamada^Tarou^Middle^^Dr");
BENCHMARK_CAPTURE(DecodeNames, latin, "ISO_IR 100", "Buc^J\xE9r\xF4me");
BENCHMARK_CAPTURE(DecodeNames, japanese, "\\ISO 2022 IR 87",
                  "Yamada^Tarou=\x1B$B;3ED\x1B(B^\x1B$BB@O:\x1B(B=\x1B$B$d$^$@\x1B(B^\x1B$B$?$m$&\x1B(B");
BENCHMARK_CAPTURE(DecodeNames, chinese, "GB18030", "Wang^XiaoDong=\xCD\xF5^\xD0\xA1\xB6\xAB=");
BENCHMARK_CAPTURE(DecodeNames, utf8, "ISO_IR 192", "Wang^XiaoDong=\xE7\x8E\x8B^\xE5\xB0\x8F\xE4\xB8\x9C=");

} // namespace

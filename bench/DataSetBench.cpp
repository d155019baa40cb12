// Loading, walking, finding, building and saving data sets.
#include "VDicomDS.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

constexpr VDicomULong kItem = 0xFFFEE000;

std::vector<unsigned char> Save(VDicomDS& dataSet, unsigned short flags) {
    VDicomFile stream;
    stream.Open(nullptr, DICOM_FILE_MODE_MEMORY);
    dataSet.SaveDS(&stream, flags);
    VDicomUInt64 size = 0;
    const unsigned char* bytes = stream.GetMemoryBuffer(&size);
    return {bytes, bytes + size};
}

// A report: `items` content items of eight elements each.
void BuildReport(VDicomDS& dataSet, VDicomULong items) {
    dataSet.ResetDS();
    dataSet.FindSetValue(nullptr, 0x00080018, 0, "1.2.3", 1);
    DICOMELEMENT* content = dataSet.InsertElement(nullptr, 0, 0x0040A730, 0, 0, 0);
    for (VDicomULong i = 0; i < items; ++i) {
        DICOMELEMENT* item = dataSet.InsertElement(content, 1, kItem, 0, 1, DICOM_UNDEFINED);
        dataSet.FindSetValue(item, 0x0040A010, 0, "CONTAINS", 1);
        dataSet.FindSetValue(item, 0x0040A040, 0, "TEXT", 1);
        dataSet.FindSetValue(item, 0x0040A160, 0, "a finding of no importance", 1);
        DICOMELEMENT* name = dataSet.InsertElement(item, 1, 0x0040A043, 0, 0, 0);
        DICOMELEMENT* code = dataSet.InsertElement(name, 1, kItem, 0, 1, DICOM_UNDEFINED);
        dataSet.FindSetValue(code, 0x00080100, 0, "121071", 1);
        dataSet.FindSetValue(code, 0x00080102, 0, "DCM", 1);
        dataSet.FindSetValue(code, 0x00080104, 0, "Finding", 1);
    }
}

std::vector<unsigned char> Report(unsigned short flags) {
    VDicomDS dataSet;
    BuildReport(dataSet, 20000);
    return Save(dataSet, flags);
}

VDicomULong CountElements(VDicomDS& dataSet) {
    VDicomULong count = 0;
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1))
        ++count;
    return count;
}

void LoadReport(benchmark::State& state) {
    const std::vector<unsigned char> bytes = Report(static_cast<unsigned short>(state.range(0)));
    VDicomDS dataSet;
    for (auto _ : state)
        benchmark::DoNotOptimize(dataSet.LoadDSMemory(bytes.data(), static_cast<VDicomULong>(bytes.size()), 0));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * CountElements(dataSet));
}
BENCHMARK(LoadReport)->ArgName("flags")->Arg(0x25)->Arg(0x15)->Arg(0x29)->Arg(0x2025)->Unit(benchmark::kMillisecond);

void WalkReport(benchmark::State& state) {
    VDicomDS dataSet;
    BuildReport(dataSet, 20000);
    VDicomULong count = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(count = CountElements(dataSet));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * count);
}
BENCHMARK(WalkReport)->Unit(benchmark::kMillisecond);

void BuildReports(benchmark::State& state) {
    VDicomDS dataSet;
    for (auto _ : state)
        BuildReport(dataSet, 20000);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * CountElements(dataSet));
}
BENCHMARK(BuildReports)->Unit(benchmark::kMillisecond);

void SaveReport(benchmark::State& state) {
    VDicomDS dataSet;
    BuildReport(dataSet, 20000);
    std::size_t size = 0;
    for (auto _ : state)
        size = Save(dataSet, static_cast<unsigned short>(state.range(0))).size();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}
BENCHMARK(SaveReport)->ArgName("flags")->Arg(0x25)->Arg(0x29)->Unit(benchmark::kMillisecond);

// Levels and sequences of growing width: the time for one element must not grow with it.
void BuildLevel(benchmark::State& state) {
    const auto width = static_cast<VDicomULong>(state.range(0));
    const bool backwards = state.range(1) != 0;
    for (auto _ : state) {
        VDicomDS dataSet;
        for (VDicomULong i = 0; i < width; ++i) {
            const VDicomULong at = backwards ? width - i : i;
            dataSet.InsertElement(nullptr, 0, (0x0011 + 2 * (at >> 12)) << 16 | (0x1000 + (at & 0xFFF)), 0x4C4F, 0, 0);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BuildLevel)->ArgNames({"width", "backwards"})->Args({1000, 0})->Args({100000, 0})->Args({100000, 1});

void FindInLevel(benchmark::State& state) {
    const auto width = static_cast<VDicomULong>(state.range(0));
    VDicomDS dataSet;
    const auto tagOf = [](VDicomULong at) { return (0x0011 + 2 * (at >> 12)) << 16 | (0x1000 + (at & 0xFFF)); };
    for (VDicomULong i = 0; i < width; ++i)
        dataSet.InsertElement(nullptr, 0, tagOf(i), 0x4C4F, 0, 0);
    VDicomULong at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(dataSet.FindFirstElement(nullptr, tagOf(at), 1));
        at = (at + 7919) % width;
    }
}
BENCHMARK(FindInLevel)->ArgName("width")->Arg(30)->Arg(1000)->Arg(100000);

void ItemsOfSequence(benchmark::State& state) {
    const auto width = static_cast<VDicomULong>(state.range(0));
    for (auto _ : state) {
        VDicomDS dataSet;
        DICOMELEMENT* sequence = dataSet.InsertElement(nullptr, 0, 0x00081140, 0, 0, 0);
        for (VDicomULong i = 0; i < width; ++i)
            dataSet.InsertElement(sequence, 1, kItem, 0, 1, i);
        for (VDicomULong i = 0; i < width; ++i)
            benchmark::DoNotOptimize(dataSet.GetIndexElement(sequence, i));
        benchmark::DoNotOptimize(Save(dataSet, 0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ItemsOfSequence)->ArgName("items")->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// A directory of this many records: built by key, saved, loaded and walked.
void DirectoryByKey(benchmark::State& state) {
    const auto records = static_cast<VDicomULong>(state.range(0));
    for (auto _ : state) {
        VDicomDS dataSet;
        DICOMELEMENT* patient = nullptr;
        for (VDicomULong i = 0; i < records; ++i) {
            if (i % 100 == 0)
                patient = dataSet.InsertKey(nullptr, 0, "PATIENT");
            else
                dataSet.InsertKey(patient, 1, "STUDY");
        }
        const std::vector<unsigned char> bytes = Save(dataSet, 0);
        VDicomDS read;
        read.LoadDSMemory(bytes.data(), static_cast<VDicomULong>(bytes.size()), 0);
        VDicomULong found = 0;
        for (DICOMELEMENT* key = read.GetFirstKey(nullptr); key != nullptr; key = read.GetNextKey(key)) {
            ++found;
            for (DICOMELEMENT* below = read.GetChildKey(key); below != nullptr; below = read.GetNextKey(below))
                ++found;
        }
        if (found != records)
            state.SkipWithError("records are missing");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DirectoryByKey)->ArgName("records")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

// Conformance checks: a CT image, a report of 240,000 elements, functional groups.
#include "VDicomDS.h"

#include <benchmark/benchmark.h>

namespace {

constexpr VDicomULong kItem = 0xFFFEE000;

VDicomULong VDICOM_CALLBACK Count(const DICOMFINDING*, void* count) {
    ++*static_cast<VDicomULong*>(count);
    return 0;
}

void Code(VDicomDS& ds, DICOMELEMENT* parent, VDicomULong sequence) {
    DICOMELEMENT* item = ds.InsertElement(ds.InsertElement(parent, 1, sequence, 0, 0, 0), 1, kItem, 0, 1, 0);
    ds.FindSetValue(item, 0x00080100, 0, "121071", 1);
    ds.FindSetValue(item, 0x00080102, 0, "DCM", 1);
    ds.FindSetValue(item, 0x00080104, 0, "Finding", 1);
}

void Run(benchmark::State& state, VDicomDS& ds) {
    VDicomULong elements = 0;
    for (DICOMELEMENT* e = ds.GetFirstElement(nullptr, 0, 1); e != nullptr; e = ds.GetNextElement(e, 0, 1))
        ++elements;
    VDicomULong findings = 0;
    for (auto _ : state) {
        findings = 0;
        if (ds.ConformanceDS(&Count, &findings, DICOM_UNDEFINED) != DICOM_OK)
            state.SkipWithError("the walk failed");
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * elements);
    state.counters["elements"] = elements;
    state.counters["findings"] = findings;
}

// Every element that the class knows at its top level.
void ConformanceImage(benchmark::State& state) {
    VDicomDS ds;
    ds.InitDS(1, 0);
    Run(state, ds);
}
BENCHMARK(ConformanceImage)->Unit(benchmark::kMicrosecond);

void ConformanceReport(benchmark::State& state) {
    VDicomDS ds;
    ds.FindSetValue(nullptr, 0x00080016, 0, "1.2.840.10008.5.1.4.1.1.88.33", 1);
    DICOMELEMENT* content = ds.InsertElement(nullptr, 0, 0x0040A730, 0, 0, 0);
    for (VDicomULong i = 0; i < 26600; ++i) {
        DICOMELEMENT* item = ds.InsertElement(content, 1, kItem, 0, 1, DICOM_UNDEFINED);
        ds.FindSetValue(item, 0x0040A010, 0, "CONTAINS", 1);
        ds.FindSetValue(item, 0x0040A040, 0, "TEXT", 1);
        ds.FindSetValue(item, 0x0040A160, 0, "a finding of no importance", 1);
        Code(ds, item, 0x0040A043);
    }
    Run(state, ds);
}
BENCHMARK(ConformanceReport)->Unit(benchmark::kMillisecond);

void ConformanceFrames(benchmark::State& state) {
    VDicomDS ds;
    ds.FindSetValue(nullptr, 0x00080016, 0, "1.2.840.10008.5.1.4.1.1.4.1", 1);
    DICOMELEMENT* frames = ds.InsertElement(nullptr, 0, 0x52009230, 0, 0, 0);
    const double position[] = {1, 2, 3};
    for (VDicomULong i = 0; i < 5000; ++i) {
        DICOMELEMENT* frame = ds.InsertElement(frames, 1, kItem, 0, 1, DICOM_UNDEFINED);
        DICOMELEMENT* plane = ds.InsertElement(frame, 1, 0x00209113, 0, 0, 0);
        ds.FindSetValue(ds.InsertElement(plane, 1, kItem, 0, 1, 0), 0x00200032, 0, position, 3);
    }
    Run(state, ds);
}
BENCHMARK(ConformanceFrames)->Unit(benchmark::kMillisecond);

} // namespace

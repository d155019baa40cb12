// Objects of a class by the table of information object definitions: making them, and asking for class and modules.
#include "VDicomDS.h"
#include "VDicomIOD.h"

#include <benchmark/benchmark.h>

namespace {

constexpr VDicomULong kCT = 1, kRTPlan = 17, kStudyQuery = 76, kEnhancedMR = 92;

void MakeObject(benchmark::State& state) {
    const auto classId = static_cast<VDicomULong>(state.range(0));
    const auto flags = static_cast<unsigned short>(state.range(1) != 0 ? 0 : DICOM_FLAG_NO_OPTIONAL);
    VDicomDS dataSet;
    dataSet.InitDS(classId, flags); // the table is built on first use
    VDicomULong elements = 0;
    for (DICOMELEMENT* e = dataSet.GetFirstElement(nullptr, 0, 1); e != nullptr; e = dataSet.GetNextElement(e, 0, 1))
        ++elements;
    for ([[maybe_unused]] auto _ : state) {
        if (dataSet.InitDS(classId, flags) != DICOM_OK)
            state.SkipWithError("not made");
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(elements));
    state.counters["elements"] = static_cast<double>(elements);
}
BENCHMARK(MakeObject)
    ->ArgNames({"class", "optional"})
    ->Args({kCT, 0})
    ->Args({kCT, 1})
    ->Args({kRTPlan, 0})
    ->Args({kRTPlan, 1})
    ->Args({kEnhancedMR, 1})
    ->Args({kStudyQuery, 1})
    ->Unit(benchmark::kMicrosecond);

template <class Ask> void AskObject(benchmark::State& state, Ask ask) {
    VDicomDS dataSet;
    dataSet.InitDS(static_cast<VDicomULong>(state.range(0)), 0);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(ask(dataSet));
}

void GetClass(benchmark::State& state) {
    AskObject(state, [](VDicomDS& dataSet) {
        VDicomULong classId = 0;
        dataSet.GetClass(&classId, nullptr);
        return classId;
    });
}
BENCHMARK(GetClass)->ArgName("class")->Arg(kCT)->Arg(kEnhancedMR);

void FindModule(benchmark::State& state) {
    AskObject(state, [](VDicomDS& dataSet) { return dataSet.FindModule(0); });
}
BENCHMARK(FindModule)->ArgName("class")->Arg(kCT)->Arg(kEnhancedMR);

void CountModules(benchmark::State& state) {
    AskObject(state, [](VDicomDS& dataSet) { return dataSet.GetCountModule(); });
}
BENCHMARK(CountModules)->ArgName("class")->Arg(kCT)->Arg(kEnhancedMR);

// Directory records with the elements that the table has for them.
void RecordsOfTheTable(benchmark::State& state) {
    const auto records = static_cast<VDicomULong>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        VDicomDS dataSet;
        dataSet.InitDS(DICOM_CLASS_BASIC_DIRECTORY, 0);
        DICOMELEMENT* patient = nullptr;
        for (VDicomULong i = 0; i < records; ++i) {
            if (i % 100 == 0)
                patient = dataSet.InsertKey(nullptr, 0, "PATIENT", 1);
            else
                dataSet.InsertKey(patient, 1, "STUDY", 1);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(RecordsOfTheTable)->ArgName("records")->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

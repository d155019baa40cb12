// Values: getting, setting, converting, editing and copying.
#include "VDicomDS.h"
#include "VRTraits.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

using namespace vdicom;

namespace {

constexpr VDicomULong kTag = 0x00091001;

struct OneElement {
    explicit OneElement(unsigned short vr, const std::string& value = {}, bool big = false) {
        if (big)
            dataSet.InitDS(DICOM_UNDEFINED, DICOM_FLAG_BIG | DICOM_FLAG_EXPLICIT);
        e = dataSet.InsertElement(nullptr, 0, kTag, vr, 0, 0);
        dataSet.SetBinaryValue(e, value.data(), static_cast<VDicomULong>(value.size()));
    }
    VDicomDS dataSet;
    DICOMELEMENT* e;
};

std::string Repeat(const std::string& value, std::size_t count) {
    std::string text = value;
    for (std::size_t i = 1; i < count; ++i)
        text += "\\" + value;
    return text;
}

struct Sample {
    const char* name;
    unsigned short vr;
    std::string value;
};

const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = {
        {"PN", vr::PN, "Yamada^Tarou"},
        {"UI", vr::UI, "1.2.840.10008.5.1.4.1.1.2"},
        {"US", vr::US, std::string(2, '\1')},
        {"DA", vr::DA, "20070115"},
        {"TM", vr::TM, "101112.123456"},
        {"DT", vr::DT, "20070115101112.5-0500"},
        {"IS", vr::IS, "12345"},
        {"DS_3", vr::DS, "-123.456\\0.333333\\1e-5"},
        {"DS_1000", vr::DS, Repeat("-123.456789", 1000)},
        {"LO_1000", vr::LO, Repeat("FOURTEEN BYTES", 1000)},
        {"OW_64K", vr::OW, std::string(65536, '\7')},
    };
    return samples;
}

// A value parsed anew each time: what reading a loaded data set costs.
void ParseValue(benchmark::State& state) {
    const Sample& sample = Samples()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(sample.name);
    OneElement one(sample.vr, sample.value);
    for ([[maybe_unused]] auto _ : state) {
        one.dataSet.FreeValue(one.e);
        benchmark::DoNotOptimize(one.dataSet.GetCountValue(one.e));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sample.value.size()));
}
BENCHMARK(ParseValue)->DenseRange(0, 10);

// A value that has been parsed before.
void GetParsedValue(benchmark::State& state) {
    OneElement one(vr::PN, "Yamada^Tarou");
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(one.dataSet.GetStringValue(one.e, 0, 1));
}
BENCHMARK(GetParsedValue);

void GetText(benchmark::State& state) {
    const Sample& sample = Samples()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(sample.name);
    OneElement one(sample.vr, sample.value);
    std::string text(one.dataSet.GetConvertValue(one.e, nullptr), '\0');
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(one.dataSet.GetConvertValue(one.e, text.data()));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(GetText)->DenseRange(0, 10);

void SetText(benchmark::State& state) {
    const Sample& sample = Samples()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(sample.name);
    OneElement one(sample.vr, sample.value);
    std::string text(one.dataSet.GetConvertValue(one.e, nullptr), '\0');
    one.dataSet.GetConvertValue(one.e, text.data());
    std::int64_t stored = 0;
    for ([[maybe_unused]] auto _ : state) {
        one.dataSet.SetConvertValue(one.e, text.c_str(), DICOM_UNDEFINED);
        stored += one.e->nLength;
        if (stored > 64 << 20) { // the scratch stream is given back now and then
            state.PauseTiming();
            one.dataSet.ResetDS();
            one.e = one.dataSet.InsertElement(nullptr, 0, kTag, sample.vr, 0, 0);
            stored = 0;
            state.ResumeTiming();
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(SetText)->DenseRange(0, 10);

// A data set of texts built element by element.
void FindSetTexts(benchmark::State& state) {
    VDicomDS dataSet;
    for ([[maybe_unused]] auto _ : state) {
        dataSet.ResetDS();
        for (VDicomULong i = 0; i < 100; ++i)
            dataSet.FindSetValue(nullptr, kTag + i, vr::LO, "FOURTEEN BYTES", 1);
    }
    state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(FindSetTexts);

// Pixel data of 16 MiB copied to a data set of the same byte order (0) and of the other (1).
void CopyPixels(benchmark::State& state) {
    const std::string pixels(16 << 20, '\5');
    OneElement source(vr::OW, pixels);
    for ([[maybe_unused]] auto _ : state) {
        OneElement target(vr::OW, {}, state.range(0) != 0);
        benchmark::DoNotOptimize(target.dataSet.CopyFileBinaryValue(target.e, &source.dataSet, source.e));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pixels.size()));
}
BENCHMARK(CopyPixels)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Reading 16 MiB of big endian words, whole and in chunks.
void ReadSwapped(benchmark::State& state) {
    OneElement one(vr::OW, std::string(16 << 20, '\5'), true);
    std::vector<char> buffer(one.e->nLength);
    const auto chunk = static_cast<VDicomULong>(state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        for (VDicomULong at = 0; at < one.e->nLength; at += chunk)
            benchmark::DoNotOptimize(one.dataSet.GetBinaryValue(one.e, buffer.data() + at, at, chunk));
    }
    state.SetBytesProcessed(state.iterations() * std::int64_t{one.e->nLength});
}
BENCHMARK(ReadSwapped)->Arg(16 << 20)->Arg(4096)->Unit(benchmark::kMillisecond);

// 1000 bytes put into the middle of a value of 16 MiB: by pieces, so its length does not matter.
void InsertInTheMiddle(benchmark::State& state) {
    OneElement one(vr::OB, std::string(16 << 20, '\5'));
    const std::string bytes(1000, '\6');
    for ([[maybe_unused]] auto _ : state) {
        one.dataSet.InsertBinaryValue(one.e, bytes.data(), 8 << 20, 1000);
        one.dataSet.DeleteFileBinaryValue(one.e, 8 << 20, 1000);
    }
}
BENCHMARK(InsertInTheMiddle)->Iterations(20000);

} // namespace

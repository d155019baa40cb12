// Look-ups in the dictionaries, and what loading the library costs.
#include "VDicomContextGroup.h"
#include "VDicomIOD.h"
#include "VDicomTag.h"
#include "VDicomUID.h"
#include "VDicomVR.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <iterator>

namespace {

// Tags of an ordinary image's header, in their order.
constexpr VDicomULong kHeader[] = {0x00020010, 0x00080005, 0x00080016, 0x00080018, 0x00080020, 0x00080060,
                                   0x00080090, 0x00081030, 0x00100010, 0x00100020, 0x00100030, 0x00100040,
                                   0x0020000D, 0x0020000E, 0x00200011, 0x00200013, 0x00280002, 0x00280010,
                                   0x00280011, 0x00280100, 0x00280101, 0x00281050, 0x00281051, 0x7FE00010};
constexpr VDicomULong kRanges[] = {0x60000010, 0x60020050, 0x50003000, 0x00203142, 0x002804F0, 0x7F020010};
constexpr VDicomULong kUnknown[] = {0x00091001, 0x00191002, 0x00291010, 0x20051105, 0x00189073, 0x7FE10010};

template <std::size_t N, class Find> void LookUp(benchmark::State& state, const VDicomULong (&tags)[N], Find find) {
    for ([[maybe_unused]] auto _ : state) {
        for (const VDicomULong tag : tags)
            benchmark::DoNotOptimize(find(tag));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(N));
}

const DICOMTAG* Walk(VDicomULong tag) {
    for (DICOMTAG* entry = VDicomTag::GetFirst(); entry != nullptr; entry = VDicomTag::GetNext(entry)) {
        if ((tag & entry->nMask) == entry->nCode)
            return entry;
    }
    return nullptr;
}

void FillTables(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        VDicomVR::Default();
        VDicomUID::Default();
        VDicomTag::Default();
    }
}

void FillAndEmptyTables(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        VDicomVR::Default();
        VDicomUID::Default();
        VDicomTag::Default();
        VDicomVR::Reset();
        VDicomUID::Reset();
        VDicomTag::Reset();
    }
    VDicomVR::Default();
    VDicomUID::Default();
    VDicomTag::Default();
}

void TagOfImageHeader(benchmark::State& state) { LookUp(state, kHeader, VDicomTag::Find); }
void TagOfRange(benchmark::State& state) { LookUp(state, kRanges, VDicomTag::Find); }
void TagUnknown(benchmark::State& state) { LookUp(state, kUnknown, VDicomTag::Find); }
void TagOfImageHeaderByWalk(benchmark::State& state) { LookUp(state, kHeader, Walk); }

void VR(benchmark::State& state) {
    constexpr VDicomULong codes[] = {VDicomVRCode('U', 'I'), VDicomVRCode('P', 'N'), VDicomVRCode('O', 'W')};
    LookUp(state, codes, [](VDicomULong code) { return VDicomVR::Find(static_cast<unsigned short>(code)); });
}

void UID(benchmark::State& state) {
    const char* const uids[] = {"1.2.840.10008.1.2.1", "1.2.840.10008.5.1.4.1.1.2", "1.2.840.10008.1.2.4.90",
                                "1.2.840.113619.2.55.3"};
    for ([[maybe_unused]] auto _ : state) {
        for (const char* uid : uids)
            benchmark::DoNotOptimize(VDicomUID::Find(uid));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(std::size(uids)));
}

void CurrentTag(benchmark::State& state) {
    DICOMCURRENTTAG row;
    LookUp(state, kHeader, [&row](VDicomULong tag) { return VDicomTag::FindCurrent(tag, &row); });
}

void CurrentTagOfRange(benchmark::State& state) {
    DICOMCURRENTTAG row;
    LookUp(state, kRanges, [&row](VDicomULong tag) { return VDicomTag::FindCurrent(tag, &row); });
}

void CurrentKeyword(benchmark::State& state) {
    DICOMCURRENTTAG row;
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(VDicomTag::FindKeyword("PatientName", &row));
        benchmark::DoNotOptimize(VDicomTag::FindKeyword("ScheduledProcedureStepSequence", &row));
    }
    state.SetItemsProcessed(state.iterations() * 2);
}

void PrivateTag(benchmark::State& state) {
    static constexpr char creator[] = "SIEMENS CSA HEADER";
    DICOMCURRENTTAG row;
    LookUp(state, kUnknown, [&row](VDicomULong tag) {
        return VDicomTag::FindPrivate(creator, static_cast<VDicomULong>(std::strlen(creator)), tag, &row);
    });
}

void GenerateUID(benchmark::State& state) {
    char uid[65];
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(VDicomUID::Generate(uid));
}

void FillIODs(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state)
        VDicomIOD::Default();
    state.SetItemsProcessed(state.iterations() * VDicomIOD::m_InfoIOD.GetCount(nullptr, 0));
}

void FillAndEmptyIODs(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        VDicomIOD::Default();
        VDicomIOD::Reset();
    }
    VDicomIOD::Default();
}

void WalkIODs(benchmark::State& state) {
    std::int64_t nodes = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (DICOMIOD* node = VDicomIOD::GetFirst(nullptr, 0); node != nullptr; node = VDicomIOD::GetNext(node, 0))
            ++nodes;
    }
    state.SetItemsProcessed(nodes);
}

void Class(benchmark::State& state) {
    constexpr VDicomULong classes[] = {0, 1, 45, 71, 111, 4711};
    LookUp(state, classes, VDicomIOD::FindClass);
}

void Module(benchmark::State& state) {
    constexpr VDicomULong modules[] = {0, 1, 3, 17, 184, 4711};
    LookUp(state, modules, [](VDicomULong module) { return VDicomIOD::FindModule(1, module); });
}

void LoadContextGroups(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        VDicomContextGroup::Load(nullptr);
        VDicomContextGroup::Reset();
    }
}

void ContextGroup(benchmark::State& state) {
    VDicomContextGroup::Load(nullptr);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(VDicomContextGroup::Find("CID 7453"));
        benchmark::DoNotOptimize(VDicomContextGroup::Find("cid 4711"));
    }
    state.SetItemsProcessed(state.iterations() * 2);
    VDicomContextGroup::Reset();
}

void CodedConcept(benchmark::State& state) {
    VDicomContextGroup::Load("CID 4");
    DICOMCONTEXTGROUP* group = VDicomContextGroup::GetFirst();
    const DICOMCODEDCONCEPT* last = VDicomContextGroup::GetLastCodedConcept(group);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(
            VDicomContextGroup::FindCodedConcept(group, last->pszCodingSchemeDesignator, last->pszCodeValue));
    state.SetItemsProcessed(state.iterations());
    VDicomContextGroup::Reset();
}

BENCHMARK(FillTables)->Unit(benchmark::kMicrosecond);
BENCHMARK(FillAndEmptyTables)->Unit(benchmark::kMicrosecond);
BENCHMARK(TagOfImageHeader);
BENCHMARK(TagOfImageHeader)->Threads(2);
BENCHMARK(TagOfRange);
BENCHMARK(TagUnknown);
BENCHMARK(TagOfImageHeaderByWalk);
BENCHMARK(VR);
BENCHMARK(UID);
BENCHMARK(CurrentTag);
BENCHMARK(CurrentTagOfRange);
BENCHMARK(CurrentKeyword);
BENCHMARK(PrivateTag);
BENCHMARK(GenerateUID);
BENCHMARK(FillIODs)->Unit(benchmark::kMicrosecond);
BENCHMARK(FillAndEmptyIODs)->Unit(benchmark::kMicrosecond);
BENCHMARK(WalkIODs)->Unit(benchmark::kMicrosecond);
BENCHMARK(Class);
BENCHMARK(Module);
BENCHMARK(Module)->Threads(2);
BENCHMARK(LoadContextGroups)->Unit(benchmark::kMicrosecond);
BENCHMARK(ContextGroup);
BENCHMARK(CodedConcept);

} // namespace

// Association PDUs: encoded, decoded, answered.
#include "VDicomAssociatePolicy.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

// One context, as for a verification, or every SOP class of the table (over 100 contexts).
void Fill(VDicomAssociate& request, std::int64_t contexts) {
    if (contexts > 1) {
        request.Default();
        return;
    }
    request.AddPresentation(1, 0, "1.2.840.10008.1.1");
    request.AddTransfer(1, "1.2.840.10008.1.2");
}

std::string Encoded(const VDicomAssociate& associate) {
    VDicomULong size = 0;
    associate.GetBinary(nullptr, &size);
    std::string bytes(size, '\0');
    associate.GetBinary(bytes.data(), &size);
    return bytes;
}

void EncodeAssociate(benchmark::State& state) {
    VDicomAssociate request(1);
    Fill(request, state.range(0));
    std::string bytes = Encoded(request);
    for ([[maybe_unused]] auto _ : state) {
        VDicomULong size = 0;
        request.GetBinary(nullptr, &size);
        benchmark::DoNotOptimize(request.GetBinary(bytes.data(), &size));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void DecodeAssociate(benchmark::State& state) {
    VDicomAssociate request(1);
    Fill(request, state.range(0));
    const std::string bytes = Encoded(request);
    const auto size = static_cast<VDicomULong>(bytes.size());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(request.SetBinaryStrict(bytes.data(), &size, nullptr));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void AnswerAssociate(benchmark::State& state) {
    VDicomAssociate request(1);
    Fill(request, state.range(0));
    VDicomAssociatePolicy policy;
    policy.AddAbstract(nullptr);
    policy.AddTransfer(nullptr, "1.2.840.10008.1.2.1");
    policy.AddTransfer(nullptr, "1.2.840.10008.1.2");
    VDicomAssociate accept(0);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(policy.Answer(request, accept, nullptr));
}

BENCHMARK(EncodeAssociate)->Arg(1)->Arg(128)->Unit(benchmark::kMicrosecond);
BENCHMARK(DecodeAssociate)->Arg(1)->Arg(128)->Unit(benchmark::kMicrosecond);
BENCHMARK(AnswerAssociate)->Arg(1)->Arg(128)->Unit(benchmark::kMicrosecond);

} // namespace

// What the client adds to a call of its stub: each plain overload beside the same call made without
// the client, on a sign service that does next to nothing.

#include <benchmark/benchmark.h>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/support/TrivialSSRpc.h"

namespace {

using k4cmn::Provided;
using k4cmn::ScopedProvider;

const std::string kSign = "Main Street North";

void PlainGetPhotocellStatus(benchmark::State& state) {
    k4test::TrivialSSRpc rpc;
    const ScopedProvider<K4SSRpc> provider(rpc);
    CK4CmnSS client;
    std::uint32_t status = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(client.GetPhotocellStatus(kSign, &status));
        benchmark::ClobberMemory();
    }
}

void DirectGetPhotocellStatus(benchmark::State& state) {
    k4test::TrivialSSRpc rpc;
    const ScopedProvider<K4SSRpc> provider(rpc);
    std::uint32_t status = 0;
    for (auto _ : state) {
        K4SSRpc& service = Provided<K4SSRpc>::Current();
        benchmark::DoNotOptimize(service.k4ssGetPhotocell(kSign.c_str(), &status));
        benchmark::ClobberMemory();
    }
}

void PlainSetDimming(benchmark::State& state) {
    k4test::TrivialSSRpc rpc;
    const ScopedProvider<K4SSRpc> provider(rpc);
    CK4CmnSS client;
    std::int32_t level = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(client.SetDimming(kSign, K4_SIGN_DIM_MANUAL, ++level & 0xFF));
        benchmark::ClobberMemory();
    }
}

void DirectSetDimming(benchmark::State& state) {
    k4test::TrivialSSRpc rpc;
    const ScopedProvider<K4SSRpc> provider(rpc);
    std::int32_t level = 0;
    for (auto _ : state) {
        K4SSRpc& service = Provided<K4SSRpc>::Current();
        benchmark::DoNotOptimize(
            service.k4ssSetDimming(kSign.c_str(), K4_SIGN_DIM_MANUAL, ++level & 0xFF));
        benchmark::ClobberMemory();
    }
}

}  // namespace

BENCHMARK(PlainGetPhotocellStatus)->Name("plain_overload/GetPhotocellStatus");
BENCHMARK(DirectGetPhotocellStatus)->Name("direct_stub/GetPhotocellStatus");
BENCHMARK(PlainSetDimming)->Name("plain_overload/SetDimming");
BENCHMARK(DirectSetDimming)->Name("direct_stub/SetDimming");

BENCHMARK_MAIN();

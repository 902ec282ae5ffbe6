// What the client adds to a call of its stub where a real service stands behind it: plain overloads
// beside the same calls made without the client, on the embedded sign service.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <cstdint>
#include <string>

#include "bench/BenchSuite.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/clients/contracts/K4SSRpc.h"

namespace {

const std::string kSign = "Main Board";

K4SSRpc& Service() {
    return k4cmn::Provided<K4SSRpc>::Current();
}

void PlainGetPhotocellStatus(benchmark::State& state) {
    CK4CmnSS client;
    client.ConnectService("Local");
    std::uint32_t status = 0;
    for (auto _ : state) {
        if (!client.GetPhotocellStatus(kSign, &status))
            state.SkipWithError("failed");
    }
}

void DirectGetPhotocellStatus(benchmark::State& state) {
    Service().k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr);
    std::uint32_t status = 0;
    for (auto _ : state) {
        if (Service().k4ssGetPhotocell(kSign.c_str(), &status) != 0)
            state.SkipWithError("failed");
    }
}

void PlainGetChangeFlag(benchmark::State& state) {
    CK4CmnSS client;
    client.ConnectService("Local");
    std::uint32_t flag = 0;
    for (auto _ : state) {
        if (!client.GetChangeFlag(kSign, &flag))
            state.SkipWithError("failed");
    }
}

void DirectGetChangeFlag(benchmark::State& state) {
    Service().k4ssConnectSignAsUser(".", nullptr, nullptr, nullptr);
    std::uint32_t flag = 0;
    for (auto _ : state) {
        if (Service().k4ssGetChangeFlag(kSign.c_str(), &flag) != 0)
            state.SkipWithError("failed");
    }
}

BENCHMARK(PlainGetPhotocellStatus)->Name("plain_overload/embedded/GetPhotocellStatus");
BENCHMARK(DirectGetPhotocellStatus)->Name("direct_stub/embedded/GetPhotocellStatus");
BENCHMARK(PlainGetChangeFlag)->Name("plain_overload/embedded/GetChangeFlag");
BENCHMARK(DirectGetChangeFlag)->Name("direct_stub/embedded/GetChangeFlag");

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const k4bench::BenchSuite suite;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

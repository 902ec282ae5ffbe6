// The way of a notification and of a poll: a signal to another thread and back over named events,
// beside the same over pipes, and the client's change flag beside its stub on the embedded service.

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>
#include <QCoreApplication>

#include <cstdint>
#include <memory>
#include <thread>

#include "bench/BenchSuite.h"
#include "k4cmndlg/clients/CK4CmnRS.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "k4cmndlg/frame/contracts/NamedEvent.h"

namespace {

using k4cmn::NamedEvent;

constexpr std::uint32_t kPatience = 60'000;

K4rsRpc& Service() {
    return k4cmn::Provided<K4rsRpc>::Current();
}

std::unique_ptr<NamedEvent> Open(const char* name) {
    return k4cmn::Provided<k4cmn::NamedEvents>::Current().CreateOrOpen(name);
}

/// Waits for a signal and takes it away. @return false if none came, or the party was given up.
bool Take(NamedEvent& event) {
    const bool isSignalled = event.WaitFor(kPatience) == NamedEvent::Wait::Signalled;
    event.Reset();
    return isSignalled;
}

void EventRoundTrip(benchmark::State& state) {
    const auto there = Open("There");
    const auto hear = Open("There");
    const auto back = Open("Back");
    const auto answer = Open("Back");
    std::thread echo([&] {
        while (Take(*hear))
            answer->Set();
    });
    for (auto _ : state) {
        there->Set();
        if (!Take(*back))
            state.SkipWithError("no answer");
    }
    hear->Abandon();
    echo.join();
}

void PipeRoundTrip(benchmark::State& state) {
    int there[2];
    int back[2];
    if (pipe2(there, O_CLOEXEC) != 0 || pipe2(back, O_CLOEXEC) != 0)
        return state.SkipWithError("no pipe");
    std::thread echo([&] {
        char byte = 0;
        while (read(there[0], &byte, 1) == 1 && write(back[1], &byte, 1) == 1) {
        }
    });
    char byte = 0;
    for (auto _ : state) {
        if (write(there[1], &byte, 1) != 1 || read(back[0], &byte, 1) != 1)
            state.SkipWithError("no answer");
    }
    close(there[1]);
    echo.join();
    for (const int end : {there[0], back[0], back[1]})
        close(end);
}

void ClientGetChangeFlag(benchmark::State& state) {
    CK4CmnRS client;
    std::uint32_t flag = 0;
    for (auto _ : state) {
        if (!client.GetChangeFlag(&flag, 750))
            state.SkipWithError("failed");
    }
}

void DirectGetChangeFlag(benchmark::State& state) {
    Service().k4rsConnect(".");
    std::uint32_t flag = 0;
    for (auto _ : state) {
        if (Service().k4rsGetChangeFlag(&flag) != 0)
            state.SkipWithError("failed");
    }
}

}  // namespace

BENCHMARK(EventRoundTrip)->Name("round_trip/event")->UseRealTime();
BENCHMARK(PipeRoundTrip)->Name("round_trip/pipe")->UseRealTime();
BENCHMARK(ClientGetChangeFlag)->Name("client/remote/GetChangeFlag");
BENCHMARK(DirectGetChangeFlag)->Name("direct_stub/remote/GetChangeFlag");

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const k4bench::BenchSuite suite;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "bench/FileStore.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filesel/FileTree.h"

namespace {

using k4bench::kPlace;
using k4bench::TheStore;

k4cmn::FileRows Filled(std::int64_t count) {
    TheStore(count);
    k4cmn::FileRows rows;
    rows.Fill(kPlace, "K4400 Seq", 4, k4cmn::LastModifiedFilter(-1, 0));
    return rows;
}

void FillList(benchmark::State& state) {
    TheStore(state.range(0));  // not to be measured
    std::size_t count = 0;
    for ([[maybe_unused]] auto round : state)
        count = Filled(state.range(0)).Rows().size();
    state.counters["rows"] = static_cast<double>(count);
}

std::vector<std::string> Texts(std::int64_t count, int column) {
    const k4cmn::FileRows rows = Filled(count);
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < rows.Rows().size(); ++row)
        texts.push_back(rows.Text(row, column));
    return texts;
}

/// A sort of the list itself, with the texts of the column.
void SortBy(benchmark::State& state, int column) {
    k4cmn::FileRows rows = Filled(state.range(0));
    bool ascending = true;
    for ([[maybe_unused]] auto round : state) {
        rows.Sort(column, ascending);
        ascending = !ascending;
    }
}

/// One stable sort of the texts of a column, as they are.
void BareSort(benchmark::State& state, int column) {
    const std::vector<std::string> texts = Texts(state.range(0), column);
    for ([[maybe_unused]] auto round : state) {
        std::vector<std::string> sorted = texts;
        std::stable_sort(sorted.begin(), sorted.end(), std::greater<>());
        benchmark::DoNotOptimize(sorted.data());
    }
}

void OpenServer(benchmark::State& state) {
    TheStore(state.range(0));
    k4cmn::FileTree tree;
    k4cmn::FileTreeItem* const server = tree.AddServerItem(0, "B:");
    tree.AddAllSignTypeItems(*server);
    for ([[maybe_unused]] auto round : state)
        tree.Expand(*server);
    state.counters["sign types"] = static_cast<double>(server->Children().size());
}

/// The least that opening a server has to do: read the entries.
void BareSignTypes(benchmark::State& state) {
    const k4bench::FileStore& store = TheStore(state.range(0));
    for ([[maybe_unused]] auto round : state)
        benchmark::DoNotOptimize(k4bench::SortedNames(store.SignTypes()).data());
}

constexpr std::int64_t kFiles = 100000;

void Register() {
    constexpr const char* columns[] = {"name", "size", "type", "date"};
    for (int column = 0; column < k4cmn::FileRows::kColumnCount; ++column) {
        benchmark::RegisterBenchmark((std::string("sort_by_") + columns[column]).c_str(), SortBy,
                                     column)
            ->Arg(kFiles)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((std::string("bare_sort_by_") + columns[column]).c_str(),
                                     BareSort, column)
            ->Arg(kFiles)
            ->Unit(benchmark::kMillisecond);
    }
}

BENCHMARK(FillList)->Name("fill_file_list")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(k4bench::BareWalk)->Name("bare_walk")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenServer)->Name("open_server")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BareSignTypes)->Name("bare_sign_types")->Arg(kFiles)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    Register();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

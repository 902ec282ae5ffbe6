// The results of a search of 100,000 files: filling the list, sorting it, and for how long the
// window doesn't answer, beside bare sorts of the same texts and the time that a person doesn't
// notice.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/search/FoundListWidget.h"
#include "k4cmndlg/search/FoundRows.h"

namespace {

using k4cmn::FoundFileRow;
using k4cmn::FoundListWidget;
using k4cmn::FoundRows;
using Batches = std::vector<std::vector<FoundFileRow>>;
using Time = std::chrono::steady_clock;

constexpr std::int64_t kFiles = 100'000;
constexpr int kLibraries = 100;

double SecondsSince(Time::time_point begin) {
    return std::chrono::duration<double>(Time::now() - begin).count();
}

/// Does all that waits in the event loop, the painting too.
void Settle() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

/// What a search finds in a hundred libraries, one after the other, in no order.
Batches Found(std::int64_t count) {
    Batches batches(kLibraries);
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t mixed = i * 7919 % count;
        const auto library = static_cast<std::size_t>(i * kLibraries / count);
        const std::string name = "Sequence " + std::to_string(mixed);
        batches[library].push_back({name,
                                    "B:\\16x112.RGB16M.LED.Sign\\Library " +
                                        std::to_string(library) + ".Lib\\" + name + ".SQ4",
                                    static_cast<std::uint64_t>(mixed * 317 % 9'000'000),
                                    1'700'000'000 + mixed * 7907 % 80'000'000,
                                    static_cast<int>(mixed % 4)});
    }
    return batches;
}

FoundRows Filled(std::int64_t count) {
    FoundRows rows;
    for (std::vector<FoundFileRow>& batch : Found(count))
        rows.Add(std::move(batch));
    rows.Paths();  // what was added is in its place now
    return rows;
}

// Sorting ----------------------------------------------------------------------------------------

/// A click on a column's heading.
void SortBy(benchmark::State& state, int column) {
    FoundRows rows = Filled(state.range(0));
    for ([[maybe_unused]] auto round : state)
        rows.SortColumn(column);
}

/// One stable sort of the texts of a column, as they are.
void BareSort(benchmark::State& state, int column) {
    const FoundRows rows = Filled(state.range(0));
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < rows.Count(); ++row)
        texts.push_back(rows.Text(row, column));
    for ([[maybe_unused]] auto round : state) {
        std::vector<std::string> sorted = texts;
        std::stable_sort(sorted.begin(), sorted.end(), std::greater<>());
        benchmark::DoNotOptimize(sorted.data());
    }
}

// The list on the screen -------------------------------------------------------------------------

class ShownList {
 public:
    ShownList() {
        list.SetRows(&rows);
        list.resize(700, 400);
        list.show();
        Settle();
    }
    void Fill(Batches batches) {
        for (std::vector<FoundFileRow>& batch : batches)
            rows.Add(std::move(batch));
        list.RowsChanged();
        Settle();
    }
    void Empty() {
        rows.Clear();
        list.RowsChanged();
        Settle();
    }
    QAbstractItemView& View() { return *list.findChild<k4cmn::FileReportView*>(); }
    void Press(int key, const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&View(), &event);
    }

    FoundRows rows;
    FoundListWidget list{nullptr};
};

/// From what a search hands over to the first rows on the screen.
void FillList(benchmark::State& state) {
    const Batches found = Found(state.range(0));
    ShownList shown;
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        shown.Empty();
        Batches batches = found;
        state.ResumeTiming();
        shown.Fill(std::move(batches));
    }
}

/// One stable sort of the names in the order in which they are found.
void BareSortOfFound(benchmark::State& state) {
    std::vector<std::string> names;
    for (const std::vector<FoundFileRow>& batch : Found(state.range(0))) {
        for (const FoundFileRow& row : batch)
            names.push_back(row.name);
    }
    for ([[maybe_unused]] auto round : state) {
        std::vector<std::string> sorted = names;
        std::stable_sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted.data());
    }
}

using Steps = std::vector<std::function<void(ShownList&)>>;

/// The longest of the turns of the event loop that steps take, each painted before the next one.
void LongestStall(benchmark::State& state, const Steps& steps) {
    ShownList shown;
    shown.Fill(Found(state.range(0)));
    for ([[maybe_unused]] auto round : state) {
        double longest = 0;
        for (const auto& step : steps) {
            const Time::time_point begin = Time::now();
            step(shown);
            Settle();
            longest = std::max(longest, SecondsSince(begin));
        }
        state.SetIterationTime(longest);
    }
}

void Scroll(ShownList& shown, double part) {
    for (QScrollBar* bar : {shown.View().verticalScrollBar(), shown.View().horizontalScrollBar()})
        bar->setValue(static_cast<int>(part * bar->maximum()));
}

const Steps kScrolling{
    [](ShownList& shown) { Scroll(shown, 0.3); },
    [](ShownList& shown) { Scroll(shown, 1.0); },
    [](ShownList& shown) { shown.Press(Qt::Key_PageUp); },
    [](ShownList& shown) { Scroll(shown, 0.0); },
};
const Steps kSelecting{
    [](ShownList& shown) { shown.Press(Qt::Key_Home); },
    [](ShownList& shown) { shown.Press(Qt::Key_Down); },
    [](ShownList& shown) { shown.Press(Qt::Key_End); },
    [](ShownList& shown) { shown.list.SelectRow(50'000); },
};
const Steps kFinding{
    [](ShownList& shown) {
        shown.list.SelectRow(0);
        shown.Press(Qt::Key_S, QStringLiteral("s"));
    },
    [](ShownList& shown) { shown.Press(Qt::Key_Z, QStringLiteral("z")); },
};

Steps Sorting(int column) {
    const auto click = [column](ShownList& shown) {
        shown.rows.SortColumn(column);
        shown.list.RowsChanged();
    };
    return {click, click};
}

/// The time that a person doesn't notice, as a baseline.
void FiftyMilliseconds(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

void Register() {
    const auto stall = [](const std::string& name, const Steps& steps) {
        benchmark::RegisterBenchmark(("stall/" + name).c_str(),
                                     [=](benchmark::State& state) { LongestStall(state, steps); })
            ->Arg(kFiles)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    stall("scroll", kScrolling);
    stall("select", kSelecting);
    stall("find", kFinding);
    constexpr const char* columns[] = {"name", "folder", "size", "type", "modified"};
    for (int column = 0; column < FoundRows::kColumnCount; ++column) {
        const std::string name = columns[column];
        stall("sort_by_" + name, Sorting(column));
        benchmark::RegisterBenchmark(("sort_by_" + name).c_str(), SortBy, column)
            ->Arg(kFiles)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("bare_sort_by_" + name).c_str(), BareSort, column)
            ->Arg(kFiles)
            ->Unit(benchmark::kMillisecond);
    }
}

BENCHMARK(FillList)->Name("fill_list")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BareSortOfFound)->Name("bare_sort_of_found")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(FiftyMilliseconds)->Name("50_ms")->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("FoundListBench"));
    Register();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

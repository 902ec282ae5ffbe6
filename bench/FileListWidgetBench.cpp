// The widgets of the file selection over a folder of 100,000 files: what a person waits for, and
// for how long the window doesn't answer, beside a bare walk and the toolkit's own file dialog.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <QTreeView>
#include <chrono>
#include <functional>
#include <thread>

#include "bench/FileStore.h"
#include "k4cmndlg/filelist/FileNamesView.h"
#include "k4cmndlg/filelist/FileReportView.h"
#include "k4cmndlg/filesel/FileListWidget.h"
#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filesel/FileTreeWidget.h"

namespace {

using k4bench::TheStore;
using k4cmn::FileListWidget;
using k4cmn::FileRows;
using Time = std::chrono::steady_clock;

constexpr std::int64_t kFiles = 100000;

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

/// A shown list with its rows.
class ShownList {
 public:
    explicit ShownList(std::int64_t count) {
        TheStore(count);
        list.SetImages(k4cmn::FileImages({"SQ4"}));
        list.SetRows(&rows);
        list.resize(600, 400);
        list.show();
        Settle();
    }
    void Fill() {
        rows.Fill(k4bench::kPlace, "K4400 Seq", 4, k4cmn::LastModifiedFilter(-1, 0));
        list.RowsChanged(true);
        Settle();
    }
    void Empty() {
        rows.Clear();
        list.RowsChanged(false);
        Settle();
    }
    QAbstractItemView& View() {
        if (list.ShowsDetails())
            return *list.findChild<k4cmn::FileReportView*>();
        return *list.findChild<k4cmn::FileNamesView*>();
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               const QString& text = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&View(), &event);
    }

    FileRows rows;
    FileListWidget list{nullptr};
};

void FillWidget(benchmark::State& state) {
    ShownList shown(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        shown.Fill();
        state.PauseTiming();
        shown.Empty();
        state.ResumeTiming();
    }
}

/// The longest of the turns of the event loop that steps take, each painted before the next one.
void LongestStall(benchmark::State& state, bool details,
                  const std::vector<std::function<void(ShownList&)>>& steps) {
    ShownList shown(state.range(0));
    shown.Fill();
    shown.list.ShowDetails(details);
    Settle();
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

const std::vector<std::function<void(ShownList&)>> kScrolling{
    [](ShownList& shown) { Scroll(shown, 0.3); },
    [](ShownList& shown) { Scroll(shown, 1.0); },
    [](ShownList& shown) { shown.Press(Qt::Key_PageUp); },
    [](ShownList& shown) { Scroll(shown, 0.0); },
};
const std::vector<std::function<void(ShownList&)>> kSelecting{
    [](ShownList& shown) { shown.Press(Qt::Key_Home); },
    [](ShownList& shown) { shown.Press(Qt::Key_Down); },
    [](ShownList& shown) { shown.Press(Qt::Key_End, Qt::ShiftModifier); },
    [](ShownList& shown) { shown.Press(Qt::Key_Home); },
    [](ShownList& shown) { shown.Press(Qt::Key_A, Qt::ControlModifier); },
    [](ShownList& shown) { shown.list.SelectRow(50000); },
};
const std::vector<std::function<void(ShownList&)>> kFinding{
    [](ShownList& shown) {
        shown.list.SelectRow(0);
        shown.Press(Qt::Key_S, Qt::NoModifier, QStringLiteral("s"));
    },
    [](ShownList& shown) { shown.Press(Qt::Key_Z, Qt::NoModifier, QStringLiteral("z")); },
};

std::vector<std::function<void(ShownList&)>> Sorting(int column) {
    const auto sort = [column](bool ascending) {
        return [column, ascending](ShownList& shown) {
            shown.rows.Sort(column, ascending);
            shown.list.RowsChanged(false);
        };
    };
    return {sort(false), sort(true)};
}

/// The time that a person doesn't notice, as a baseline.
void FiftyMilliseconds(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

/// Our own list for the same folder, from nothing to all rows painted.
void OpenOurs(benchmark::State& state) {
    for ([[maybe_unused]] auto round : state) {
        ShownList shown(state.range(0));
        shown.Fill();
        if (shown.rows.Rows().size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("rows are missing");
    }
}

/// The toolkit's dialog, until it shows as many rows.
void OpenToolkits(benchmark::State& state) {
    const QString folder = QString::fromStdString(TheStore(state.range(0)).Library().string());
    for ([[maybe_unused]] auto round : state) {
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setViewMode(QFileDialog::Detail);
        dialog.setFileMode(QFileDialog::ExistingFiles);
        dialog.setDirectory(folder);
        dialog.show();
        const auto* const view = dialog.findChild<QTreeView*>();
        const Time::time_point begin = Time::now();
        while (view->model()->rowCount(view->rootIndex()) < state.range(0)) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            if (SecondsSince(begin) > 120) {
                state.SkipWithError("it never shows all rows");
                return;
            }
        }
        Settle();
    }
}

/// A window of the selector with the real widgets, without fields.
class Window final : public k4cmn::FileSelectorView {
 public:
    explicit Window(k4cmn::FileSelector& selector) : m_selector(selector) {
        tree.SetImages(k4cmn::FileImages({"SQ4"}));
        list.SetRows(&selector.Rows());
        selector.SetView(*this);
        tree.SetTree(&selector.Tree());
        tree.show();
        list.show();
    }
    ~Window() override {
        m_selector.Tree().SetView(nullptr);
        tree.SetTree(nullptr);
        list.SetRows(nullptr);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool ReadControls(k4cmn::FileSelectorFields& fields) override {
        fields = {0, {}, k4cmn::kAnyTime};
        return true;
    }
    std::string FileNameText() override { return {}; }
    std::string FileTypesText() override { return "Sequences"; }
    std::vector<std::size_t> SelectedRows() override { return list.SelectedRows(); }
    void RowsChanged(bool withColumns) override { list.RowsChanged(withColumns); }
    void SelectRow(std::size_t row) override { list.SelectRow(row); }
    void EditRow(std::size_t row) override { list.EditRow(row); }
    void ShowFields(const k4cmn::FileSelectorFields&) override {}
    void ShowFileName(const std::string&) override {}
    void ShowFileTypes(const std::vector<std::string>&) override {}
    void ShowPath(const std::string&) override {}
    void ShowTitle(const std::string&) override {}
    void ShowFilter(bool) override {}
    void FileTaken() override {}
    void Wait(bool) override {}
    bool AskLibraryName(const std::string&, std::string&) override { return false; }
    void AboutToChange(const k4cmn::FileTreeItem& parent) override { tree.AboutToChange(parent); }
    void Changed(const k4cmn::FileTreeItem& parent) override { tree.Changed(parent); }
    void SelectionChanged() override { tree.SelectionChanged(); }
    void MarkChanged() override { tree.MarkChanged(); }
    const k4cmn::FileTreeItem* FirstVisible() const override { return tree.FirstVisible(); }

    k4cmn::FileTreeWidget tree{nullptr};
    FileListWidget list{nullptr};

 private:
    k4cmn::FileSelector& m_selector;
};

void RestorePlace(benchmark::State& state) {
    TheStore(state.range(0));
    k4cmn::FileSelector selector;
    Window window(selector);
    for ([[maybe_unused]] auto round : state) {
        selector.FillTreeListCtrls("B:", "1000x80.Mono1.LED", "Library 10", "");
        Settle();
    }
    if (!selector.Tree().Selected() || selector.Tree().Selected()->Text() != "Library 10")
        state.SkipWithError("the place isn't restored");
}

void ReadTwoFolders(benchmark::State& state) {
    const k4bench::FileStore& store = TheStore(state.range(0));
    for ([[maybe_unused]] auto round : state) {
        for (const auto& folder : {store.SignTypes(), store.SignTypes() / "1000x80.Mono1.LED.Sign"})
            benchmark::DoNotOptimize(k4bench::SortedNames(folder).data());
    }
}

void Register() {
    const auto stall = [](const char* name, bool details,
                          const std::vector<std::function<void(ShownList&)>>& steps) {
        benchmark::RegisterBenchmark(
            (std::string("stall/") + name + (details ? "/report" : "/names")).c_str(),
            [=](benchmark::State& state) { LongestStall(state, details, steps); })
            ->Arg(kFiles)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    for (const bool details : {true, false}) {
        stall("scroll", details, kScrolling);
        stall("select", details, kSelecting);
        stall("find", details, kFinding);
    }
    constexpr const char* columns[] = {"sort_by_name", "sort_by_size", "sort_by_type",
                                       "sort_by_date"};
    for (int column = 0; column < FileRows::kColumnCount; ++column)
        stall(columns[column], true, Sorting(column));
}

BENCHMARK(FillWidget)->Name("fill_widget")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(k4bench::BareWalk)->Name("bare_walk")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(FiftyMilliseconds)->Name("50_ms")->UseRealTime();
BENCHMARK(OpenOurs)->Name("open_ours")->Arg(kFiles)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenToolkits)
    ->Name("open_toolkits")
    ->Arg(kFiles)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RestorePlace)->Name("restore_place")->Arg(kFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadTwoFolders)->Name("read_two_folders")->Arg(kFiles)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("FileListWidgetBench"));
    Register();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

// Opening a dialog of the library on the embedded suite, from its constructor to the first paint of
// its window and back, beside an empty dialog of the toolkit of the same size.

#include <benchmark/benchmark.h>

#include <unistd.h>
#include <QApplication>
#include <QDialog>

#include "bench/BenchSuite.h"
#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"

namespace {

void Paint(QDialog& dialog) {
    dialog.show();
    benchmark::DoNotOptimize(dialog.grab());
    dialog.hide();
}

template <class Dialog>
void OpenDialog(benchmark::State& state) {
    for (auto _ : state) {
        Dialog dialog("Local", "Main Board", nullptr);
        dialog.Create();
        Paint(dialog);
        dialog.DestroyWindow();
    }
}

void OpenEmpty(benchmark::State& state) {
    CK4CmnDlgWindowControl sample("Local", "Main Board", nullptr);
    sample.Create();
    const QSize size = sample.sizeHint();
    sample.DestroyWindow();
    for (auto _ : state) {
        QDialog dialog;
        dialog.resize(size);
        Paint(dialog);
    }
}

BENCHMARK(OpenDialog<CK4CmnDlgDimmingCtrl>)->Name("open/Dimming");
BENCHMARK(OpenDialog<CK4CmnDlgWindowControl>)->Name("open/WindowControl");
BENCHMARK(OpenEmpty)->Name("open/EmptyDialog");

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const k4bench::BenchSuite suite;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

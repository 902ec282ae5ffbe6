#include "suite/ui/PrintDialogs.h"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QWidget>
#include <utility>

#include "k4cmndlg/frame/PlainPointer.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "suite/printing/PdfSurface.h"
#include "suite/ui/PrinterSurface.h"

namespace k4suite {

namespace {

/// Runs the dialog. @return whether a printer was chosen.
bool Ask(QPrinter& printer, QWidget* parent) {
    // Not on the stack: it is its parent's child, and the parent may go first.
    const QPointer<QPrintDialog> dialog(new QPrintDialog(&printer, parent));
    dialog->setOption(QAbstractPrintDialog::PrintSelection, false);
    const bool isChosen = dialog->exec() == QDialog::Accepted && dialog && printer.isValid();
    delete dialog;
    return isChosen;
}

std::unique_ptr<DocumentSurface> PdfOf(const QPrinter& printer) {
    auto surface =
        std::make_unique<PdfSurface>(k4cmn::FromQt(printer.outputFileName()), printer.pageLayout());
    if (printer.printRange() == QPrinter::PageRange)
        surface->OnlyPages(printer.fromPage(), printer.toPage());
    return surface;
}

}  // namespace

std::unique_ptr<k4cmn::PrintSurface> PrintDialogs::Choose(QWidget* parent) {
    const QPointer<QWidget> window(parent);
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!Ask(*printer, parent))
        return nullptr;
    const bool isFile = printer->outputFormat() == QPrinter::PdfFormat;
    const std::string target =
        k4cmn::FromQt(isFile ? printer->outputFileName() : printer->printerName());
    std::unique_ptr<DocumentSurface> surface =
        isFile ? PdfOf(*printer) : std::make_unique<PrinterSurface>(std::move(printer));
    surface->WhenItFails([window, target](const std::string& problem) {
        const k4cmn::PlainPointer pointer;
        k4cmn::WindowPrompt(window).Ask(
            k4cmn::PlainMessage("ERROR: Could not print to " + target + "\n" + problem));
    });
    return surface;
}

}  // namespace k4suite

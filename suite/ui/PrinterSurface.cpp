#include "suite/ui/PrinterSurface.h"

#include <QPrinter>
#include <utility>

#include "suite/printing/PaintDocument.h"

namespace k4suite {

PrinterSurface::PrinterSurface(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {}

PrinterSurface::~PrinterSurface() = default;

std::string PrinterSurface::Print(const PrintedDocument& document) {
    m_printer->setDocName(QString::fromStdString(document.name));
    if (PaintDocument(*m_printer, document) && m_printer->printerState() != QPrinter::Error)
        return {};
    return "The printer doesn't take the document.";
}

}  // namespace k4suite

#pragma once

#include <memory>

#include "suite/printing/DocumentSurface.h"

class QPrinter;

namespace k4suite {

/// A document on a printer of the system. The job begins when the document ends: one that is left
/// unfinished never reaches the printer. That it was printed means that the toolkit handed it over:
/// what the print scheduler makes of it then, the scheduler tells.
/// Threads: the user interface thread.
class PrinterSurface final : public DocumentSurface {
 public:
    explicit PrinterSurface(std::unique_ptr<QPrinter> printer);
    ~PrinterSurface() override;

 private:
    std::string Print(const PrintedDocument& document) override;

    std::unique_ptr<QPrinter> m_printer;
};

}  // namespace k4suite

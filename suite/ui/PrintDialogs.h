#pragma once

#include "k4cmndlg/filelist/contracts/Printing.h"

namespace k4suite {

/// Printing through the toolkit's print dialog: on a printer of the system, or to a PDF file, which
/// is what there is without any printer.
///
/// What a document that is left unfinished comes to: nothing; neither a job nor a file. Of a PDF
/// file only the chosen pages are made; a printer chooses them itself. A document that can't be
/// printed is told of in a message, with the words of the system.
/// Threads: the user interface thread.
class PrintDialogs final : public k4cmn::Printing {
 public:
    std::unique_ptr<k4cmn::PrintSurface> Choose(QWidget* parent) override;
};

}  // namespace k4suite

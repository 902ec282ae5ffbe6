#pragma once

#include <QString>
#include <memory>
#include <string>

#include "k4cmndlg/filelist/contracts/Printing.h"

namespace workbench {

/// For its life, what is printed goes into a PDF file, without a question.
class PrintsToFile final : public k4cmn::Printing {
 public:
    explicit PrintsToFile(std::string file);
    ~PrintsToFile() override;
    std::unique_ptr<k4cmn::PrintSurface> Choose(QWidget*) override;

 private:
    const std::string m_file;
    k4cmn::ScopedProvider<k4cmn::Printing> m_use;
};

/// The text of a PDF file, as another program reads it.
QString TextOfPdf(const std::string& file);

}  // namespace workbench

#pragma once

#include <string>

#include "apps/k4ctl/store/ListOptions.h"
#include "apps/k4ctl/store/StoreCommand.h"
#include "k4cmndlg/filesel/FileListReport.h"

namespace k4ctl {

/// `store report LIBRARY [--pdf OUT] [--force]`: the printed list of the files of a library, as
/// lines of text or as a PDF file, which is there whole or not at all.
class StoreReportCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool DrawsText() const override { return !m_pdf.empty(); }

 private:
    void Do(StoreSession& session) const override;
    bool PrintText(k4cmn::FileListReport& report, StoreSession& session) const;
    bool PrintPdf(k4cmn::FileListReport& report, StoreSession& session) const;

    std::string m_library;
    std::string m_type = "SQ4";
    ListOptions m_options;
    std::string m_pdf;  ///< empty: text
    bool m_force = false;
};

}  // namespace k4ctl

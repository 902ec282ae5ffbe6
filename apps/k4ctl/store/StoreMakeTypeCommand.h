#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/k4ctl/store/StoreCommand.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/signctl/SignFolderMaking.h"

namespace k4ctl {

/// `store mktype SERVER... --rows N --columns N --color NAME --pixel NAME [--palette]`: makes the
/// folder of a sign type with its library "Default" on servers of this system, as the dialog
/// "Create New Sign Folders" does.
class StoreMakeTypeCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;
    /// The sign type as the dialog's form; with failures in the answer where it can't be.
    k4cmn::SignFolderForm Form(StoreSession& session) const;
    std::vector<k4cmn::TickedServer> Servers(Answer& answer) const;

    std::vector<std::string> m_servers;
    std::uint32_t m_rows = 0;
    std::uint32_t m_columns = 0;
    tag_K4_SIGN_COLOR m_color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH m_pixel = K4_PIXEL_TECH_INCAND;
    bool m_isPalette = false;
};

}  // namespace k4ctl

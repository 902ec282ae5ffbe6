#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/signctl/SignFolderForm.h"

namespace k4cmn {

/// A row of the check list of servers.
struct TickedServer {
    std::string server;
    bool isTicked = false;
};

/// The servers of the local system, none ticked.
K4CMNCORE_EXPORT std::vector<TickedServer> LocalServers();

/// Makes the sign folder of a form on every ticked server, with its library "Default.Lib". An
/// ordinary folder gets its palette twin beside it, without a word if that fails.
/// @param prompt told of what can't be made, also because it is there already:
///        " Error Creating Folder: %s\n %s", " Error Creating Library: %s\n %s", with path and
///        error; and "No servers selected.".
/// @return whether the dialog is over: at least one server was ticked.
K4CMNCORE_EXPORT bool MakeSignFolders(const SignFolderForm& form,
                                      const std::vector<TickedServer>& servers, Prompt& prompt);

}  // namespace k4cmn

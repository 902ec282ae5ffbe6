#include "k4cmndlg/signctl/SignFolderMaking.h"

#include <utility>

#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/LastError.h"

namespace k4cmn {

namespace {

/// What a folder and its library couldn't be made for; empty if they were.
std::string MakeOne(const SignFolderForm& form, const std::string& server, int palette) {
    StoreAccess& store = Provided<StoreAccess>::Current();
    const std::string folder =
        server + "\\" +
        CK4Files().BuildSign(form.rows, form.columns, form.Color(), form.Pixel(), palette) +
        ".Sign";
    if (!store.MakeFolder(folder))
        return " Error Creating Folder: " + folder + "\n " + k4cmnGetLastErrorString();
    store.MarkReadOnly(folder);
    const std::string library = folder + "\\Default.Lib";
    if (!store.MakeFolder(library))
        return " Error Creating Library: " + library + "\n " + k4cmnGetLastErrorString();
    return {};
}

}  // namespace

std::vector<TickedServer> LocalServers() {
    std::vector<std::string> names;
    CK4Registry::GetRegistryServers(names);
    std::vector<TickedServer> servers;
    for (std::string& name : names)
        servers.push_back({std::move(name), false});
    return servers;
}

bool MakeSignFolders(const SignFolderForm& form, const std::vector<TickedServer>& servers,
                     Prompt& prompt) {
    bool isAnyTicked = false;
    for (const TickedServer& row : servers) {
        if (!row.isTicked || row.server.empty())
            continue;
        isAnyTicked = true;
        const std::string problem = MakeOne(form, row.server, form.IsPalette() ? 1 : 0);
        if (!problem.empty())
            prompt.Ask(PlainMessage(problem));
        if (!form.IsPalette())
            MakeOne(form, row.server, 1);
    }
    if (!isAnyTicked)
        prompt.Ask(PlainMessage("No servers selected."));
    return isAnyTicked;
}

}  // namespace k4cmn

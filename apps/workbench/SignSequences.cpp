#include "apps/workbench/SignSequences.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "apps/workbench/SignWatcher.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"

namespace workbench {

namespace {

bool IsStored(const std::string& path) {
    const std::string native = k4cmn::Provided<k4cmn::FilesProvider>::Current().NativePath(path);
    std::error_code ignored;
    return !native.empty() && std::filesystem::is_regular_file(native, ignored);
}

std::vector<std::string> Sorted(const std::string& pattern, int folders) {
    std::vector<std::string> names;
    CK4Files::FindFiles(names, pattern, folders);
    std::sort(names.begin(), names.end());
    return names;
}

std::string FirstSequenceIn(const std::string& typeFolder) {
    for (const std::string& library : Sorted(typeFolder + "\\*.Lib", 1)) {
        const std::string folder = typeFolder + "\\" + library;
        const std::vector<std::string> files = Sorted(folder + "\\*.SQ4", 0);
        if (!files.empty())
            return folder + "\\" + files.front();
    }
    return {};
}

}  // namespace

std::string SequenceOfSign(const std::string& service, const std::string& sign) {
    SignLook look;
    {
        const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
        CK4CmnSS client;
        std::string words;
        if (!client.ConnectService(service) || !LookAtSign(client, sign, look, words))
            return {};
    }
    if (IsStored(look.sequence))
        return look.sequence;
    const std::string type =
        CK4Files().BuildSign(look.rows, look.columns, look.color, look.pixel, 0);
    std::vector<std::string> servers;
    CK4Registry::GetRegistryServers(servers, &service);
    for (const std::string& server : servers) {
        std::string path = FirstSequenceIn(server + "\\" + type + ".Sign");
        if (!path.empty())
            return path;
    }
    return {};
}

}  // namespace workbench

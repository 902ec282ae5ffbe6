#include "k4cmndlg/filestore/FindNames.h"

#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"

namespace k4cmn {

int IsFileValid(std::string_view name, int wantFolders) {
    return !wantFolders || !name.starts_with('.');
}

int FindNames(std::vector<std::string>& list, const std::string& pattern, int wantFolders) {
    std::vector<std::string> names;
    CK4Files::FindFiles(names, pattern, wantFolders);
    std::erase_if(names, [&](const std::string& name) { return !IsFileValid(name, wantFolders); });
    if (names.empty())
        return 0;
    list = std::move(names);
    return 1;
}

std::vector<std::string> FolderNames(const std::string& pattern, std::string_view ending) {
    std::vector<std::string> names;
    FindNames(names, pattern, 1);
    for (std::string& name : names)
        name = WithoutLastCharacters(name, ending.size());
    return names;
}

}  // namespace k4cmn

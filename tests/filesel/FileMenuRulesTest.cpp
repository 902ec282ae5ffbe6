#include <gtest/gtest.h>

#include <cctype>
#include <map>

#include "k4cmndlg/filesel/FileMenu.h"

// The context menu over all combinations of what it depends on, against its rules carried out step
// by step, as a menu that is greyed and enabled entry by entry.

namespace {

using k4cmn::FileClipboard;
using k4cmn::FileCommand;
using k4cmn::FileMenuSituation;
using k4cmn::FileMenuState;
using Texts = std::vector<std::string>;

bool Same(const std::string& one, const std::string& other) {
    if (one.size() != other.size())
        return false;
    for (std::size_t i = 0; i < one.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(one[i])) !=
            std::tolower(static_cast<unsigned char>(other[i])))
            return false;
    }
    return true;
}

using Entries = std::map<std::string, bool>;

void Paste(const FileMenuSituation& now, Entries& menu) {
    const std::string& server = now.place.server;
    const std::string& signType = now.place.signType;
    const std::string& library = now.place.library;
    const FileClipboard& held = now.clipboard;
    bool& paste = menu["&Paste"];
    paste = false;
    if (server == "")
        return;
    const bool holdsFiles = held.sourcePath != "";
    if (holdsFiles) {
        if (signType == "")
            paste = true;
        else if (Same(signType, held.signType))
            paste = true;
        return;
    }
    if (held.server == "" || held.signType == "")
        return;
    if (signType != "" && !Same(signType, held.signType))
        return;
    if (held.library == "") {
        if (library == "")
            paste = true;
        return;
    }
    if (library == "")
        paste = true;
    else if (Same(library, held.library))
        paste = true;
}

Entries Rules(const FileMenuSituation& now) {
    Entries menu;
    for (const k4cmn::FileMenuEntry& entry : k4cmn::kFileMenu)
        menu[entry.text] = true;
    const std::string& extension = now.place.fileExtension;
    const std::string& signType = now.place.signType;

    Paste(now, menu);
    if (now.isRowSelected) {
        menu["&Copy"] = true;
        menu["Cu&t"] = true;
        menu["&Delete"] = true;
        menu["Re&name"] = true;
        menu["Pr&operties"] = Same(extension, "SQ4");
        menu["Pre&view"] = Same(extension, "SQ4") && now.hasPreviewEntry;
    } else {
        menu["&Delete"] = false;
        menu["Re&name"] = false;
        menu["Pre&view"] = false;
        menu["Pr&operties"] = false;
    }
    const bool isNotice = signType == "No";
    for (const char* entry :
         {"Cre&ate Library...", "&Remove Library", "Pr&int...", "Print &File List"})
        menu[entry] = !isNotice;
    if (now.place.server != "" && signType != "" && !isNotice) {
        menu["&Copy"] = true;
        menu["Cu&t"] = true;
    } else if (extension == "SC4" || extension == "DL4") {
        const bool isEnabled = now.place.server != "" && now.isRowSelected;
        menu["&Copy"] = isEnabled;
        menu["Cu&t"] = isEnabled;
    } else {
        menu["&Copy"] = false;
        menu["Cu&t"] = false;
    }
    return menu;
}

std::vector<FileClipboard> Clipboards() {
    std::vector<FileClipboard> all;
    for (const std::string& path : Texts{"", "X:\\"}) {
        for (const std::string& server : Texts{"", "X:"}) {
            for (const std::string& signType : Texts{"", "T", "t", "U", "No"}) {
                for (const std::string& library : Texts{"", "L", "l", "M"}) {
                    all.push_back({path, path.empty() ? Texts{} : Texts{"f.SQ4"}, server, signType,
                                   library, library == "l"});
                }
            }
        }
    }
    return all;
}

class FileMenuRules : public testing::TestWithParam<const char*> {};

TEST_P(FileMenuRules, HoldForEveryPlaceRowAndClipboard) {
    const std::vector<FileClipboard> clipboards = Clipboards();
    int combinations = 0;
    FileMenuSituation now;
    now.place.fileExtension = GetParam();
    for (const std::string& server : Texts{"", "S"}) {
        for (const std::string& signType : Texts{"", "No", "no", "T", "t", "U"}) {
            for (const std::string& library : Texts{"", "L", "l", "M"}) {
                for (const int flags : {0, 1, 2, 3}) {
                    for (const FileClipboard& clipboard : clipboards) {
                        now.place.server = server;
                        now.place.signType = signType;
                        now.place.library = library;
                        now.isRowSelected = (flags & 1) != 0;
                        now.hasPreviewEntry = (flags & 2) != 0;
                        now.clipboard = clipboard;
                        const Entries rules = Rules(now);
                        const FileMenuState state(now);
                        ++combinations;
                        for (const k4cmn::FileMenuEntry& entry : k4cmn::kFileMenu)
                            ASSERT_EQ(state.IsEnabled(entry.command), rules.at(entry.text))
                                << entry.text << " at " << server << "|" << signType << "|"
                                << library << " row " << now.isRowSelected << " preview "
                                << now.hasPreviewEntry << " clipboard " << clipboard.sourcePath
                                << "|" << clipboard.server << "|" << clipboard.signType << "|"
                                << clipboard.library;
                    }
                }
            }
        }
    }
    EXPECT_EQ(combinations, 2 * 6 * 4 * 4 * 80);
}

INSTANTIATE_TEST_SUITE_P(Extensions, FileMenuRules,
                         testing::Values("", "SQ4", "sq4", "SD4", "SC4", "sc4", "SEQ", "DL4", "SP4",
                                         "AVI"));

}  // namespace

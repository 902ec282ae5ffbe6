#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <set>

#include "tests/filesel/SelectorFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

/// Another process that does something again and again until the object goes.
class Disturber {
 public:
    template <class Work>
    explicit Disturber(const Work& work) : m_child(fork()) {
        if (m_child != 0)
            return;
        std::minstd_rand random{4400};
        for (;;)
            work(random);
    }
    ~Disturber() {
        kill(m_child, SIGKILL);
        waitpid(m_child, nullptr, 0);
    }
    Disturber(const Disturber&) = delete;
    Disturber& operator=(const Disturber&) = delete;

    bool IsThere() const { return m_child > 0; }

 private:
    const pid_t m_child;
};

class TreeStress : public k4test::SelectorFixture {
 protected:
    Texts Below(const FileTreeItem& item) const {
        Texts texts;
        for (const auto& child : item.Children())
            texts.push_back(child->Text());
        return texts;
    }
    /// What must hold of every item: its image says its level, and texts are UTF-8.
    void ExpectWhole(const FileTreeItem& item, int level = 0) const {
        for (const auto& child : item.Children()) {
            const bool isNotice = child->Image() == k4cmn::kNoticeImage;
            ASSERT_TRUE(isNotice || child->Image() == k4cmn::kServerImage + level) << child->Text();
            ASSERT_EQ(child->Parent(), level == 0 ? nullptr : &item);
            ASSERT_TRUE(!isNotice || item.Children().size() == 1) << child->Text();
            ExpectWhole(*child, level + 1);
        }
    }
    bool Holds(const FileTreeItem& item, const FileTreeItem* wanted) const {
        for (const auto& child : item.Children()) {
            if (child.get() == wanted || Holds(*child, wanted))
                return true;
        }
        return false;
    }
    void ExpectWhole() {
        const FileTree& tree = selector->Tree();
        ExpectWhole(tree.Root());
        ASSERT_TRUE(!tree.Selected() || Holds(tree.Root(), tree.Selected()));
    }
    /// Some item of the tree, below the root.
    FileTreeItem* SomeItem(std::minstd_rand& random) {
        FileTreeItem* found = nullptr;
        const FileTreeItem* above = &selector->Tree().Root();
        for (unsigned long depth = 1 + random() % 3; depth > 0 && !above->Children().empty();
             --depth) {
            found = above->Children()[random() % above->Children().size()].get();
            above = found;
        }
        return found;
    }
    /// What a person might do next.
    void DoSomething(std::minstd_rand& random) {
        FileTree& tree = selector->Tree();
        FileTreeItem* const item = SomeItem(random);
        switch (random() % 9) {
            case 0:
            case 1:
                if (item)
                    tree.Expand(*item);
                break;
            case 2:
                if (item)
                    tree.Collapse(*item);
                break;
            case 3:
            case 4:
                tree.Select(item);
                break;
            case 5:
                selector->UpOneLevel();
                break;
            case 6:
                selector->ToggleSignFilter();
                break;
            case 7:
                view.typeIndex = static_cast<int>(random() % 7) - 1;
                selector->FileTypeChanged();
                break;
            default: {
                const FileLocation place = selector->Place();
                selector->FillTreeListCtrls("A:", "1.2.3", "L" + std::to_string(random() % 4),
                                            place.file);
                break;
            }
        }
    }
};

TEST_F(TreeStress, ThousandsOfSignTypesAreThereOnceAndInOrder) {
    Texts expected;
    for (int rows = 8; rows <= 64; rows += 8) {
        for (int columns = 16; columns <= 16 * 150; columns += 16) {
            const std::string type =
                std::to_string(rows) + "x" + std::to_string(columns) + ".Mono1.LED";
            fs::create_directories(home / ("drives/A/" + type + ".Sign"));
            fs::create_directories(home / ("drives/A/" + type + ".Palette.Sign"));
            expected.push_back(type);
        }
    }
    std::sort(expected.begin(), expected.end());
    Make();
    Open();
    FileTreeItem* const server = Server("A:");
    selector->Tree().Expand(*server);
    EXPECT_EQ(Below(*server), expected);
    selector->FillTreeListCtrls("A:", expected.back(), "none", "");
    EXPECT_TRUE(FileTree::FindSignType(*Server("A:"), expected.back())->IsExpanded());
}

TEST_F(TreeStress, NamesOfAnyKindAreShownAndLeadToTheirFiles) {
    const Texts odd = {
        "\u5927\u962a\u57ce.\u767d.\u5149",
        "\u0421\u0442\u0430\u0434\u0438\u043e\u043d.\u041a.\u041b",
        "\u0627\u0644\u0645\u0644\u0639\u0628.a.b",
        "\U0001F3DF.\U0001F4A1.x",
        "new\nline.b.c",
        "tab\there.b.c",
        "\"quoted\".'b'.`c`",
        "50%s%n.%d.c",
        "a*b?.[c].d",
        "..dots....",
        "-rf.b.c",
        "e\u0301.\u00c4\u00d6.\u00df",
        "#;:.,.+",
        std::string(200, 'x') + ".b.c",
    };
    for (const std::string& name : odd)
        home.Write("drives/A/" + name + ".Sign/" + name.substr(0, 20) + ".Lib/" +
                   name.substr(0, 20) + ".SQ4");
    // What isn't UTF-8 can't be named by anybody.
    fs::create_directories(home / "drives/A/\xFF\xFE.b.c.Sign");
    fs::create_directories(home / "drives/A/a.\xC3.c.Sign");
    Make();
    Open();
    selector->Tree().Expand(*Server("A:"));
    const Texts shown = Below(*Server("A:"));
    const std::set<std::string> wanted(odd.begin(), odd.end());
    // "..dots" begins with a dot, and so counts as hidden.
    EXPECT_EQ(std::set<std::string>(shown.begin(), shown.end()).size(), wanted.size() - 1);
    for (const std::string& name : odd) {
        if (name.starts_with('.'))
            continue;
        const std::string library = name.substr(0, 20);
        selector->FillTreeListCtrls("A:", name, library, library);
        ASSERT_NE(selector->Tree().Selected(), nullptr) << name;
        EXPECT_EQ(selector->Place().signType, name);
        EXPECT_THAT(Names(), ElementsAre(library)) << name;
    }
}

TEST_F(TreeStress, BlanksInASignTypeCutItAndNothingBreaks) {
    for (const char* name : {"a b.c.d", " x.y.z", "a.b.c ", "   .  .   "})
        home.Write("drives/A/" + std::string(name) + ".Sign/L.Lib/f.SQ4");
    Make();
    Open();
    selector->Tree().Expand(*Server("A:"));
    ASSERT_THAT(Below(*Server("A:")), ElementsAre("   .  .   ", " x.y.z", "a b.c.d", "a.b.c "));
    for (std::size_t i = 0; i < 4; ++i) {
        FileTreeItem& item = *Server("A:")->Children()[i];
        selector->Tree().Expand(item);
        EXPECT_THAT(Below(item), ElementsAre("No Libraries")) << item.Text();
        Select(item.Children()[0].get());
        EXPECT_THAT(Names(), ElementsAre());
        EXPECT_EQ(selector->Place().signType, item.Text().substr(0, item.Text().find(' ')));
    }
}

TEST_F(TreeStress, LinksInCirclesAreFollowedAsFarAsTheyAreOpened) {
    home.Write("drives/A/1.2.3.Sign/L.Lib/f.SQ4");
    fs::create_directory_symlink(".", home / "drives/A/4.5.6.Sign");
    fs::create_directory_symlink("..", home / "drives/A/1.2.3.Sign/Up.Lib");
    fs::create_directory_symlink("../1.2.3.Sign", home / "drives/A/1.2.3.Sign/Same.Lib");
    fs::create_symlink("7.8.9.Sign", home / "drives/A/7.8.9.Sign");
    fs::create_symlink("b.b.b.Sign", home / "drives/A/a.a.a.Sign");
    fs::create_symlink("a.a.a.Sign", home / "drives/A/b.b.b.Sign");
    fs::create_symlink("nowhere", home / "drives/A/c.c.c.Sign");
    fs::create_directory_symlink("A", home / "drives/C");
    ConfigureLocal({"A:", "C:"});
    Make();
    Open();
    for (const char* server : {"A:", "C:"}) {
        selector->Tree().Expand(*Server(server));
        ASSERT_THAT(Below(*Server(server)), ElementsAre("1.2.3", "4.5.6")) << server;
        FileTreeItem& type = *Server(server)->Children()[0];
        selector->Tree().Expand(type);
        ASSERT_THAT(Below(type), ElementsAre("L", "Same", "Up"));
        for (std::size_t i = 0; i < 3; ++i) {
            Select(type.Children()[i].get());
            EXPECT_EQ(Names().size(), i == 0 ? 1U : 0U);
        }
        FileTreeItem& circle = *Server(server)->Children()[1];
        selector->Tree().Expand(circle);
        EXPECT_THAT(Below(circle), ElementsAre("No Libraries"));
    }
}

TEST_F(TreeStress, FoldersThatCantBeReadAreEmpty) {
    for (const char* path :
         {"1.2.3.Sign/L.Lib/f.SQ4", "1.2.3.Sign/M.Lib/f.SQ4", "4.5.6.Sign/L.Lib/f.SQ4"})
        home.Write(std::string("drives/A/") + path);
    Make();
    Open();
    const k4test::OrdinaryUser user(home.Path());
    const auto forbid = [&](const std::string& path, fs::perms permissions) {
        fs::permissions(home / ("drives/A" + path), permissions);
    };
    forbid("/4.5.6.Sign", fs::perms::none);
    forbid("/1.2.3.Sign/L.Lib", fs::perms::none);
    forbid("/1.2.3.Sign/M.Lib", fs::perms::owner_read);
    Select(Library("A:", "1.2.3", "L"));
    EXPECT_THAT(Names(), ElementsAre());
    Select(Library("A:", "1.2.3", "M"));
    EXPECT_THAT(Names(), ElementsAre()) << "names without a status are skipped";
    FileTreeItem* const closed = SignType("A:", "4.5.6");
    selector->Tree().Expand(*closed);
    EXPECT_THAT(Below(*closed), ElementsAre("No Libraries"));
    forbid("", fs::perms::none);
    selector->Tree().Expand(*Server("A:"));
    EXPECT_THAT(Below(*Server("A:")), ElementsAre("No signs"));
    forbid("", fs::perms::owner_all);
    forbid("/4.5.6.Sign", fs::perms::owner_all);
    forbid("/1.2.3.Sign/L.Lib", fs::perms::owner_all);
    forbid("/1.2.3.Sign/M.Lib", fs::perms::owner_all);
}

TEST_F(TreeStress, FoldersThatVanishWhileTheyAreOpenLeaveTheirItemsUntilTheyAreReadAgain) {
    home.Write("drives/A/1.2.3.Sign/L.Lib/f.SQ4");
    Make();
    Open();
    Select(Library("A:", "1.2.3", "L"));
    EXPECT_THAT(Names(), ElementsAre("f"));
    fs::remove_all(home / "drives/A");
    EXPECT_EQ(selector->ShowFilesList(), 1);
    EXPECT_THAT(Names(), ElementsAre());
    EXPECT_EQ(view.path, "A:\\1.2.3.Sign\\L.Lib\\");
    FileTreeItem* const type = selector->Tree().Selected()->Parent();
    selector->Tree().Expand(*type);
    EXPECT_EQ(selector->Tree().Selected(), type) << "its library is gone";
    EXPECT_EQ(view.path, "A:\\1.2.3.Sign\\");
    EXPECT_THAT(Below(*type), ElementsAre("No Libraries"));
    selector->Tree().Expand(*Server("A:"));
    EXPECT_EQ(selector->Tree().Selected(), Server("A:"));
    EXPECT_EQ(view.path, "A:\\");
}

TEST_F(TreeStress, AProcessThatChangesTheStoreAllTheTimeBreaksNothing) {
    home.Write("drives/A/1.2.3.Sign/L0.Lib/f.SQ4");
    Make();
    Open();
    const Disturber other([drives = home / "drives"](std::minstd_rand& random) {
        std::error_code failed;
        const fs::path server = drives / (random() % 2 ? "A" : "B");
        const fs::path type = server / ("1.2." + std::to_string(random() % 5) + ".Sign");
        const fs::path library = type / ("L" + std::to_string(random() % 4) + ".Lib");
        switch (random() % 6) {
            case 0:
                fs::remove_all(type, failed);
                break;
            case 1:
                fs::rename(type, server / ("1.2." + std::to_string(random() % 5) + ".Sign"),
                           failed);
                break;
            case 2:
                fs::remove_all(random() % 8 ? library : server, failed);
                break;
            default:
                fs::create_directories(library, failed);
                fs::create_symlink("nowhere",
                                   library / ("f" + std::to_string(random() % 9) +
                                              (random() % 2 ? ".SQ4" : ".SD4")),
                                   failed);
                fs::create_directories(server / "x.SC4", failed);
                break;
        }
    });
    ASSERT_TRUE(other.IsThere());
    std::minstd_rand random{7};
    for (int step = 0; step < 1500 && !HasFailure(); ++step) {
        DoSomething(random);
        ExpectWhole();
    }
}

TEST_F(TreeStress, AProcessThatChangesTheSettingsAllTheTimeBreaksNothing) {
    MakeFolder("A:\\1.2.3.Sign\\L1.Lib");
    Make();
    Open();
    const Disturber other([place = home.Path()](std::minstd_rand& random) {
        k4suite::MachineSettings settings;
        settings.services = {{"Local", "", {}, {}}};
        if (random() % 4 == 0)
            settings.services[0].name = "North";
        for (unsigned long count = random() % 4; count > 0; --count)
            settings.services[0].servers.emplace_back(1, static_cast<char>('A' + random() % 3));
        for (std::string& server : settings.services[0].servers)
            server += ":";
        settings.services[0].signs = {Sign("S\n" + std::to_string(random() % 3), 8, 16,
                                           K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED)};
        k4suite::WriteMachineSettings(k4suite::DataHome(place), settings);
    });
    ASSERT_TRUE(other.IsThere());
    std::minstd_rand random{9};
    for (int step = 0; step < 300 && !HasFailure(); ++step) {
        DoSomething(random);
        ExpectWhole();
    }
}

}  // namespace

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <random>
#include <set>

#include "k4cmndlg/filesel/FilePaste.h"
#include "tests/filesel/SelectorFixture.h"

// The dialog over long lists, over names of every kind, and beside others who change the same
// libraries.

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;

std::string Folder(const std::string& server, const std::string& library) {
    return server + "\\" + kType + ".Sign\\" + library + ".Lib\\";
}

/// Writes a file of any name into a native folder.
void WriteRaw(const fs::path& folder, const std::string& name, const std::string& content) {
    const int file = open((folder.string() + "/" + name).c_str(),
                          O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0644);
    ASSERT_GE(file, 0) << name;
    ASSERT_EQ(write(file, content.data(), content.size()), static_cast<ssize_t>(content.size()));
    close(file);
}

class FileSelStress : public k4test::SelectorFixture {};

TEST_F(FileSelStress, AHundredThousandFilesAreARowEach) {
    constexpr int kCount = 100'000;
    const std::string lib = Folder("A:", "Default");
    MakeFolder(lib);
    const fs::path native = Native(lib);
    for (int i = 0; i < kCount; ++i) {
        const std::string number = std::to_string((i * 7919) % kCount);
        WriteRaw(native, (i % 2 ? "File " : "file ") + number + ".SQ4", std::string(i % 3, 'x'));
    }
    OpenAt({"A:", kType, "Default", "file 500", "SQ4"});
    ASSERT_EQ(Names().size(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(view.name, "file 500");
    const auto isInOrder = [](const std::string& one, const std::string& other) {
        return k4cmn::IsLessWithoutCase(one, other);
    };
    Texts names = Names();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), isInOrder));
    std::reverse(names.begin(), names.end());
    selector->ClickColumn(3);
    EXPECT_EQ(Names(), names) << "the first click on the date reverses";
    selector->ClickColumn(0);
    names = Names();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), isInOrder));
    for (const int column : {1, 2, 3, 3})
        selector->ClickColumn(column);
    EXPECT_EQ(Names().size(), names.size());

    view.selected.resize(static_cast<std::size_t>(kCount));
    for (std::size_t row = 0; row < view.selected.size(); ++row)
        view.selected[row] = row;
    selector->Cut();
    EXPECT_EQ(selector->Clipboard().files.size(), names.size());
    // Into its own folder: every name is looked at, and nothing happens.
    selector->Paste(prompt);
    EXPECT_EQ(Names().size(), names.size());
    EXPECT_EQ(selector->Clipboard(), k4cmn::FileClipboard());
}

/// Names that the store can say, without their extension.
const Texts kOddNames{"plain",
                      "with blank ",
                      " in front",
                      "a\nb",
                      "t\tab",
                      "q\"uo'te`",
                      "%s%n%d",
                      "-rf",
                      "--",
                      "a.b.SQ4",
                      "..",
                      "&amp;",
                      "$HOME",
                      "*",
                      "?",
                      "a:b",
                      "<>|",
                      "#%;",
                      "\x01\x7f",
                      "\u00e4\u00f6\u00fc",
                      "\u0416\u0443\u043a",
                      "\u4e2d\u6587",
                      "\u05e9\u05dc\u05d5\u05dd",
                      "\u202egnp",
                      "e\u0301",
                      "\U0001f600",
                      std::string(251, 'l'),
                      ""};

class OddNames : public FileSelStress {
 protected:
    void SetUp() override {
        FileSelStress::SetUp();
        for (const std::string& server : Texts{"A:", "B:"})
            MakeFolder(Folder(server, "Default"));
        for (const std::string& name : kOddNames)
            WriteRaw(Native(m_a), name + ".SQ4", name);
        // What no path of the store can say stays where it is, and harms nothing.
        for (const std::string& name : kUnsayable)
            WriteRaw(Native(m_a), name, name);
        MakeFile(Folder("A:", "M") + "three.SQ4", "three");
        OpenAt({"A:", kType, "Default", "", "SQ4"});
    }
    void SelectAll() { SelectRows(Names()); }
    void Expect(const std::string& folder) {
        for (const std::string& name : kOddNames) {
            std::error_code failure;
            const std::string path = Native(folder).string() + "/" + name + ".SQ4";
            EXPECT_EQ(fs::file_size(path, failure), name.size()) << path;
        }
    }
    void ExpectUnsayable() {
        for (const std::string& name : kUnsayable)
            EXPECT_TRUE(fs::exists(Native(m_a) / name)) << name;
        EXPECT_EQ(Content(Folder("A:", "M") + "three.SQ4"), "three");
    }

    const Texts kUnsayable{"\xff\xfe.SQ4", "cut \xc3.SQ4", "back\\slash.SQ4",
                           "..\\M.Lib\\three.SQ4"};
    const std::string m_a = Folder("A:", "Default");
    const std::string m_b = Folder("B:", "Default");
};

TEST_F(OddNames, AreListedAndMoveAsFiles) {
    EXPECT_EQ(Names().size(), kOddNames.size());
    for (const std::string& name : kOddNames)
        EXPECT_TRUE(selector->Rows().Find(name)) << name;
    SelectAll();
    selector->Cut();
    Select(Library("B:", kType, "Default"));
    selector->Paste(prompt);
    Expect(m_b);
    EXPECT_EQ(Names().size(), kOddNames.size());
    Select(Library("A:", kType, "Default"));
    EXPECT_THAT(Names(), ElementsAre());
    ExpectUnsayable();
}

TEST_F(OddNames, MoveAsALibrary) {
    view.selected.clear();
    selector->Cut();
    ASSERT_EQ(selector->Clipboard(), (k4cmn::FileClipboard{"", {}, "A:", kType, "Default", true}));
    Select(Library("B:", kType, "Default"));
    prompt.Expect("Error removing Library");
    selector->Paste(prompt);
    Expect(m_b);
    EXPECT_EQ(FilesIn(m_b).size(), kOddNames.size());
    ExpectUnsayable();
}

TEST_F(OddNames, AreRenamedAndDeleted) {
    int count = 0;
    for (const std::string& name : kOddNames) {
        view.name.clear();  // a long one would be refused
        selector->ShowFilesList();
        const auto row = selector->Rows().Find(name);
        ASSERT_TRUE(row) << name;
        view.selected = {*row};
        selector->GetListFile();
        const std::string text = "new " + std::to_string(count++);
        selector->Renamed(selector->Place(), text, prompt);
        EXPECT_EQ(Content(m_a + text + ".SQ4"), name);
    }
    view.name.clear();
    selector->ShowFilesList();
    view.selected.resize(Names().size());
    for (std::size_t i = 0; i < view.selected.size(); ++i)
        view.selected[i] = i;
    selector->Delete();
    EXPECT_THAT(Names(), ElementsAre());
    ExpectUnsayable();
}

// Beside others ----------------------------------------------------------------------------------

constexpr int kFiles = 60;

std::string WholeContent(const std::string& name) {
    std::string content;
    while (content.size() < 10'000)
        content += name + ",";
    return content;
}

/// Another process: moves the files between the libraries, and makes, rewrites and deletes others,
/// until it is told to stop.
[[noreturn]] void ChangeLibraries(const std::vector<fs::path>& folders, const fs::path& stop) {
    std::mt19937 random(99);
    const auto pick = [&](std::size_t count) { return random() % count; };
    while (access(stop.c_str(), F_OK) != 0) {
        const std::string from = folders[pick(folders.size())].string() + "/";
        const std::string to = folders[pick(folders.size())].string() + "/";
        const std::string name = "f" + std::to_string(pick(kFiles)) + ".SQ4";
        const std::string noise = "n" + std::to_string(pick(20)) + ".SQ4";
        switch (pick(4)) {
            case 0:
                renameat2(AT_FDCWD, (from + name).c_str(), AT_FDCWD, (to + name).c_str(),
                          RENAME_NOREPLACE);
                break;
            case 1:
                if (const int file = open((from + noise).c_str(), O_CREAT | O_WRONLY, 0644);
                    file >= 0) {
                    if (write(file, "noise", 5) != 5)
                        _exit(1);
                    close(file);
                }
                break;
            case 2:
                unlink((from + noise).c_str());
                break;
            default:
                usleep(200);
        }
    }
    _exit(0);
}

/// A person who agrees to everything.
class Agreeing final : public k4cmn::Prompt {
 public:
    std::map<std::string, int> messages;

    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override {
        ++messages[message.text];
        return k4cmn::MessageAnswer::Ok;
    }
};

/// With the answer Yes each name stands for one content, so that a file is replaced by itself
/// alone; with No each library has other contents under the same names.
class BesideOthers : public FileSelStress, public testing::WithParamInterface<k4suite::FileAnswer> {
 protected:
    void SetUp() override {
        FileSelStress::SetUp();
        for (const std::string& server : Texts{"A:", "B:"}) {
            for (const std::string& library : Texts{"L", "M"}) {
                MakeFolder(Folder(server, library));
                folders.push_back(Native(Folder(server, library)));
            }
        }
        ui.answer = GetParam();
        const bool hasOwnNames = ui.answer == k4suite::FileAnswer::Yes;
        for (int i = 0; i < kFiles; ++i) {
            const std::string name = "f" + std::to_string(hasOwnNames ? i : i / 4);
            WriteRaw(folders[static_cast<std::size_t>(i % 4)], name + ".SQ4",
                     WholeContent("f" + std::to_string(i)));
        }
        Remember({"A:", kType, "L", "", "SQ4"});
        for (auto& window : windows) {
            window.selector = std::make_unique<k4cmn::FileSelector>();
            window.view.selector = window.selector.get();
            window.selector->SetView(window.view);
            window.selector->Open(agreeing);
        }
    }

    struct Window {
        std::unique_ptr<k4cmn::FileSelector> selector;
        k4test::FakeSelectorView view;
    };

    std::size_t Pick(std::size_t count) { return random() % count; }

    void GoSomewhere(Window& window) {
        const std::string server = Pick(2) ? "A:" : "B:";
        window.selector->FillTreeListCtrls(server, kType, Pick(2) ? "L" : "M", "");
    }
    /// Selects some rows; all of them noise, or any.
    void SelectSome(Window& window, bool onlyNoise) {
        const auto& rows = window.selector->Rows().Rows();
        window.view.selected.clear();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (Pick(3) == 0 && (!onlyNoise || rows[row].name[0] == 'n'))
                window.view.selected.push_back(row);
        }
        window.selector->ListChanged();
    }
    void DoSomething(Window& window) {
        GoSomewhere(window);
        switch (Pick(5)) {
            case 0:
                SelectSome(window, true);
                window.selector->Delete();
                break;
            case 1: {
                SelectSome(window, false);
                const std::string text = "r" + std::to_string(renamed++);
                window.selector->Renamed(window.selector->Place(), text, agreeing);
                break;
            }
            default:
                SelectSome(window, false);
                Pick(4) ? window.selector->Cut() : window.selector->Copy();
                GoSomewhere(window);
                if (window.selector->Clipboard().HasFiles())
                    window.selector->Paste(agreeing);
        }
    }
    /// How often each content is there; fails for one that is in pieces.
    std::map<std::string, int> Contents() {
        std::map<std::string, int> contents;
        for (const fs::path& folder : folders) {
            for (const auto& entry : fs::directory_iterator(folder)) {
                const std::string content =
                    home.Read(entry.path().lexically_relative(home.Path()).string());
                const std::string name = content.substr(0, content.find(','));
                ++contents[name];
                const bool isWhole = content == WholeContent(name) || content == "noise";
                EXPECT_TRUE(isWhole || content.empty()) << entry.path() << " is in pieces";
                EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
            }
        }
        return contents;
    }
    void ExpectEveryFile() {
        std::map<std::string, int> contents = Contents();
        for (int i = 0; i < kFiles; ++i)
            EXPECT_GT(contents["f" + std::to_string(i)], 0) << i << " is lost";
    }

    std::vector<fs::path> folders;
    Window windows[2];
    Agreeing agreeing;
    std::mt19937 random{5};
    int renamed = 0;
};

TEST_P(BesideOthers, NoFileIsLost) {
    const fs::path stop = home / "stop";
    const pid_t other = fork();
    ASSERT_GE(other, 0);
    if (other == 0)
        ChangeLibraries(folders, stop);

    // While one window copies, things are done in the other one too.
    bool isInside = false;
    std::size_t current = 0;
    ui.onProgress = [&] {
        if (isInside || Pick(20) != 0)
            return;
        isInside = true;
        DoSomething(windows[1 - current]);
        isInside = false;
    };
    for (int round = 0; round < 100; ++round) {
        current = Pick(2);
        DoSomething(windows[current]);
    }
    home.Write("stop", "");
    int status = -1;
    ASSERT_EQ(waitpid(other, &status, 0), other);
    EXPECT_EQ(status, 0);
    ui.onProgress = nullptr;

    ExpectEveryFile();
    for (const auto& [text, count] : agreeing.messages)
        EXPECT_TRUE(text == "Paste failed" || text == "Rename failed") << text << " " << count;
    // All is quiet now: what is listed is what is there.
    for (auto& window : windows) {
        GoSomewhere(window);
        EXPECT_EQ(window.selector->Rows().Rows().size(),
                  FilesIn(Folder(window.selector->Place().server, window.selector->Place().library))
                      .size());
    }
}

INSTANTIATE_TEST_SUITE_P(Answers, BesideOthers,
                         testing::Values(k4suite::FileAnswer::Yes, k4suite::FileAnswer::No));

}  // namespace

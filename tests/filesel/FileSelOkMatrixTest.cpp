#include <gtest/gtest.h>

#include <map>

#include "tests/filesel/SelectorFixture.h"
#include "tests/support/RecordingShell.h"

// OK over every mode, every state of the fields and of the disk, and every answer: the result, the
// selected files, what is kept, what is asked and whether the dialog stays.

namespace {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4cmn::SelectorEnd;
using Texts = std::vector<std::string>;

const std::string kType = k4test::kType;
const std::string kSign = "A:\\" + kType + ".Sign";
const std::string kLib = kSign + "\\Default.Lib";
const FileLocation kBefore{"before", "type", "library", "file", "SQ4"};

enum class At { Library, SignType, Server, GoneServer, Nothing };

struct Situation {
    const char* name;
    At at;
    const char* typed;
    Texts rows;          ///< selected ones, whose first is overtyped by `typed`
    const char* file;    ///< the path in all modes; null: as in `folder`
    const char* folder;  ///< the path in mode 4 where `file` is null, else there is none
    bool isThere;        ///< whether that path exists
    bool isKept;         ///< whether the place is written to the registry
    bool hasFile;        ///< whether a name is left without its trailing blanks
};

const std::string kOne = kLib + "\\one.SQ4";
const std::string kOther = kLib + "\\other.SQ4";

const Situation kSituations[] = {
    // clang-format off
    // name                  at              typed      rows            file            folder         there  kept   file
    {"Existing",             At::Library,    "one",     {},             kOne.c_str(),   nullptr,       true,  true,  true},
    {"ExistingInOtherCase",  At::Library,    "ONE",     {},             nullptr,        nullptr,       true,  true,  true},
    {"TrailingBlanks",       At::Library,    "one \t",  {},             kOne.c_str(),   nullptr,       true,  true,  true},
    {"ExistingWithRows",     At::Library,    "one",     {"one", "two"}, kOne.c_str(),   nullptr,       true,  true,  true},
    {"Missing",              At::Library,    "other",   {},             kOther.c_str(), nullptr,       false, true,  true},
    {"MissingWithRows",      At::Library,    "other",   {"one", "two"}, kOther.c_str(), nullptr,       false, true,  true},
    {"OnlyHyphens",          At::Library,    "---",     {},             "",             nullptr,       false, true,  true},
    {"NothingOfTheSet",      At::Library,    "\u00e9_", {},             "",             nullptr,       false, true,  true},
    {"Empty",                At::Library,    "",        {},             nullptr,        kLib.c_str(),  true,  false, false},
    {"Blanks",               At::Library,    "  ",      {},             nullptr,        kLib.c_str(),  true,  false, false},
    {"NameAtASignType",      At::SignType,   "one",     {},             nullptr,        kSign.c_str(), true,  false, true},
    {"EmptyAtASignType",     At::SignType,   "",        {},             nullptr,        kSign.c_str(), true,  false, false},
    {"NameAtAServer",        At::Server,     "one",     {},             nullptr,        "A:",          true,  false, true},
    {"EmptyAtAServer",       At::Server,     "",        {},             nullptr,        "A:",          true,  false, false},
    {"NameAtAGoneServer",    At::GoneServer, "one",     {},             nullptr,        "B:",          false, false, true},
    {"EmptyAtAGoneServer",   At::GoneServer, "",        {},             nullptr,        "B:",          false, false, false},
    {"BlanksAtAGoneServer",  At::GoneServer, " \t ",    {},             nullptr,        "B:",          false, false, false},
    {"NameAtNothing",        At::Nothing,    "one",     {},             nullptr,        "",            false, false, true},
    {"EmptyAtNothing",       At::Nothing,    "",        {},             nullptr,        "",            false, false, false},
    // clang-format on
};

enum class Asks { Nothing, Replace, Create, Opens };

struct Outcome {
    Asks asks = Asks::Nothing;
    SelectorEnd end = SelectorEnd::Ok;
    std::string result;
    Texts files;
};

/// What is to happen once it is known which path OK means, and whether there is such a file.
Outcome Expected(int mode, const std::string& path, const Situation& now, bool isThere,
                 MessageAnswer answer) {
    if (isThere && (mode == 1 || mode == 2)) {
        switch (answer) {
            case MessageAnswer::Yes:
                return {Asks::Replace, SelectorEnd::Ok, path, {}};
            case MessageAnswer::No:
                return {Asks::Replace, SelectorEnd::Stay, path, {}};
            default:
                return {Asks::Replace, SelectorEnd::Ok, "", {}};
        }
    }
    if (isThere && mode == 3)
        return {Asks::Opens, SelectorEnd::Stay, path, {}};
    if (isThere) {
        Texts files{path};
        for (const std::string& row : now.rows) {
            if (row != "one")  // that is the path itself
                files.push_back(kLib + "\\" + row + ".SQ4");
        }
        return {Asks::Nothing, SelectorEnd::Ok, path, files};
    }
    if (mode == 1 || mode == 2 || mode == 3 || (mode == 4 && !now.hasFile))
        return {Asks::Nothing, SelectorEnd::Ok, path, {}};
    switch (answer) {
        case MessageAnswer::Yes:
            return {Asks::Create, SelectorEnd::Ok, path, {path}};
        case MessageAnswer::No:
            return {Asks::Create, SelectorEnd::Stay, path, {}};
        default:
            return {Asks::Create, SelectorEnd::Ok, "", {""}};
    }
}

/// Keeps the user's texts in memory, since so many places are kept here.
class MemoryRegistry final : public k4cmn::RegistryProvider {
 public:
    explicit MemoryRegistry(k4cmn::RegistryProvider& machine) : m_machine(machine) {}

    std::map<std::string, std::string> texts;

    void Keep(const FileLocation& place) {
        for (const k4cmn::FileLocationField& field : k4cmn::kFileLocationFields)
            texts[field.key] = place.*field.field;
    }
    FileLocation Kept() {
        FileLocation place;
        for (const k4cmn::FileLocationField& field : k4cmn::kFileLocationFields)
            place.*field.field = texts[field.key];
        return place;
    }

    std::unique_ptr<k4cmn::RegistryKey> OpenUserKey(const std::string& key,
                                                    const std::string& subkey, int) override {
        EXPECT_EQ(key + "|" + subkey, "File Locations|Previous Selection");
        return std::make_unique<Key>(texts);
    }
    std::string BuildKey(const std::string& key, const std::string& subkey) override {
        return m_machine.BuildKey(key, subkey);
    }
    int GetServers(Texts& servers, const std::string& service, const std::string& entry) override {
        return m_machine.GetServers(servers, service, entry);
    }
    int GetServices(Texts& services, const std::string& entry) override {
        return m_machine.GetServices(services, entry);
    }
    int GetLocalSigns(Texts& signs) override { return m_machine.GetLocalSigns(signs); }
    int GetSignSettings(const std::string& sign, k4cmn::SignSettings& settings) override {
        return m_machine.GetSignSettings(sign, settings);
    }
    int GetDataPath(std::string& path) override { return m_machine.GetDataPath(path); }
    int GetExePath(std::string& path) override { return m_machine.GetExePath(path); }
    int SetPreviewOptions(const std::string&, const k4cmn::PreviewOptions&) override { return 0; }

 private:
    class Key final : public k4cmn::RegistryKey {
     public:
        explicit Key(std::map<std::string, std::string>& texts) : m_texts(texts) {}

        int GetString(const std::string& name, std::string* text) override {
            *text = m_texts[name];
            return 1;
        }
        int SetString(const std::string& name, const std::string& text) override {
            m_texts[name] = text;
            return 1;
        }
        int GetDword(const std::string&, std::uint32_t*) override { return 0; }
        int SetDword(const std::string&, std::uint32_t) override { return 0; }
        int Subkeys(Texts&) override { return 0; }

     private:
        std::map<std::string, std::string>& m_texts;
    };

    k4cmn::RegistryProvider& m_machine;
};

class FileSelOkMatrix : public k4test::SelectorFixture,
                        public testing::WithParamInterface<Situation> {
 protected:
    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"one", "two"})
            MakeFile(kLib + "\\" + name + ".SQ4");
    }

    /// Opens in a mode at the library; then the registry keeps kBefore.
    void OpenIn(int mode) {
        std::filesystem::create_directories(home / "drives/B");
        memory.Keep({"A:", kType, "Default", "", "SQ4"});
        Make().SetMode(static_cast<tag_K4_FILE_MODE>(mode));
        Open();
        memory.Keep(kBefore);
    }
    void Arrange(int mode) {
        const Situation& now = GetParam();
        OpenIn(mode);
        if (now.at == At::SignType)
            Select(SignType("A:", kType));
        else if (now.at == At::Server)
            Select(Server("A:"));
        else if (now.at == At::GoneServer)
            Select(Server("B:"));
        else if (now.at == At::Nothing)
            selector->Tree().Select(nullptr);
        if (now.at == At::GoneServer)
            std::filesystem::remove_all(home / "drives/B");
        if (!now.rows.empty())
            SelectRows(now.rows);
        view.name = now.typed;
    }

    /// The path that OK means in a mode; empty for none.
    static std::string Path(int mode) {
        const Situation& now = GetParam();
        if (now.file)
            return now.file;
        if (now.at == At::Library && now.isKept)
            return kLib + "\\" + now.typed + ".SQ4";
        return mode == 4 ? now.folder : "";
    }

    k4test::RecordingShell recording;
    MemoryRegistry memory{registry};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useMemory{memory};
};

TEST_P(FileSelOkMatrix, DoesInEveryModeWithEveryAnswerWhatItShould) {
    const Situation& now = GetParam();
    const k4cmn::ScopedProvider<k4cmn::Shell> use(recording);
    for (const int mode : {-1, 0, 1, 2, 3, 4, 5, 99}) {
        for (const auto answer : {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel}) {
            SCOPED_TRACE("mode " + std::to_string(mode) + " answer " +
                         std::to_string(static_cast<int>(answer)));
            Arrange(mode);
            recording.calls.clear();
            const std::string path = Path(mode);
            const Outcome expected =
                Expected(mode, path, now, now.isThere && !path.empty(), answer);
            if (expected.asks == Asks::Replace)
                prompt.ExpectQuestion(
                    path +
                        "\nFile already exists.\nPlease verify that the path and file name are "
                        "correct.\nYes, File is valid \nNo, File is not valid \nCancel, Cancel "
                        "this operation",
                    MessageButtons::YesNoCancel, answer);
            if (expected.asks == Asks::Create)
                prompt.ExpectQuestion(path + "\nFile not found.\nDo you want to create a new file?",
                                      MessageButtons::YesNoCancel, answer);

            EXPECT_EQ(selector->PressOk(prompt), expected.end);
            EXPECT_EQ(prompt.Pending(), 0u);
            EXPECT_EQ(selector->Result(), expected.result);
            EXPECT_EQ(selector->SelectedFiles(), expected.files);
            EXPECT_EQ(recording.calls,
                      expected.asks == Asks::Opens ? Texts{"open " + path + " 5"} : Texts{});
            FileLocation kept = kBefore;
            if (now.isKept)
                kept = {"A:", kType, "Default", k4cmn::WithoutTrailingSpace(now.typed), "SQ4"};
            EXPECT_EQ(memory.Kept(), kept);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Situations, FileSelOkMatrix, testing::ValuesIn(kSituations),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

TEST_F(FileSelOkMatrix, AForbiddenCharacterChangesNothingInAnyMode) {
    for (const int mode : {-1, 0, 1, 2, 3, 4, 5}) {
        OpenIn(mode);
        view.name = "one?";
        prompt.Expect(k4cmn::InvalidFileNameMessage());
        EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Stay);
        EXPECT_EQ(selector->Result(), "");
        EXPECT_EQ(selector->SelectedFiles(), Texts{});
        EXPECT_EQ(memory.Kept(), kBefore);
    }
}

TEST_F(FileSelOkMatrix, WithoutAFileTypeOnlyAFolderCanBePicked) {
    for (const int mode : {0, 1, 2, 3, 4}) {
        for (const char* typed : {"one", "", "  "}) {
            SCOPED_TRACE(std::string(typed) + " in mode " + std::to_string(mode));
            OpenIn(mode);
            view.typeIndex = -1;
            view.name = typed;
            if (mode == 0)
                prompt.ExpectQuestion("\nFile not found.\nDo you want to create a new file?",
                                      MessageButtons::YesNoCancel, MessageAnswer::No);
            EXPECT_EQ(selector->PressOk(prompt), mode == 0 ? SelectorEnd::Stay : SelectorEnd::Ok);
            EXPECT_EQ(selector->Result(), mode == 4 ? kLib : "");
            EXPECT_EQ(selector->SelectedFiles(), mode == 4 ? Texts{kLib} : Texts{});
            EXPECT_EQ(memory.Kept(), kBefore);
        }
    }
    // The folder has gone: without a name nothing is asked, be the name empty or blank.
    for (const char* typed : {"", " \t"}) {
        OpenIn(K4_FILE_PICK);
        Select(Server("B:"));
        std::filesystem::remove_all(home / "drives/B");
        view.typeIndex = -1;
        view.name = typed;
        EXPECT_EQ(selector->PressOk(prompt), SelectorEnd::Ok);
        EXPECT_EQ(selector->Result(), "B:");
        EXPECT_EQ(selector->SelectedFiles(), Texts{});
    }
}

}  // namespace

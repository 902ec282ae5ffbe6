#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "suite/platform/FreedesktopShell.h"
#include "suite/platform/SilentFileOperationUi.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// The dialog's window as plain values, with the fields' checks of the real one.
class FakeSelectorView final : public k4cmn::FileSelectorView {
 public:
    // What a person does.
    int typeIndex = 0;
    int lastModified = -1;
    std::string name;
    std::vector<std::size_t> selected;
    std::deque<std::pair<bool, std::string>> libraryNames;  ///< answers of "Create Library"

    // What is shown.
    std::vector<std::string> types{"Sequences",   "Schedules",      "Scripts",
                                   "K3300 Seq's", "DownLoad files", "Palette files"};
    std::string path;
    std::string title = "Select File";
    bool filter = false;
    int filled = 0;   ///< how often rows with columns came
    int cleared = 0;  ///< how often rows came without
    int taken = 0;
    int edited = -1;
    int refused = 0;  ///< how often a field failed its check
    std::string waits;
    std::vector<std::string> libraryQuestions;  ///< "FOLDER|NAME" of each "Create Library"
    k4cmn::FileSelector* selector = nullptr;    ///< told of changes of the selected rows

    bool ReadControls(k4cmn::FileSelectorFields& fields) override {
        if (!k4cmn::IsFileNameShortEnough(name)) {
            ++refused;
            return false;
        }
        fields = {typeIndex, name, lastModified};
        return true;
    }
    std::string FileNameText() override { return name; }
    std::string FileTypesText() override {
        return typeIndex < 0 ? std::string() : types.at(static_cast<std::size_t>(typeIndex));
    }
    std::vector<std::size_t> SelectedRows() override { return selected; }
    void RowsChanged(bool withColumns) override {
        ++(withColumns ? filled : cleared);
        // A sort leaves the selection at its positions.
        const std::size_t count = selector ? selector->Rows().Rows().size() : 0;
        if (std::exchange(m_count, count) != count)
            selected.clear();
    }
    void SelectRow(std::size_t row) override {
        selected = {row};
        if (selector)
            selector->ListChanged();
    }
    void EditRow(std::size_t row) override { edited = static_cast<int>(row); }
    void ShowFields(const k4cmn::FileSelectorFields& fields) override {
        const auto count = static_cast<int>(types.size());
        typeIndex = fields.fileTypeIndex < count ? fields.fileTypeIndex : -1;
        lastModified = fields.lastModifiedIndex;
        name = fields.fileName;
    }
    void ShowFileName(const std::string& text) override { name = text; }
    void ShowFileTypes(const std::vector<std::string>& names) override { types = names; }
    void ShowPath(const std::string& text) override { path = text; }
    void ShowTitle(const std::string& text) override { title = text; }
    void ShowFilter(bool isOn) override { filter = isOn; }
    void FileTaken() override { ++taken; }
    void Wait(bool wait) override { waits += wait ? "<" : ">"; }
    bool AskLibraryName(const std::string& signFolder, std::string& text) override {
        libraryQuestions.push_back(signFolder + "|" + text);
        if (libraryNames.empty())
            return false;
        const auto [isOk, typed] = libraryNames.front();
        libraryNames.pop_front();
        if (!typed.empty())
            text = typed;
        return isOk;
    }
    void AboutToChange(const k4cmn::FileTreeItem&) override {}
    void Changed(const k4cmn::FileTreeItem&) override {}
    void SelectionChanged() override {}

 private:
    std::size_t m_count = 0;  ///< of the rows that are shown
};

/// A file selector over a real store with the drives A: and B:, a real shell whose questions are
/// answered Yes, and a clock that stands at 31 July 2026, 14:05 UTC.
class SelectorFixture : public StoreFixture {
 protected:
    static constexpr std::int64_t kNow = 1'785'506'709;

    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"A:", "B:"});
        MakeFolder("A:\\");
        MakeFolder("B:\\");
        clock.Set(k4cmn::Clock::TimePoint(std::chrono::seconds(kNow)));
    }

    /// Keeps a place in the registry, as an earlier dialog did.
    void Remember(const FileLocation& place) {
        const auto key = registry.OpenUserKey("File Locations", "Previous Selection", 1);
        ASSERT_TRUE(key);
        for (const k4cmn::FileLocationField& field : k4cmn::kFileLocationFields)
            ASSERT_EQ(key->SetString(field.key, place.*field.field), 1);
    }
    FileLocation Remembered() {
        FileLocation place;
        if (const auto key = registry.OpenUserKey("File Locations", "Previous Selection", 0)) {
            for (const k4cmn::FileLocationField& field : k4cmn::kFileLocationFields)
                key->GetString(field.key, &(place.*field.field));
        }
        return place;
    }

    /// Makes a selector; it is opened by Open().
    k4cmn::FileSelector& Make(const char* path = nullptr) {
        selector = std::make_unique<k4cmn::FileSelector>(path);
        view = FakeSelectorView();
        view.selector = selector.get();
        selector->SetView(view);
        return *selector;
    }
    void Open() { selector->Open(prompt); }
    /// Makes one that stands at a place, in the default type and a mode.
    void OpenAt(const FileLocation& place, tag_K4_FILE_MODE mode = K4_FILE_OPEN) {
        Remember(place);
        Make().SetMode(mode);
        Open();
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const k4cmn::FileRow& row : selector->Rows().Rows())
            names.push_back(row.name);
        return names;
    }
    /// The row of a name, selected.
    void SelectRows(const std::vector<std::string>& names) {
        view.selected.clear();
        for (const std::string& name : names) {
            const auto row = selector->Rows().Find(name);
            ASSERT_TRUE(row) << name;
            view.selected.push_back(*row);
        }
        std::sort(view.selected.begin(), view.selected.end());
        selector->ListChanged();
    }
    k4cmn::FileTreeItem* Server(const std::string& server) {
        return selector->Tree().FindServer(server);
    }
    k4cmn::FileTreeItem* SignType(const std::string& server, const std::string& type) {
        selector->Tree().Expand(*Server(server));
        return k4cmn::FileTree::FindSignType(*Server(server), type);
    }
    k4cmn::FileTreeItem* Library(const std::string& server, const std::string& type,
                                 const std::string& library) {
        k4cmn::FileTreeItem* const item = SignType(server, type);
        selector->Tree().Expand(*item);
        return k4cmn::FileTree::FindLibrary(*item, library);
    }
    void Select(k4cmn::FileTreeItem* item) {
        ASSERT_NE(item, nullptr);
        selector->Tree().Select(item);
    }
    /// The files of a folder of the store, sorted.
    std::vector<std::string> FilesIn(const std::string& folder) {
        std::vector<std::string> names;
        files.FindFiles(names, folder + "\\*.*", 0);
        std::sort(names.begin(), names.end());
        return names;
    }

    /// Answers Yes to everything, and may cancel.
    class Ui final : public k4suite::FileOperationUi {
     public:
        k4suite::FileAnswer answer = k4suite::FileAnswer::Yes;
        int cancelAfter = -1;              ///< how many progress reports go by; -1: all
        std::function<void()> onProgress;  ///< what happens in another window meanwhile
        std::function<void()> onEnd;       ///< what happens there when an operation is over
        std::vector<std::string> questions;

        k4suite::FileAnswer Confirm(const k4suite::FileQuestion& question) override {
            questions.push_back(question.text);
            return answer;
        }
        void Begin(const std::string&) override {}
        bool Progress(std::uint64_t, std::uint64_t, const std::string&) override {
            if (onProgress)
                onProgress();
            return cancelAfter < 0 || cancelAfter-- > 0;
        }
        void End() override {
            if (onEnd)
                onEnd();
        }
    };

    ScopedTimeZone zone{"UTC0"};
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
    Ui ui;
    k4suite::FreedesktopShell shell{
        ui,
        [this](const std::string& path) { return files.NativePath(path); },
        {},
        [this](const std::string&) { return home.Path().string(); }};
    k4cmn::ScopedProvider<k4cmn::Shell> useShell{shell};
    ScriptedPrompt prompt;
    FakeSelectorView view;
    std::unique_ptr<k4cmn::FileSelector> selector;
};

}  // namespace k4test

#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/search/SearchEngine.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// Rows in the order of their adding.
class AddedRows final : public k4cmn::SearchSink {
 public:
    std::vector<std::string> Paths() const override {
        std::vector<std::string> paths;
        for (const auto& row : rows)
            paths.push_back(row.path);
        return paths;
    }
    void Clear() override {
        ++cleared;
        rows.clear();
    }
    void Add(std::vector<k4cmn::FoundFileRow> added) override {
        std::move(added.begin(), added.end(), std::back_inserter(rows));
    }

    std::vector<k4cmn::FoundFileRow> rows;
    int cleared = 0;
};

/// Nothing stands behind a contract for the life of the object.
template <class Contract>
class NothingInstalled {
 public:
    NothingInstalled() : m_previous(k4cmn::Provided<Contract>::Install(nullptr)) {}
    ~NothingInstalled() { k4cmn::Provided<Contract>::Install(m_previous); }
    NothingInstalled(const NothingInstalled&) = delete;
    NothingInstalled& operator=(const NothingInstalled&) = delete;

 private:
    Contract* m_previous;
};

/// A store with two servers, a driven clock, and a list of results.
class SearchFixture : public StoreFixture {
 protected:
    static constexpr std::int64_t kNow = 1'800'000'000;  ///< 15 January 2027, 08:00 UTC

    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"A:", "B:"});
        criteria.place = {"A:", "", ""};
    }

    static std::string Folder(const std::string& server, const std::string& type,
                              const std::string& library) {
        return k4cmn::LibraryFolder(server, type, library);
    }
    /// A file of the library "Default" of the first sign type on "A:".
    static std::string InDefault(const std::string& file) {
        return Folder("A:", kType, "Default") + file;
    }
    /// Makes a sequence of one dark frame.
    void MakeSequence(const std::string& path, const std::string& keywords) {
        const std::filesystem::path native = Native(path);
        std::filesystem::create_directories(native.parent_path());
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.keywords = keywords;
        k4suite::SequenceWriter writer(native.string(), facts);
        const std::vector<std::uint8_t> dark(static_cast<std::size_t>(
            k4cmn::BytesOfFrame(facts.rows, facts.columns, K4_SIGN_COLOR_MONO1)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 500, dark));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    /// Makes a file of a size.
    void MakeSized(const std::string& path, std::uint64_t bytes) {
        MakeFile(path, "");
        std::filesystem::resize_file(Native(path), bytes);
    }
    /// The rows of the last search.
    void List(const std::vector<std::string>& paths) {
        sink.rows.clear();
        for (const std::string& path : paths)
            sink.rows.push_back({"a name", path, 1, 2, 3});
    }

    void Find(k4cmn::SearchMode mode) { k4cmn::SearchEngine(criteria, mode, sink, prompt).Find(); }
    /// The paths that a new search finds, sorted.
    std::vector<std::string> New() {
        Find(k4cmn::SearchMode::New);
        return SortedPaths();
    }
    /// The paths that are left of the rows, in their order.
    std::vector<std::string> Previous() {
        Find(k4cmn::SearchMode::Previous);
        return sink.Paths();
    }
    std::vector<std::string> SortedPaths() const {
        std::vector<std::string> paths = sink.Paths();
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    void ExpectCantOpen(const std::string& path) {
        prompt.Expect({"Error opening Sequence: \n" + path,
                       {},
                       k4cmn::MessageButtons::Ok,
                       k4cmn::MessageIcon::Stop});
    }

    ScopedTimeZone zone{"UTC0"};
    DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
    k4suite::RiffSequenceLibrary sequences{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences{sequences};
    k4cmn::SearchCriteria criteria;
    AddedRows sink;
    ScriptedPrompt prompt;
};

}  // namespace k4test

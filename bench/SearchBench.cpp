// The search for files over 100,000 sequences in 100 libraries on 4 servers, beside GNU find and
// grep over the same folders, and narrowing beside a new search.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "k4cmndlg/frame/contracts/Clock.h"
#include "k4cmndlg/search/FoundRows.h"
#include "k4cmndlg/search/SearchEngine.h"
#include "suite/access/FolderAccess.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/MachineSettings.h"
#include "suite/store/FolderFiles.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FoundRows;
using k4cmn::SearchCriteria;
using k4cmn::SearchEngine;
using k4cmn::SearchMode;

constexpr std::int64_t kFiles = 100'000;
constexpr std::int64_t kNow = 1'800'000'000;
constexpr std::int64_t kDay = 86400;
constexpr char kCommonWord[] = "clearance";  // in every tenth file

class FixedClock final : public k4cmn::Clock {
 public:
    TimePoint Now() override { return TimePoint(std::chrono::seconds(kNow)); }
};

/// Nobody, who is asked nothing.
class NoPrompt final : public k4cmn::Prompt {
 public:
    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override {
        std::fprintf(stderr, "unexpected message: %s\n", message.text.c_str());
        std::abort();
    }
};

/// The drives "A:" to "D:" with 5 sign types of 5 libraries of 1,000 sequences each, with keywords,
/// of different sizes and times; installed for the life of the object.
class SearchStore {
 public:
    SearchStore() {
        k4suite::MachineSettings settings;
        settings.services = {{"Local", "", {"A:", "B:", "C:", "D:"}, {}}};
        k4suite::WriteMachineSettings(Home(), settings);
        for (std::int64_t library = 0; library < kLibraries; ++library)
            FillLibrary(library);
    }
    ~SearchStore() {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    SearchStore(const SearchStore&) = delete;
    SearchStore& operator=(const SearchStore&) = delete;

    std::string Drives() const { return (m_folder / "drives").string(); }

 private:
    static constexpr std::int64_t kLibraries = 100;
    static constexpr std::int64_t kFilesOfALibrary = kFiles / kLibraries;

    static std::string NewFolder() {
        std::string folder = (fs::temp_directory_path() / "k4bench-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        return folder;
    }
    k4suite::DataHome Home() const { return k4suite::DataHome(m_folder); }

    /// The bytes of a sequence.
    std::string Sequence(const std::string& keywords, int frames) const {
        const fs::path path = m_folder / "pattern.SQ4";
        k4suite::SequenceFacts facts;
        facts.rows = 16;
        facts.columns = 80;
        facts.color = K4_SIGN_COLOR_RGB16M;
        facts.keywords = keywords;
        k4suite::SequenceWriter writer(path.string(), facts);
        const std::vector<std::uint8_t> dark(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(facts.rows, facts.columns, facts.color)));
        for (int i = 0; i < frames; ++i)
            writer.AddGraphic(k4cmn::kGraphicFrame, 500, dark);
        if (!writer.Finish())
            std::abort();
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void FillLibrary(std::int64_t library) const {
        const fs::path folder = m_folder / "drives" / std::string(1, "ABCD"[library % 4]) /
                                (std::to_string(8 + library / 4 % 5 * 8) + "x80.RGB16M.LED.Sign") /
                                ("Library " + std::to_string(library / 20) + ".Lib");
        fs::create_directories(folder);
        const std::string common = "summer; sale; " + std::string(kCommonWord) + "; ";
        const std::string contents[] = {Sequence("summer; sale; store; ", 4),
                                        Sequence("winter; store; opening; ", 6),
                                        Sequence(common, 4), Sequence(common, 6)};
        for (std::int64_t i = 0; i < kFilesOfALibrary; ++i) {
            const std::int64_t number = library * kFilesOfALibrary + i;
            const bool isCommon = number % 10 == 0;
            MakeFile(folder / ("Sequence " + std::to_string(number * 7919 % kFiles) + ".SQ4"),
                     contents[(isCommon ? 2 : 0) + number / 10 % 2], number);
        }
    }
    static void MakeFile(const fs::path& path, const std::string& content, std::int64_t number) {
        const int file = creat(path.c_str(), 0600);
        const std::int64_t time = kNow - number * 5557 % (400 * kDay);
        const timespec times[2] = {{time, 0}, {time, 0}};
        if (file < 0 ||
            write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size()) ||
            futimens(file, times) != 0)
            std::abort();
        close(file);
    }

    const fs::path m_folder = NewFolder();
    FixedClock m_clock;
    k4suite::FolderFiles m_files{Home()};
    k4suite::FolderAccess m_access{Home()};
    k4suite::IniRegistry m_registry{Home()};
    k4suite::RiffSequenceLibrary m_sequences{
        [this](const std::string& path) { return m_files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::Clock> m_useClock{m_clock};
    k4cmn::ScopedProvider<k4cmn::FilesProvider> m_useFiles{m_files};
    k4cmn::ScopedProvider<k4cmn::StoreAccess> m_useAccess{m_access};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> m_useRegistry{m_registry};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> m_useSequences{m_sequences};
};

/// Filled once: that takes far longer than what is measured.
const SearchStore& TheStore() {
    static const SearchStore store;
    return store;
}

// Criteria, each with the command that selects the same
// --------------------------------------------

SearchCriteria Everything() {
    SearchCriteria criteria;
    criteria.place.server = k4cmn::kFileServers;
    return criteria;
}

SearchCriteria ByNameSizeAndDate() {
    SearchCriteria criteria = Everything();
    criteria.fileName = "*7*.SQ4";
    criteria.sizeRelation = k4cmn::SIZE_AT_LEAST;
    criteria.size = 20;
    criteria.dateFilter = k4cmn::DATE_MODIFIED;
    criteria.dateMode = k4cmn::DATE_DAYS;
    criteria.days = 199;
    return criteria;
}

std::string FindByNameSizeAndDate() {
    return "find '" + TheStore().Drives() + "' -type f -name '*7*.SQ4' -size +20479c -newermt @" +
           std::to_string(kNow - 200 * kDay);
}

SearchCriteria ByKeyword() {
    SearchCriteria criteria = Everything();
    criteria.keywords = kCommonWord;
    return criteria;
}

std::string GrepKeyword() {
    return std::string("LC_ALL=C grep -rlF ") + kCommonWord + " '" + TheStore().Drives() + "'";
}

SearchCriteria ByName() {
    SearchCriteria criteria = Everything();
    criteria.fileName = "*777*";
    return criteria;
}

SearchCriteria ByNameAndKeyword() {
    SearchCriteria criteria = ByName();
    criteria.keywords = kCommonWord;
    return criteria;
}

// What is measured
// ----------------------------------------------------------------------------------

NoPrompt& Nobody() {
    static NoPrompt prompt;
    return prompt;
}

FoundRows Listed(const SearchCriteria& criteria) {
    FoundRows rows;
    SearchEngine(criteria, SearchMode::New, rows, Nobody()).Find();
    rows.Row(0);  // in their order
    return rows;
}

void NewSearch(benchmark::State& state, const SearchCriteria& criteria) {
    TheStore();  // not to be measured
    FoundRows rows;
    for ([[maybe_unused]] auto round : state) {
        SearchEngine(criteria, SearchMode::New, rows, Nobody()).Find();
        benchmark::DoNotOptimize(rows.Row(0).name);  // in their order
    }
    state.counters["rows"] = static_cast<double>(rows.Count());
}

/// Narrows the 100,000 rows of a search for everything.
void PreviousSearch(benchmark::State& state, const SearchCriteria& criteria) {
    TheStore();
    const FoundRows listed = Listed(Everything());
    FoundRows rows;
    for ([[maybe_unused]] auto round : state) {
        state.PauseTiming();
        rows = listed;
        state.ResumeTiming();
        SearchEngine(criteria, SearchMode::Previous, rows, Nobody()).Find();
        benchmark::DoNotOptimize(rows.Row(0).name);
    }
    state.counters["rows"] = static_cast<double>(rows.Count());
}

/// Runs a command and reads the lines it writes.
/// @return how many; -1 where it can't be run.
std::int64_t LinesOf(const std::string& command) {
    std::FILE* const output = popen(command.c_str(), "r");
    if (!output)
        return -1;
    std::int64_t lines = 0;
    char buffer[65536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, output))
        lines += std::count(buffer, buffer + count, '\n');
    pclose(output);
    return lines;
}

/// A command that selects the same files as some criteria do.
void Command(benchmark::State& state, const SearchCriteria& criteria, std::string (*command)()) {
    const std::string text = command();
    std::int64_t lines = 0;
    for ([[maybe_unused]] auto round : state)
        lines = LinesOf(text);
    state.counters["rows"] = static_cast<double>(lines);
    if (lines != static_cast<std::int64_t>(Listed(criteria).Count()))
        state.SkipWithError("the command selects other files");
}

void Register() {
    using Criteria = SearchCriteria (*)();
    const std::pair<const char*, Criteria> searches[] = {
        {"everything", Everything}, {"name_size_date", ByNameSizeAndDate}, {"keyword", ByKeyword},
        {"name", ByName},           {"name_keyword", ByNameAndKeyword},
    };
    for (const auto& [name, criteria] : searches) {
        benchmark::RegisterBenchmark((std::string("new_search/") + name).c_str(), NewSearch,
                                     criteria())
            ->Unit(benchmark::kMillisecond);
        SearchCriteria anywhere = criteria();
        anywhere.place.server.clear();
        benchmark::RegisterBenchmark((std::string("previous_search/") + name).c_str(),
                                     PreviousSearch, anywhere)
            ->Unit(benchmark::kMillisecond);
    }
    // Once for each of the four servers.
    benchmark::RegisterBenchmark("previous_search_of_servers/everything", PreviousSearch,
                                 Everything())
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("gnu_find/name_size_date", Command, ByNameSizeAndDate(),
                                 FindByNameSizeAndDate)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("grep/keyword", Command, ByKeyword(), GrepKeyword)
        ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv) {
    Register();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

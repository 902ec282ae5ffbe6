#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <stdlib.h>
#include <strings.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "suite/store/FolderFiles.h"

namespace {

namespace fs = std::filesystem;

constexpr char kEnding[] = ".SQ4";

/// A drive "A:" with as many files as asked for, nine of ten of them sequences.
class LongFolder {
 public:
    explicit LongFolder(std::int64_t count) {
        std::string folder = (fs::temp_directory_path() / "k4bench-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        m_folder = folder;
        fs::create_directories(Native());
        for (std::int64_t i = 0; i < count; ++i) {
            const std::string name = "Sequence " + std::to_string(i) +
                                     (i % 10 == 0 ? ".sd4"
                                      : i % 2     ? ".SQ4"
                                                  : ".sq4");
            const int file = creat((Native() / name).c_str(), 0600);
            if (file >= 0)
                close(file);
        }
    }
    ~LongFolder() {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    LongFolder(const LongFolder&) = delete;
    LongFolder& operator=(const LongFolder&) = delete;

    fs::path Native() const { return m_folder / "drives/A"; }
    k4suite::DataHome Home() const { return k4suite::DataHome(m_folder); }

 private:
    fs::path m_folder;
};

/// Filled once for all benchmarks of that length: filling takes far longer than listing.
const LongFolder& FolderOf(std::int64_t count) {
    static std::map<std::int64_t, LongFolder> folders;
    return folders.try_emplace(count, count).first->second;
}

void FindFiles(benchmark::State& state) {
    const LongFolder& folder = FolderOf(state.range(0));
    k4suite::FolderFiles store(folder.Home());
    std::vector<std::string> names;
    for ([[maybe_unused]] auto round : state) {
        if (!store.FindFiles(names, "A:\\*.SQ4", 0))
            state.SkipWithError("the folder can't be read");
        benchmark::DoNotOptimize(names.data());
    }
    state.counters["names"] = static_cast<double>(names.size());
}

/// The least that any listing has to do: read the entries, keep the files with the ending.
void BareReaddir(benchmark::State& state) {
    const LongFolder& folder = FolderOf(state.range(0));
    const std::string native = folder.Native().string();
    std::vector<std::string> names;
    for ([[maybe_unused]] auto round : state) {
        names.clear();
        DIR* entries = opendir(native.c_str());
        if (!entries) {
            state.SkipWithError("the folder can't be read");
            break;
        }
        while (const dirent* entry = readdir(entries)) {
            const std::string_view name = entry->d_name;
            const std::size_t length = sizeof kEnding - 1;
            if (entry->d_type != DT_DIR && name.size() >= length &&
                strcasecmp(name.data() + name.size() - length, kEnding) == 0)
                names.emplace_back(name);
        }
        closedir(entries);
        benchmark::DoNotOptimize(names.data());
    }
    state.counters["names"] = static_cast<double>(names.size());
}

BENCHMARK(FindFiles)->Name("FindFiles")->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BareReaddir)->Name("bare_readdir")->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

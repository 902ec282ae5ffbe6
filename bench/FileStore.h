#pragma once

#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "suite/access/FolderAccess.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/MachineSettings.h"
#include "suite/store/FolderFiles.h"

namespace k4bench {

/// A drive "A:" with a library of as many sequences as asked for, of different sizes and times, and
/// a drive "B:" with 2,000 sign types of 20 libraries each; installed for the life of the object.
class FileStore {
 public:
    explicit FileStore(std::int64_t count)
        : m_folder(NewFolder()), m_files(Home()), m_access(Home()), m_registry(Home()) {
        namespace fs = std::filesystem;
        constexpr int signTypes = 2000;
        constexpr int libraries = 20;
        k4suite::MachineSettings settings;
        settings.services = {{"Local", "", {"A:", "B:"}, {}}};
        k4suite::WriteMachineSettings(Home(), settings);
        fs::create_directories(Library());
        for (std::int64_t i = 0; i < count; ++i)
            MakeFile("Sequence " + std::to_string(i * 7919 % count) + ".SQ4", i);
        for (int i = 0; i < signTypes; ++i) {
            for (int library = 0; library < libraries; ++library)
                fs::create_directories(SignTypes() / (std::to_string(i) + "x80.Mono1.LED.Sign") /
                                       ("Library " + std::to_string(library) + ".Lib"));
        }
    }
    ~FileStore() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    FileStore(const FileStore&) = delete;
    FileStore& operator=(const FileStore&) = delete;

    std::filesystem::path Library() const { return m_folder / "drives/A/1.2.3.Sign/L.Lib"; }
    std::filesystem::path SignTypes() const { return m_folder / "drives/B"; }

 private:
    static std::string NewFolder() {
        std::string folder = (std::filesystem::temp_directory_path() / "k4bench-XXXXXX").string();
        if (!mkdtemp(folder.data()))
            std::abort();
        return folder;
    }
    k4suite::DataHome Home() const { return k4suite::DataHome(m_folder); }
    void MakeFile(const std::string& name, std::int64_t i) const {
        const int file = creat((Library() / name).c_str(), 0600);
        if (file < 0)
            std::abort();
        const timespec times[2] = {{1'700'000'000 + i * 5557 % 60'000'000, 0},
                                   {1'700'000'000 + i * 5557 % 60'000'000, 0}};
        if (ftruncate(file, i * 104729 % 90'000'000) != 0 || futimens(file, times) != 0)
            std::abort();
        close(file);
    }

    const std::filesystem::path m_folder;
    k4suite::FolderFiles m_files;
    k4suite::FolderAccess m_access;
    k4suite::IniRegistry m_registry;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> m_useFiles{m_files};
    k4cmn::ScopedProvider<k4cmn::StoreAccess> m_useAccess{m_access};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> m_useRegistry{m_registry};
};

/// Filled once: that takes far longer than what is measured.
inline const FileStore& TheStore(std::int64_t count) {
    static const FileStore store(count);
    return store;
}

inline const FileLocation kPlace{"A:", "1.2.3", "L", "", "SQ4"};

/// The least that listing a folder takes.
inline std::vector<std::string> SortedNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    DIR* const entries = opendir(folder.c_str());
    while (const dirent* entry = entries ? readdir(entries) : nullptr)
        names.emplace_back(entry->d_name);
    if (entries)
        closedir(entries);
    std::sort(names.begin(), names.end());
    return names;
}

/// The least that filling has to do: read the entries, look at each, sort the names.
inline void BareWalk(benchmark::State& state) {
    const std::string folder = TheStore(state.range(0)).Library().string();
    std::vector<std::string> names;
    for ([[maybe_unused]] auto round : state) {
        names.clear();
        DIR* const entries = opendir(folder.c_str());
        if (!entries) {
            state.SkipWithError("the folder can't be read");
            break;
        }
        while (const dirent* entry = readdir(entries)) {
            struct stat status;
            const std::string_view name = entry->d_name;
            if (name.ends_with(".SQ4") && fstatat(dirfd(entries), entry->d_name, &status, 0) == 0)
                names.emplace_back(name);
        }
        closedir(entries);
        std::sort(names.begin(), names.end());
        benchmark::DoNotOptimize(names.data());
    }
    state.counters["rows"] = static_cast<double>(names.size());
}

}  // namespace k4bench

#include "suite/sample/SampleData.h"

#include <array>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <system_error>

#include "suite/settings/FileLock.h"
#include "suite/signservice/SignStateFile.h"
#include "suite/store/FolderFiles.h"
#include "suite/store/UnfinishedCopy.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

struct SignRow {
    const char* name;
    std::uint32_t rows;
    std::uint32_t columns;
    tag_K4_SIGN_COLOR color;
    tag_K4_PIXEL_TECH pixel;
    const char* place;     ///< the first of its further texts: where it hangs
    const char* sequence;  ///< in its library "Default": what it plays to begin with
};

// clang-format off
constexpr std::array kLocalSigns{
    SignRow{"Main Board",  64, 192, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED,     "Stadium, north stand",   "Welcome"},
    SignRow{"Scoreboard",  48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "Stadium, south stand",   "Score"},
    SignRow{"Ticker",      16,  96, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_LED,     "Stadium, balcony",       "News"},
    SignRow{"Arrivals",    16,  48, K4_SIGN_COLOR_TRI3,   K4_PIXEL_TECH_LED,     "Car park",               "Spaces"},
};
constexpr std::array kNorthTowerSigns{
    SignRow{"Tower Wall",  64, 256, K4_SIGN_COLOR_RGB64,  K4_PIXEL_TECH_LED,     "North face",             "Aurora"},
    SignRow{"Clock Face",  32,  64, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "East face",              "Clock"},
    SignRow{"Weather",     16,  48, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_REFLECT, "Roof",                   "Sunny"},
    SignRow{"Front Door",   7,  80, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_LED,     "Entrance",               "Welcome"},
};
constexpr std::array kHarbourGateSigns{
    SignRow{"Lane Board",  64, 256, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "Bridge",                 "Regatta"},
    SignRow{"Ferry",       24,  96, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_LED,     "Pier 2",                 "Times"},
    SignRow{"Berth 1",     16,  64, K4_SIGN_COLOR_TRI3,   K4_PIXEL_TECH_LED,     "Pier 1",                 "Berth Free"},
    SignRow{"Tide",        16,  48, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_REFLECT, "Lighthouse",             "High Tide"},
};
/// Signs that are reached by telephone alone.
constexpr std::array kObservatorySigns{
    SignRow{"Dome",        32, 128, K4_SIGN_COLOR_RGB4K,  K4_PIXEL_TECH_LED,     "Above the slit",         "Comet"},
    SignRow{"Path",        32,  96, K4_SIGN_COLOR_MONO64, K4_PIXEL_TECH_LED,     "Where the road ends",    "Moon"},
};
/// Signs that hang nowhere any more. Their sequences are kept, and are of sizes and technologies
/// that no sign on the network has.
constexpr std::array kArchivedSigns{
    SignRow{"",            64, 128, K4_SIGN_COLOR_RGB16MB, K4_PIXEL_TECH_LED,    "",                       ""},
    SignRow{"",            32, 128, K4_SIGN_COLOR_RGB4K,   K4_PIXEL_TECH_LED,    "",                       ""},
    SignRow{"",            48,  96, K4_SIGN_COLOR_QUAD256, K4_PIXEL_TECH_INCAND, "",                       ""},
    SignRow{"",            32,  96, K4_SIGN_COLOR_MONO64,  K4_PIXEL_TECH_LED,    "",                       ""},
    SignRow{"",            24,  80, K4_SIGN_COLOR_TRI256,  K4_PIXEL_TECH_LED,    "",                       ""},
};
// clang-format on

constexpr const char* kArchive = "\\\\TOWER\\ARCHIVE";

constexpr std::array kLibraries{"Default", "Events", "Safety"};
constexpr std::array kPaletteLibraries{"Default", "Events"};

constexpr std::chrono::milliseconds kPatience{10000};

ServiceSetup Service(const char* name, std::vector<std::string> servers,
                     std::span<const SignRow> signs, const char* phoneBookEntry = "") {
    ServiceSetup service{name, phoneBookEntry, std::move(servers), {}};
    for (const SignRow& row : signs) {
        SignSetup sign;
        sign.name = row.name;
        sign.settings.rows = row.rows;
        sign.settings.columns = row.columns;
        sign.settings.color = row.color;
        sign.settings.pixel = row.pixel;
        sign.settings.texts = {row.place};
        service.signs.push_back(std::move(sign));
    }
    return service;
}

/// Copies what lies in a folder and below it, but for files that are there already. A file appears
/// whole or not at all. Throws what the file system throws.
void CopyContent(const fs::path& from, const fs::path& to) {
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory()) {
            fs::create_directories(target);
            CopyContent(entry.path(), target);
        } else if (!fs::exists(fs::symlink_status(target))) {
            // Unlike the files of people, these aren't worth a wait for the disk.
            const fs::path unfinished =
                to / (std::string(kUnfinishedCopy) + target.filename().string());
            fs::copy_file(entry.path(), unfinished, fs::copy_options::overwrite_existing);
            fs::rename(unfinished, target);
        }
    }
}

/// Fills stores with sign type folders. Its operations throw what the file system throws.
class StoreFiller {
 public:
    /// @param content where sequences lie, in the folders of a server; need not be there.
    StoreFiller(const DataHome& home, const fs::path& content)
        : m_files(home), m_content(content) {}

    /// Makes the folders of a sign type, with the libraries and what lies in them.
    void AddSignType(const std::string& server, const k4cmn::SignSettings& sign) {
        AddLibraries(server, sign, 0, kLibraries);
        AddLibraries(server, sign, 1, kPaletteLibraries);
        const std::string folder = FolderOf(sign, 0);
        if (!m_content.empty() && fs::is_directory(m_content / folder))
            CopyContent(m_content / folder, m_files.NativePath(server + "\\" + folder));
    }

 private:
    std::string FolderOf(const k4cmn::SignSettings& sign, int palette) {
        return m_files.BuildSign(sign.rows, sign.columns, sign.color, sign.pixel, palette) +
               ".Sign";
    }

    void AddLibraries(const std::string& server, const k4cmn::SignSettings& sign, int palette,
                      std::span<const char* const> libraries) {
        for (const char* library : libraries)
            fs::create_directories(m_files.NativePath(server + "\\" + FolderOf(sign, palette) +
                                                      "\\" + library + ".Lib"));
    }

    FolderFiles m_files;
    const fs::path m_content;
};

void MakeStores(const DataHome& home, const MachineSettings& machines, const fs::path& content) {
    StoreFiller filler(home, content);
    for (const ServiceSetup& service : machines.services)
        for (const std::string& server : service.servers)
            for (const SignSetup& sign : service.signs)
                filler.AddSignType(server, sign.settings);
    for (const SignSetup& sign : Service("", {}, kArchivedSigns).signs)
        filler.AddSignType(kArchive, sign.settings);
}

const char* SequenceOf(const std::string& sign) {
    for (const std::span<const SignRow> rows :
         {std::span<const SignRow>(kLocalSigns), std::span<const SignRow>(kNorthTowerSigns),
          std::span<const SignRow>(kHarbourGateSigns), std::span<const SignRow>(kObservatorySigns)})
        for (const SignRow& row : rows)
            if (row.name == sign)
                return row.sequence;
    return "";
}

/// Gives signs that never played their first sequence, as their default one, where it is there.
void MakeStates(const DataHome& home, const MachineSettings& machines) {
    FolderFiles files(home);
    for (const ServiceSetup& service : machines.services)
        for (const SignSetup& sign : service.signs) {
            const k4cmn::SignSettings& of = sign.settings;
            const SignStateFile state(home.SignState(), service.name, sign.name);
            SignKept kept;
            kept.defaultOrder.sequence =
                service.servers.front() + "\\" +
                files.BuildSign(of.rows, of.columns, of.color, of.pixel, 0) +
                ".Sign\\Default.Lib\\" + SequenceOf(sign.name) + ".SQ4";
            const bool isNew = !fs::exists(fs::symlink_status(state.Path()));
            std::string problem;
            if (isNew && fs::exists(files.NativePath(kept.defaultOrder.sequence)) &&
                !state.Write(kept, problem))
                throw std::runtime_error(problem);
        }
}

bool HasData(const DataHome& home) {
    const std::string settings = home.MachineSettings().string();
    return fs::exists(fs::symlink_status(settings)) ||
           fs::exists(fs::symlink_status(settings + ".damaged-1"));
}

int Failed(std::string* problem, const std::string& reason) {
    if (problem)
        *problem = "The sample data couldn't be made: " + reason;
    return 0;
}

}  // namespace

MachineSettings SampleMachines() {
    MachineSettings machines;
    machines.services.push_back(Service("Local", {"A:", "\\\\STORE\\SIGNS"}, kLocalSigns));
    machines.services.push_back(
        Service("North Tower", {"\\\\TOWER\\SIGNS", "\\\\TOWER\\ARCHIVE"}, kNorthTowerSigns));
    machines.services.push_back(Service("Harbour Gate", {"\\\\HARBOUR\\SIGNS"}, kHarbourGateSigns));
    machines.services.push_back(
        Service("Observatory", {"\\\\OBSERVATORY\\SIGNS"}, kObservatorySigns, "Hilltop"));
    return machines;
}

fs::path SampleContentFolder() {
    std::error_code failed;
    const fs::path program = fs::read_symlink("/proc/self/exe", failed);
    return failed ? fs::path() : program.parent_path().parent_path() / "share/k4400/sample";
}

int SeedSampleData(const DataHome& home, std::string* problem, const fs::path& content) {
    try {
        if (problem)
            problem->clear();
        if (HasData(home))
            return 1;
        const fs::path settings = home.MachineSettings().parent_path();
        fs::create_directories(settings);
        const FileLock lock(settings / "sample-data.lock", kPatience);
        if (!lock.IsHeld())
            return Failed(problem, settings.string() + " can't be locked.");
        if (HasData(home))
            return 1;
        const MachineSettings machines = SampleMachines();
        MakeStores(home, machines, content);
        MakeStates(home, machines);
        if (!WriteMachineSettings(home, machines))
            return Failed(problem, home.MachineSettings().string() + " can't be written.");
        return 1;
    } catch (const std::exception& error) {
        return Failed(problem, error.what());
    }
}

}  // namespace k4suite

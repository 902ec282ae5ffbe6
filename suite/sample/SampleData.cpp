#include "suite/sample/SampleData.h"

#include <array>
#include <filesystem>
#include <span>
#include <system_error>

#include "suite/settings/FileLock.h"
#include "suite/store/FolderFiles.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

struct SignRow {
    const char* name;
    std::uint32_t rows;
    std::uint32_t columns;
    tag_K4_SIGN_COLOR color;
    tag_K4_PIXEL_TECH pixel;
    const char* place;  ///< the first of its further texts: where it hangs
};

// clang-format off
constexpr std::array kLocalSigns{
    SignRow{"Main Board",  64, 192, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED,     "Stadium, north stand"},
    SignRow{"Scoreboard",  48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "Stadium, south stand"},
    SignRow{"Ticker",      16,  96, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_LED,     "Stadium, balcony"},
    SignRow{"Arrivals",    16,  48, K4_SIGN_COLOR_TRI3,   K4_PIXEL_TECH_LED,     "Car park"},
};
constexpr std::array kNorthTowerSigns{
    SignRow{"Tower Wall",  64, 256, K4_SIGN_COLOR_RGB64,  K4_PIXEL_TECH_LED,     "North face"},
    SignRow{"Clock Face",  32,  64, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "East face"},
    SignRow{"Weather",     16,  48, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_REFLECT, "Roof"},
    SignRow{"Front Door",   7,  80, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_LED,     "Entrance"},
};
constexpr std::array kHarbourGateSigns{
    SignRow{"Lane Board",  64, 256, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND,  "Bridge"},
    SignRow{"Ferry",       24,  96, K4_SIGN_COLOR_MONO16, K4_PIXEL_TECH_LED,     "Pier 2"},
    SignRow{"Berth 1",     16,  64, K4_SIGN_COLOR_TRI3,   K4_PIXEL_TECH_LED,     "Pier 1"},
    SignRow{"Tide",        16,  48, K4_SIGN_COLOR_MONO1,  K4_PIXEL_TECH_REFLECT, "Lighthouse"},
};
// clang-format on

constexpr std::array kLibraries{"Default", "Events", "Safety"};
constexpr std::array kPaletteLibraries{"Default", "Events"};

constexpr std::chrono::milliseconds kPatience{10000};

ServiceSetup Service(const char* name, std::vector<std::string> servers,
                     std::span<const SignRow> signs) {
    ServiceSetup service{name, {}, std::move(servers), {}};
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

/// Makes a sign type folder with its libraries. Throws what the file system throws.
void MakeSignType(FolderFiles& store, const std::string& server, const k4cmn::SignSettings& sign,
                  int palette, std::span<const char* const> libraries) {
    const std::string type =
        store.BuildSign(sign.rows, sign.columns, sign.color, sign.pixel, palette);
    for (const char* library : libraries)
        fs::create_directories(
            store.NativePath(server + "\\" + type + ".Sign\\" + library + ".Lib"));
}

void MakeStores(const DataHome& home, const MachineSettings& machines) {
    FolderFiles store(home);
    for (const ServiceSetup& service : machines.services) {
        for (const std::string& server : service.servers) {
            for (const SignSetup& sign : service.signs) {
                MakeSignType(store, server, sign.settings, 0, kLibraries);
                MakeSignType(store, server, sign.settings, 1, kPaletteLibraries);
            }
        }
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
    return machines;
}

int SeedSampleData(const DataHome& home, std::string* problem) {
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
        MakeStores(home, machines);
        if (!WriteMachineSettings(home, machines))
            return Failed(problem, home.MachineSettings().string() + " can't be written.");
        return 1;
    } catch (const std::exception& error) {
        return Failed(problem, error.what());
    }
}

}  // namespace k4suite

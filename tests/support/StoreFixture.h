#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "suite/access/FolderAccess.h"
#include "suite/access/HomeDrives.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/MachineSettings.h"
#include "suite/store/FolderFiles.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// Three sign types, and the palette twin of the first.
inline constexpr char kType[] = "16x80.Mono1.LED";
inline constexpr char kPaletteType[] = "16x80.Mono1.LED.Palette";
inline constexpr char kOtherType[] = "48x160.Quad16.Incand";
inline constexpr char kThirdType[] = "8x16.Mono4.LED";

/// A store with settings, over real folders of the test's own. Nothing is in it at first.
class StoreFixture : public testing::Test {
 protected:
    void SetUp() override { std::filesystem::create_directories(home / "drives"); }

    /// Configures the services of the system; the first is "Local".
    void Configure(const std::vector<k4suite::ServiceSetup>& services) {
        k4suite::MachineSettings settings;
        settings.services = services;
        ASSERT_EQ(k4suite::WriteMachineSettings(k4suite::DataHome(home.Path()), settings), 1);
    }
    /// One service "Local" with servers and signs.
    void ConfigureLocal(const std::vector<std::string>& servers,
                        const std::vector<k4suite::SignSetup>& signs = {}) {
        Configure({{"Local", "", servers, signs}});
    }
    static k4suite::SignSetup Sign(const std::string& name, std::uint32_t rows,
                                   std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                   tag_K4_PIXEL_TECH pixel) {
        k4suite::SignSetup sign;
        sign.name = name;
        sign.settings.rows = rows;
        sign.settings.columns = columns;
        sign.settings.color = color;
        sign.settings.pixel = pixel;
        return sign;
    }

    /// Where a path of the store lies.
    std::filesystem::path Native(const std::string& path) { return files.NativePath(path); }
    void MakeFolder(const std::string& path) { std::filesystem::create_directories(Native(path)); }
    /// Makes a file, with the folders above it; a time is in seconds since 1970.
    void MakeFile(const std::string& path, const std::string& content = "x",
                  std::int64_t time = -1) {
        const std::filesystem::path native = Native(path);
        home.Write(native.lexically_relative(home.Path()).string(), content);
        if (time >= 0) {
            const timespec times[2] = {{time, 0}, {time, 0}};
            ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), times, 0), 0);
        }
    }
    bool Exists(const std::string& path) { return std::filesystem::exists(Native(path)); }
    std::string Content(const std::string& path) {
        return home.Read(Native(path).lexically_relative(home.Path()).string());
    }

    TempFolder home;
    k4suite::FolderFiles files{k4suite::DataHome(home.Path())};
    k4suite::FolderAccess access{k4suite::DataHome(home.Path())};
    k4suite::HomeDrives drives{k4suite::DataHome(home.Path())};
    k4suite::IniRegistry registry{k4suite::DataHome(home.Path())};
    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles{files};
    k4cmn::ScopedProvider<k4cmn::StoreAccess> useAccess{access};
    k4cmn::ScopedProvider<k4cmn::Drives> useDrives{drives};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useRegistry{registry};
};

}  // namespace k4test

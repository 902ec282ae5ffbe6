#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "suite/settings/IniFile.h"
#include "suite/settings/IniValue.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// A test of its own INI file in a folder of its own.
class IniFileFixture : public testing::Test {
 protected:
    std::filesystem::path Path() const { return folder / "settings/user.ini"; }
    std::string Raw() const { return folder.Read("settings/user.ini"); }
    void WriteRaw(const std::string& content) { folder.Write("settings/user.ini", content); }

    static int Set(k4suite::IniFile& file, const char* key, const std::string& text) {
        return file.Update(
            [&](QSettings& ini) { k4suite::WriteText(ini, QLatin1String(key), text); });
    }
    static std::string Get(k4suite::IniFile& file, const char* key) {
        std::string text = "<none>";
        EXPECT_EQ(
            file.Read([&](QSettings& ini) { k4suite::ReadText(ini, QLatin1String(key), text); }),
            1);
        return text;
    }
    static int CanRead(k4suite::IniFile& file) {
        bool isCalled = false;
        const int result = file.Read([&](QSettings&) { isCalled = true; });
        EXPECT_EQ(isCalled, result == 1);
        return result;
    }
    /// The names of what lies beside the file, without the lock.
    std::vector<std::string> Beside() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "settings"))
            if (entry.path().extension() != ".lock")
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    k4test::TempFolder folder;
};

}  // namespace k4test

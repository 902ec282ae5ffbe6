#include "suite/settings/IniRegistry.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <map>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4suite::DataHome;
using k4suite::IniRegistry;
using Texts = std::vector<std::string>;

class Registry : public testing::Test {
 protected:
    /// A registry that reads the files anew, as the next start of a program does.
    Texts SubkeysOf(const std::string& key) {
        CK4Registry registry;
        EXPECT_EQ(registry.OpenUserRegistryKey(key), 1) << key;
        Texts names;
        EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 1);
        std::sort(names.begin(), names.end());
        return names;
    }

    k4test::TempFolder folder;
    DataHome home{folder.Path()};
    IniRegistry settings{home};
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> use{settings};
};

// Keys -------------------------------------------------------------------------------------------

TEST_F(Registry, KeyThatIsntThereDoesntOpen) {
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey("File Locations", "Previous Selection"), 0);
    EXPECT_FALSE(fs::exists(home.UserSettings()));
}

TEST_F(Registry, KeyThatWasMadeOpensWithoutAnyValue) {
    CK4Registry registry;
    EXPECT_EQ(registry.CreateUserRegistryKey("File Locations", "Previous Selection"), 1);
    EXPECT_EQ(registry.CreateUserRegistryKey("File Locations", "Previous Selection"), 1);
    IniRegistry again(home);
    const k4cmn::ScopedProvider<k4cmn::RegistryProvider> useAgain(again);
    EXPECT_EQ(registry.OpenUserRegistryKey("File Locations", "Previous Selection"), 1);
    // So does the one above it, and the two names are one key text.
    EXPECT_EQ(registry.OpenUserRegistryKey("File Locations"), 1);
    EXPECT_EQ(registry.OpenUserRegistryKey("File Locations\\Previous Selection"), 1);
    EXPECT_EQ(registry.OpenUserRegistryKey("File Locations", "Other"), 0);
}

TEST_F(Registry, RootIsAlwaysThere) {
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey(""), 1);
    EXPECT_EQ(registry.SetRegistryString("v", "x"), 1);
    std::string text;
    EXPECT_EQ(registry.GetRegistryString("v", &text), 1);
    EXPECT_EQ(text, "x");
}

TEST_F(Registry, NamesKeepTheirCase) {
    CK4Registry registry;
    EXPECT_EQ(registry.CreateUserRegistryKey("Key"), 1);
    EXPECT_EQ(registry.OpenUserRegistryKey("key"), 0);
}

TEST_F(Registry, SubkeysAreNamedWithoutTheirValues) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("Sign Control\\Services", "North\\deep"), 1);
    ASSERT_EQ(registry.CreateUserRegistryKey("Sign Control\\Services", "South/East"), 1);
    ASSERT_EQ(registry.CreateUserRegistryKey("Sign Control", "Services"), 1);
    ASSERT_EQ(registry.SetRegistryString("value", "x"), 1);
    EXPECT_EQ(SubkeysOf("Sign Control\\Services"), (Texts{"North", "South/East"}));
    EXPECT_EQ(SubkeysOf("Sign Control"), Texts{"Services"});
    EXPECT_EQ(SubkeysOf("Sign Control\\Services\\North\\deep"), Texts{});
}

TEST_F(Registry, KeyTextOfTwoNames) {
    EXPECT_EQ(CK4Registry::BuildRegistryKey("Sign Control", "Services"), "Sign Control\\Services");
    EXPECT_EQ(CK4Registry::BuildRegistryKey("Sign Control"), "Sign Control");
    EXPECT_EQ(CK4Registry::BuildRegistryKey("", "Services"), "Services");
    EXPECT_EQ(CK4Registry::BuildRegistryKey("", ""), "");
}

struct NameCase {
    const char* what;
    std::string name;
};

class RegistryName : public Registry, public testing::WithParamInterface<NameCase> {};

TEST_P(RegistryName, KeepsKeysAndValuesApart) {
    const std::string& name = GetParam().name;
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("keys", name), 1);
    ASSERT_EQ(registry.SetRegistryString(name, "text of the value"), 1);
    const std::uint32_t number = 77;
    ASSERT_EQ(registry.SetRegistryDword(name + "2", &number), 1);

    IniRegistry again(home);
    const k4cmn::ScopedProvider<k4cmn::RegistryProvider> useAgain(again);
    ASSERT_EQ(registry.OpenUserRegistryKey("keys", name), 1);
    std::string text;
    EXPECT_EQ(registry.GetRegistryString(name, &text), 1);
    EXPECT_EQ(text, "text of the value");
    std::uint32_t read = 0;
    EXPECT_EQ(registry.GetRegistryDword(name + "2", &read), 1);
    EXPECT_EQ(read, 77u);
    EXPECT_EQ(SubkeysOf("keys"), Texts{name});
    EXPECT_EQ(again.Problems(), Texts{});
}

TEST_P(RegistryName, StandsAtTheTopToo) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey(GetParam().name), 1);
    ASSERT_EQ(registry.SetRegistryString("v", "x"), 1);
    IniRegistry again(home);
    const k4cmn::ScopedProvider<k4cmn::RegistryProvider> useAgain(again);
    EXPECT_EQ(SubkeysOf(""), Texts{GetParam().name});
    ASSERT_EQ(registry.OpenUserRegistryKey(GetParam().name), 1);
    std::string text;
    EXPECT_EQ(registry.GetRegistryString("v", &text), 1);
}

INSTANTIATE_TEST_SUITE_P(
    OfManyKinds, RegistryName,
    testing::Values(NameCase{"Plain", "Server"}, NameCase{"Blanks", " Tree  Right Edge "},
                    NameCase{"Slash", "a/b"}, NameCase{"Slashes", "//a//"},
                    NameCase{"Percent", "100%"}, NameCase{"LooksEscaped", "%2F%5C"},
                    NameCase{"Dot", ".key"}, NameCase{"Default", ".default"},
                    NameCase{"General", "General"}, NameCase{"GeneralLower", "general"},
                    NameCase{"PercentGeneral", "%General"}, NameCase{"Bracket", "[a]"},
                    NameCase{"Equals", "a=b;c,d"}, NameCase{"Quotes", "\"a\" 'b'"},
                    NameCase{"Control", "a\nb\r\tc"}, NameCase{"Zero", std::string("a\0b", 3)},
                    NameCase{"Umlauts", "Gr\u00fc\u00dfe"}, NameCase{"Emoji", "\U0001F600"},
                    NameCase{"NotUtf8", "a\xff\xc3"}, NameCase{"At", "@Invalid()"},
                    NameCase{"Long", std::string(1000, 'n')}, NameCase{"Digits", "1"},
                    NameCase{"Size", "size"}),
    [](const auto& testCase) { return std::string(testCase.param.what); });

TEST_F(Registry, EmptyAndBackslashedValueNames) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    EXPECT_EQ(registry.SetRegistryString("", "default"), 1);
    EXPECT_EQ(registry.SetRegistryString("a\\b", "backslash"), 1);
    EXPECT_EQ(registry.SetRegistryString("a/b", "slash"), 1);
    EXPECT_EQ(registry.SetRegistryString("a", "plain"), 1);
    const std::map<std::string, std::string> values{
        {"", "default"}, {"a\\b", "backslash"}, {"a/b", "slash"}, {"a", "plain"}};
    for (const auto& [name, value] : values) {
        std::string text;
        EXPECT_EQ(registry.GetRegistryString(name, &text), 1) << name;
        EXPECT_EQ(text, value);
    }
    EXPECT_EQ(SubkeysOf("k"), Texts{});
}

// Values -----------------------------------------------------------------------------------------

TEST_F(Registry, MissingValuesLeaveTheirTargets) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    std::string text = "kept";
    std::uint32_t number = 42;
    EXPECT_EQ(registry.GetRegistryString("v", &text), 0);
    EXPECT_EQ(registry.GetRegistryDword("v", &number), 0);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(number, 42u);
}

TEST_F(Registry, NumbersOfTheWholeRange) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    for (const std::uint32_t number : {0u, 1u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        ASSERT_EQ(registry.SetRegistryDword("v", &number), 1);
        std::uint32_t read = 42;
        EXPECT_EQ(registry.GetRegistryDword("v", &read), 1);
        EXPECT_EQ(read, number);
        std::string text;
        EXPECT_EQ(registry.GetRegistryString("v", &text), 1);
        EXPECT_EQ(text, std::to_string(number));
    }
}

TEST_F(Registry, TextThatIsNoNumberLeavesTheTarget) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    for (const char* text :
         {"", "x", "12x", "-1", "4294967296", "1.5", "0x10", "99999999999999999999"}) {
        ASSERT_EQ(registry.SetRegistryString("v", text), 1);
        std::uint32_t number = 42;
        EXPECT_EQ(registry.GetRegistryDword("v", &number), 0) << text;
        EXPECT_EQ(number, 42u);
    }
}

TEST_F(Registry, TextThatIsNotUtf8IsNotStored) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    ASSERT_EQ(registry.SetRegistryString("v", "old"), 1);
    EXPECT_EQ(registry.SetRegistryString("v", "a\xff"), 0);
    std::string text;
    EXPECT_EQ(registry.GetRegistryString("v", &text), 1);
    EXPECT_EQ(text, "old");
}

TEST_F(Registry, FailedWritesAreTold) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    fs::remove_all(home.UserSettings());
    fs::create_directories(home.UserSettings());
    const std::uint32_t number = 1;
    EXPECT_EQ(registry.SetRegistryString("v", "x"), 0);
    EXPECT_EQ(registry.SetRegistryDword("v", &number), 0);
    EXPECT_EQ(CK4Registry::SetPreviewOptions("path"), 0);
    EXPECT_EQ(registry.CreateUserRegistryKey("other"), 0);
    Texts names{"kept"};
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 0);
    EXPECT_EQ(names, Texts{"kept"});
    EXPECT_EQ(registry.OpenUserRegistryKey("k"), 0);
}

TEST_F(Registry, FileThatVanishesUnderAnOpenKey) {
    CK4Registry registry;
    ASSERT_EQ(registry.CreateUserRegistryKey("k", "sub"), 1);
    ASSERT_EQ(registry.CreateUserRegistryKey("k"), 1);
    ASSERT_EQ(registry.SetRegistryString("v", "x"), 1);
    fs::remove_all(folder / "settings");
    Texts names{"old"};
    std::string text = "kept";
    EXPECT_EQ(CK4Registry::EnumerateKeys(registry, names), 1);
    EXPECT_EQ(names, Texts{});
    EXPECT_EQ(registry.GetRegistryString("v", &text), 0);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(registry.SetRegistryString("v", "again"), 1);
    EXPECT_EQ(registry.GetRegistryString("v", &text), 1);
    EXPECT_EQ(text, "again");
}

TEST_F(Registry, DamagedUserSettingsAreSetAsideAndReported) {
    folder.Write("settings/user.ini", "[k]\nv=1\nnonsense\n");
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey("k"), 0);
    ASSERT_EQ(settings.Problems().size(), 1u);
    EXPECT_EQ(settings.Problems()[0], home.UserSettings().string() +
                                          " was damaged; it is kept as " +
                                          home.UserSettings().string() + ".damaged-1.");
    EXPECT_EQ(registry.CreateUserRegistryKey("k"), 1);
    EXPECT_EQ(folder.Read("settings/user.ini.damaged-1"), "[k]\nv=1\nnonsense\n");
}

TEST_F(Registry, OpenKeyOutlivesTheRegistry) {
    auto registry = std::make_unique<IniRegistry>(home);
    const std::unique_ptr<k4cmn::RegistryKey> key = registry->OpenUserKey("k", "", 1);
    ASSERT_TRUE(key);
    registry.reset();
    EXPECT_EQ(key->SetString("v", "x"), 1);
    std::string text;
    EXPECT_EQ(key->GetString("v", &text), 1);
    EXPECT_EQ(text, "x");
}

TEST_F(Registry, HomeThatIsNotUtf8IsNotUsed) {
    const DataHome bad(folder / "h\xff");
    IniRegistry lost(bad);
    const k4cmn::ScopedProvider<k4cmn::RegistryProvider> useLost(lost);
    CK4Registry registry;
    EXPECT_EQ(registry.OpenUserRegistryKey("k"), 0);
    EXPECT_EQ(registry.CreateUserRegistryKey("k"), 0);
    EXPECT_EQ(CK4Registry::SetPreviewOptions("path"), 0);
    EXPECT_EQ(lost.Problems(), Texts{folder.Path().string() +
                                     "/h\uFFFD/settings/user.ini is no place that can be used."});
    EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(Registry, TwoProcessesKeepEachOthersValues) {
    constexpr int values = 50;
    const auto write = [&](const char* key) {
        IniRegistry own(home);
        const auto open = own.OpenUserKey(key, "", 1);
        for (int i = 0; open && i < values; ++i) {
            if (!open->SetDword("v" + std::to_string(i), static_cast<std::uint32_t>(i)))
                return false;
        }
        return open != nullptr;
    };
    const pid_t child = fork();
    if (child == 0)
        _exit(write("child") ? 0 : 1);
    EXPECT_TRUE(write("parent"));
    int status = 1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    for (const char* key : {"child", "parent"}) {
        CK4Registry registry;
        ASSERT_EQ(registry.OpenUserRegistryKey(key), 1);
        for (int i = 0; i < values; ++i) {
            std::uint32_t number = 1000;
            EXPECT_EQ(registry.GetRegistryDword("v" + std::to_string(i), &number), 1);
            EXPECT_EQ(number, static_cast<std::uint32_t>(i));
        }
    }
}

// Preview ----------------------------------------------------------------------------------------

TEST_F(Registry, PreviewRequestIsStoredUnderItsKey) {
    const std::string text = "text";
    const std::uint32_t one = 1;
    const std::uint32_t two = 2;
    EXPECT_EQ(CK4Registry::SetPreviewOptions("A:\\x.SQ4", &text, &one, &two), 1);
    CK4Registry registry;
    ASSERT_EQ(registry.OpenUserRegistryKey("Preview", "Request"), 1);
    std::string read;
    std::uint32_t number = 0;
    EXPECT_EQ(registry.GetRegistryString("Sequence", &read), 1);
    EXPECT_EQ(read, "A:\\x.SQ4");
    EXPECT_EQ(registry.GetRegistryString("Text", &read), 1);
    EXPECT_EQ(read, "text");
    EXPECT_EQ(registry.GetRegistryDword("First", &number), 1);
    EXPECT_EQ(number, 1u);
    EXPECT_EQ(registry.GetRegistryDword("Second", &number), 1);
    EXPECT_EQ(number, 2u);
    EXPECT_EQ(registry.GetRegistryDword("Number", &number), 1);
    EXPECT_EQ(number, 1u);
}

TEST_F(Registry, NextPreviewRequestReplacesTheWholeOne) {
    const std::string text = "text";
    const std::uint32_t one = 1;
    ASSERT_EQ(CK4Registry::SetPreviewOptions("first", &text, &one, nullptr), 1);
    ASSERT_EQ(CK4Registry::SetPreviewOptions("second", nullptr, nullptr, &one), 1);
    CK4Registry registry;
    ASSERT_EQ(registry.OpenUserRegistryKey("Preview\\Request"), 1);
    std::string read;
    std::uint32_t number = 0;
    EXPECT_EQ(registry.GetRegistryString("Sequence", &read), 1);
    EXPECT_EQ(read, "second");
    EXPECT_EQ(registry.GetRegistryString("Text", &read), 0);
    EXPECT_EQ(registry.GetRegistryDword("First", &number), 0);
    EXPECT_EQ(registry.GetRegistryDword("Second", &number), 1);
    EXPECT_EQ(registry.GetRegistryDword("Number", &number), 1);
    EXPECT_EQ(number, 2u);
    EXPECT_EQ(CK4Registry::SetPreviewOptions("bad\xff"), 0);
}

TEST_F(Registry, PathsOfDataAndPrograms) {
    std::string path;
    EXPECT_EQ(CK4Registry::GetDataPath(path), 1);
    EXPECT_EQ(path, folder.Path().string());
    EXPECT_EQ(CK4Registry::GetExePath(path), 1);
    EXPECT_EQ(path, fs::read_symlink("/proc/self/exe").parent_path().string());
}

}  // namespace

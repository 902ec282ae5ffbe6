#include "k4cmndlg/frame/StringTable.h"

#include <gtest/gtest.h>

#include <thread>

#include "k4cmndlg/frame/LibraryStrings.h"

using k4cmn::FormatMessage1;
using k4cmn::LoadString;
using k4cmn::ResourceScope;
using k4cmn::SetApplicationStrings;
using k4cmn::StringModule;
using k4cmn::StringRow;

namespace {

constexpr StringRow kApplication[] = {{700001, "application one"}, {700002, "application two"}};
constexpr StringRow kFirst[] = {{700002, "first two"}, {700003, "first three"}};
constexpr StringRow kSecond[] = {{700003, "second three"}, {700004, "second four"}};

/// The application's texts for the life of a test.
struct Application {
    Application() { SetApplicationStrings(kApplication); }
    ~Application() { SetApplicationStrings({}); }
};

}  // namespace

TEST(StringTable, UnknownNumberIsTheEmptyText) {
    EXPECT_EQ(LoadString(700999), "");
    EXPECT_EQ(LoadString(0), "");
}

TEST(StringTable, ApplicationComesBeforeModulesAndModulesInTheirOrder) {
    const Application application;
    const StringModule first(kFirst);
    const StringModule second(kSecond);
    EXPECT_EQ(LoadString(700001), "application one");
    EXPECT_EQ(LoadString(700002), "application two");
    EXPECT_EQ(LoadString(700003), "first three");
    EXPECT_EQ(LoadString(700004), "second four");
}

TEST(StringTable, ModuleThatIsUnloadedTakesItsTextsWithIt) {
    {
        const StringModule first(kFirst);
        EXPECT_EQ(LoadString(700003), "first three");
    }
    EXPECT_EQ(LoadString(700003), "");
}

TEST(StringTable, ModuleLoadedTwiceStaysUntilTheLastIsUnloaded) {
    const StringModule once(kFirst);
    { const StringModule again(kFirst); }
    EXPECT_EQ(LoadString(700003), "first three");
}

TEST(ResourceScope, ItsTableIsInFrontForItsLifeAndTheApplicationsComesBack) {
    const Application application;
    const StringModule second(kSecond);
    {
        const ResourceScope own(kFirst);
        EXPECT_EQ(LoadString(700002), "first two");
        EXPECT_EQ(LoadString(700001), "application one");
        EXPECT_EQ(LoadString(700004), "second four");
    }
    EXPECT_EQ(LoadString(700002), "application two");
    EXPECT_EQ(LoadString(700003), "second three");
}

TEST(ResourceScope, InnermostComesFirstWhenScopesNest) {
    const ResourceScope outer(kFirst);
    {
        const ResourceScope inner(kSecond);
        EXPECT_EQ(LoadString(700003), "second three");
        EXPECT_EQ(LoadString(700002), "first two");
    }
    EXPECT_EQ(LoadString(700003), "first three");
}

TEST(ResourceScope, HoldsForItsOwnThreadOnly) {
    const ResourceScope own(kFirst);
    std::string elsewhere = "not asked";
    std::thread([&] { elsewhere = LoadString(700003); }).join();
    EXPECT_EQ(elsewhere, "");
    EXPECT_EQ(LoadString(700003), "first three");
}

namespace {

struct LibraryRow {
    const char* name;
    std::uint32_t id;
    const char* text;
};

// clang-format off: one row a line.
constexpr LibraryRow kLibraryRows[] = {
    {"FileColumns", 102,
     "Name                       ,         Size,Type                , Modified                "},
    {"FoundColumns", 103,
     "Name                       , In Folder                 ,         Size,Type                , "
     "Modified                "},
    {"DownloadColumns", 32803,
     "Command           ,Param 1                        ,Param 2                       ,     "
     "Param3               , Param4    "},
    {"ConnectColumns", 32804, "Service               ,   Phone Book Entry,   Connected State"},
    {"Integer", 0xF110, "Enter an integer."},
    {"Range", 0xF112, "Enter an integer between %1 and %2."},
    {"Length", 0xF114, "Enter no more than %1 characters."},
};
// clang-format on

class LibraryText : public testing::TestWithParam<LibraryRow> {};

}  // namespace

TEST_P(LibraryText, NumberHasItsExactText) {
    const ResourceScope library(k4cmn::LibraryStrings());
    EXPECT_EQ(LoadString(GetParam().id), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Rows, LibraryText, testing::ValuesIn(kLibraryRows),
                         [](const auto& row) { return row.param.name; });

TEST(LibraryText, NoNumberIsThereTwice) {
    const k4cmn::StringTable table = k4cmn::LibraryStrings();
    EXPECT_EQ(table.size(), std::size(kLibraryRows));
    for (std::size_t i = 0; i < table.size(); ++i) {
        for (std::size_t j = i + 1; j < table.size(); ++j)
            EXPECT_NE(table[i].id, table[j].id);
    }
}

TEST(FormatMessage1, PutsArgumentsInTheirPlaces) {
    EXPECT_EQ(FormatMessage1("Enter an integer between %1 and %2.", {"-7", "16"}),
              "Enter an integer between -7 and 16.");
    EXPECT_EQ(FormatMessage1("%2 before %1, %2", {"a", "b"}), "b before a, b");
}

TEST(FormatMessage1, PlaceWithoutArgumentBecomesNothing) {
    EXPECT_EQ(FormatMessage1("<%1|%2>", {"a"}), "<a|>");
    EXPECT_EQ(FormatMessage1("%9", {}), "");
}

TEST(FormatMessage1, OtherPercentSignsStay) {
    EXPECT_EQ(FormatMessage1("100% of %0 %x %", {"a"}), "100% of %0 %x %");
    EXPECT_EQ(FormatMessage1("", {"a"}), "");
}

TEST(FormatMessage1, PlacesInsideAnArgumentAreOnlyText) {
    EXPECT_EQ(FormatMessage1("%1 %2", {"%2", "%1"}), "%2 %1");
}

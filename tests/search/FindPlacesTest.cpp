#include "k4cmndlg/search/FindPlaces.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/StoreFixture.h"

namespace k4test {
namespace {

using k4cmn::kDriveData;
using k4cmn::PlaceImage;
using k4cmn::PlaceItem;
using k4cmn::PlacePath;
using k4cmn::PlacesBelow;
using k4cmn::ReadPlace;
using k4cmn::SearchPlace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Places over a real store: the servers "C:" and "D:", and removable drives as a test makes them.
class FindPlaces : public StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"D:", "C:"});
        for (const char* library : {"Default", "Winter"})
            MakeFolder("C:\\" + std::string(kType) + ".Sign\\" + library + ".Lib");
        MakeFolder("C:\\" + std::string(kPaletteType) + ".Sign\\Default.Lib");
        MakeFolder("C:\\" + std::string(kOtherType) + ".Sign");
        MakeFolder("C:\\NoDots.Sign");
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\NoLibrary");
        MakeFile("C:\\a.b.c.Sign");
        MakeFile("C:\\" + std::string(kType) + ".Sign\\file.Lib");
        MakeFolder("D:\\");
    }
    /// Makes a removable drive, with a medium in it or not.
    void MakeDrive(char letter, bool hasMedium) {
        const std::filesystem::path medium =
            std::filesystem::path(home.Path()) / (std::string("medium") + letter);
        if (hasMedium)
            std::filesystem::create_directories(medium);
        std::filesystem::create_directory_symlink(
            medium, std::filesystem::path(home.Path()) / "drives" / std::string(1, letter));
    }
    static PlaceItem SignTypeItem(const char* text) { return {text, PlaceImage::SignType}; }
    static PlaceItem LibraryItem(const char* text) { return {text, PlaceImage::Library, 0, false}; }
    static PlaceItem Notice(const char* text) { return {text, PlaceImage::Notice, 0, false}; }
};

// The root ------------------------------------------------------------------------------------

TEST_F(FindPlaces, TheRootHasTheDrivesWithAMediumAndThenFileServers) {
    MakeDrive('A', true);
    MakeDrive('B', false);
    MakeDrive('G', true);
    EXPECT_THAT(k4cmn::RootPlaces(),
                ElementsAre(PlaceItem{"A:", PlaceImage::Server, kDriveData},
                            PlaceItem{"G:", PlaceImage::Server, kDriveData},
                            PlaceItem{"File Servers", PlaceImage::FileServers, 0, false}));
}

TEST_F(FindPlaces, WithoutDrivesTheRootHasFileServersAlone) {
    const std::vector<PlaceItem> root = k4cmn::RootPlaces();
    ASSERT_EQ(root.size(), 1U);
    EXPECT_EQ(root.front().text, "File Servers");
}

TEST_F(FindPlaces, ADriveCountsIfItsRootCanBeAsked) {
    MakeDrive('A', true);
    MakeDrive('B', false);
    EXPECT_EQ(k4cmn::CheckRM("A:\\"), 1);
    EXPECT_EQ(k4cmn::CheckRM("B:\\"), 0);
    EXPECT_EQ(k4cmn::CheckRM("Q:\\"), 0);
    k4cmn::Provided<k4cmn::StoreAccess>::Install(nullptr);
    EXPECT_EQ(k4cmn::CheckRM("A:\\"), 0);
}

// What stands below ---------------------------------------------------------------------------

TEST_F(FindPlaces, BelowFileServersAreTheServersInTheirOrder) {
    EXPECT_THAT(PlacesBelow({{"File Servers"}, 0}),
                ElementsAre(PlaceItem{"D:", PlaceImage::Server, 0},
                            PlaceItem{"C:", PlaceImage::Server, 1}));
    Configure({{"Local", "", {}, {}}});
    EXPECT_THAT(PlacesBelow({{"File Servers"}, 0}), IsEmpty());
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    EXPECT_THAT(PlacesBelow({{"File Servers"}, 0}), IsEmpty()) << "a list that can't be read";
}

TEST_F(FindPlaces, BelowAServerAreTheSignTypesOfItsFolder) {
    const auto signTypes = UnorderedElementsAre(SignTypeItem(kType), SignTypeItem(kPaletteType),
                                                SignTypeItem(kOtherType));
    EXPECT_THAT(PlacesBelow({{"File Servers", "C:"}, 0}), signTypes);
    EXPECT_THAT(PlacesBelow({{"C:"}, kDriveData}), signTypes);
}

TEST_F(FindPlaces, BelowASignTypeAreItsLibraries) {
    const auto libraries = UnorderedElementsAre(LibraryItem("Default"), LibraryItem("Winter"));
    EXPECT_THAT(PlacesBelow({{"File Servers", "C:", kType}, 0}), libraries);
    EXPECT_THAT(PlacesBelow({{"C:", kType}, kDriveData}), libraries);
}

TEST_F(FindPlaces, NoticesSayWhereNothingIs) {
    for (const char* server : {"D:", "Q:", "\\\\down\\share", "", "C:\\a.b.c"}) {
        EXPECT_THAT(PlacesBelow({{"File Servers", server}, 0}), ElementsAre(Notice("No signs")))
            << server;
        EXPECT_THAT(PlacesBelow({{server}, kDriveData}), ElementsAre(Notice("No signs")));
    }
    for (const char* signType : {kOtherType, "gone", "", "No signs"})
        EXPECT_THAT(PlacesBelow({{"File Servers", "C:", signType}, 0}),
                    ElementsAre(Notice("No Libraries")))
            << signType;
    EXPECT_THAT(PlacesBelow({{"C:", kOtherType}, kDriveData}), ElementsAre(Notice("No Libraries")));
}

TEST_F(FindPlaces, ALibraryHasNothingBelow) {
    EXPECT_THAT(PlacesBelow({{"File Servers", "C:", kType, "Default"}, 0}), IsEmpty());
    EXPECT_THAT(PlacesBelow({{"C:", kType, "Default"}, kDriveData}), IsEmpty());
}

TEST_F(FindPlaces, APlaceholderLooksLikeWhatItStandsFor) {
    EXPECT_EQ(k4cmn::Placeholder({{"A:"}, kDriveData}),
              (PlaceItem{"", PlaceImage::SignType, 0, false}));
    EXPECT_EQ(k4cmn::Placeholder({{"File Servers", "C:"}, 0}),
              (PlaceItem{"", PlaceImage::SignType, 0, false}));
    EXPECT_EQ(k4cmn::Placeholder({{"File Servers", "C:", kType}, 0}),
              (PlaceItem{"", PlaceImage::Library, 0, false}));
    EXPECT_EQ(k4cmn::Placeholder({{"A:", kType}, kDriveData}),
              (PlaceItem{"", PlaceImage::Library, 0, false}));
}

// What choosing an item means -----------------------------------------------------------------

TEST_F(FindPlaces, AnItemIsReadByItsDepth) {
    const struct {
        PlacePath path;
        SearchPlace place;
    } rows[] = {
        {{{"A:"}, kDriveData}, {"A:", "", ""}},
        {{{"File Servers"}, 0}, {"File Servers", "", ""}},
        {{{"A:", "type"}, kDriveData}, {"A:", "type", ""}},
        {{{"File Servers", "C:"}, 0}, {"C:", "", ""}},
        {{{"A:", "type", "library"}, kDriveData}, {"A:", "type", "library"}},
        {{{"File Servers", "C:", "type"}, 0}, {"C:", "type", ""}},
        {{{"File Servers", "C:", "type", "library"}, 0}, {"C:", "type", "library"}},
        // Placeholders and notices are taken for what they stand in the place of.
        {{{"A:", ""}, kDriveData}, {"A:", "", ""}},
        {{{"A:", "No signs"}, kDriveData}, {"A:", "No signs", ""}},
        {{{"A:", "type", "No Libraries"}, kDriveData}, {"A:", "type", "No Libraries"}},
        {{{"File Servers", "C:", ""}, 0}, {"C:", "", ""}},
        {{{"File Servers", "C:", "No signs"}, 0}, {"C:", "No signs", ""}},
        {{{"File Servers", "C:", "type", "No Libraries"}, 0}, {"C:", "type", "No Libraries"}},
        {{{}, 0}, {"", "", ""}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadPlace(row.path), row.place) << testing::PrintToString(row.path.texts);
}

}  // namespace
}  // namespace k4test

#include <QLabel>

#include "tests/signctl/CreateSignFoldersFixture.h"
#include "tests/support/FontScale.h"

namespace k4test {
namespace {

TEST_F(CreateSignFolders, OpensWithTheSmallestUsualSign) {
    EXPECT_EQ(dialog.ResourceId(), 145u);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Create New Sign Folders"));
    Look([&] {
        EXPECT_EQ(Folder(), "Folder: 8x16.Mono1.Incand.Sign");
        EXPECT_EQ(Text(kRows), "8");
        EXPECT_EQ(Text(kColumns), "16");
        EXPECT_EQ(Index(kColor), 0);
        EXPECT_EQ(Index(kPixel), 0);
        EXPECT_FALSE(Of<QCheckBox>(kPalette)->isChecked());
        for (const int id : {kRows, kColumns, kRowSpin, kColumnSpin, kColor, kPixel, kPalette})
            EXPECT_TRUE(IsEnabled(id)) << id;
    });
}

TEST_F(CreateSignFolders, OffersTheLongNamesOfTheTechnologies) {
    Look([&] {
        const char* const colors[] = {"Monochrome",
                                      "Quad Color",
                                      "Tri Color (RG LED)",
                                      "Quad Color 256 Shades",
                                      "Monochrome 4 Shades",
                                      "Quad Color 65,000 Shades",
                                      "Monochrome 16 Shades",
                                      "Tri color (RG LED) 256 Shades",
                                      "Quad Color 16 Million Shades",
                                      "RGB LED 64 Shades",
                                      "RGB LED 4096 Shades",
                                      "RGB LED 16 Million Shades",
                                      "Monochrome 64 Shades",
                                      "RGB LED 32,768 Shades (DIB)",
                                      "RGB LED 16 Million Shades (DIB)"};
        const auto* color = Of<QComboBox>(kColor);
        ASSERT_EQ(color->count(), 15);
        for (int index = 0; index < 15; ++index)
            EXPECT_EQ(color->itemText(index).toStdString(), colors[index]);
        const auto* pixel = Of<QComboBox>(kPixel);
        ASSERT_EQ(pixel->count(), 3);
        EXPECT_EQ(pixel->itemText(0), QStringLiteral("Incandescent"));
        EXPECT_EQ(pixel->itemText(1), QStringLiteral("Reflective"));
        EXPECT_EQ(pixel->itemText(2), QStringLiteral("LED"));
    });
}

TEST_F(CreateSignFolders, HasItsLabels) {
    const std::pair<const char*, int> labels[] = {{"&Rows:", kRows},
                                                  {"&Columns:", kColumns},
                                                  {"Color &Technology:", kColor},
                                                  {"&Pixel Technology:", kPixel},
                                                  {"&Select Servers:", kServers}};
    for (const auto& [text, id] : labels) {
        int found = 0;
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (label->text() != QLatin1String(text))
                continue;
            ++found;
            ASSERT_NE(label->buddy(), nullptr);
            EXPECT_EQ(label->buddy()->property("controlId").toInt(), id);
        }
        EXPECT_EQ(found, 1) << text;
    }
    EXPECT_EQ(Text(kPalette), "Create Palette &Folder");
    EXPECT_EQ(Text(kOk), "OK");
    EXPECT_EQ(Text(kCancel), "Cancel");
}

TEST_F(CreateSignFolders, OpensWithWhatItWasInitializedWith) {
    EXPECT_EQ(dialog.Initialize(64, 192, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED, 0), 1);
    Look([&] {
        EXPECT_EQ(Folder(), "Folder: 64x192.RGB16M.LED.Sign");
        EXPECT_EQ(Text(kRows), "64");
        EXPECT_EQ(Text(kColumns), "192");
        EXPECT_EQ(Index(kColor), 11);
        EXPECT_EQ(Index(kPixel), 2);
        EXPECT_TRUE(IsEnabled(kRows));
    });
}

TEST_F(CreateSignFolders, AFixedSignTypeCanOnlyBecomeItsPaletteFolder) {
    dialog.Initialize(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, 1);
    Look([&] {
        const auto expectGrey = [&] {
            for (const int id : {kRows, kColumns, kRowSpin, kColumnSpin, kColor, kPixel})
                EXPECT_FALSE(IsEnabled(id)) << id;
            EXPECT_TRUE(IsEnabled(kPalette));
            EXPECT_TRUE(IsEnabled(kServers));
        };
        EXPECT_EQ(Folder(), "Folder: 16x80.Mono1.LED.Sign");
        expectGrey();
        Click(dialog, kPalette);
        EXPECT_EQ(Folder(), "Folder: 16x80.Mono1.LED.Palette.Sign");
        expectGrey();
        Click(dialog, kPalette);
        EXPECT_EQ(Folder(), "Folder: 16x80.Mono1.LED.Sign");
        expectGrey();
    });
}

TEST_F(CreateSignFolders, TheLongestSignTypeFitsItsDialog) {
    for (const double factor : {1.0, 2.0}) {
        const FontScale scale(factor);
        CK4CmnDlgCreateSignFolders any(nullptr);
        RunModal(any, [&] {
            const auto* folder = Item<QLabel>(any, kFolder);
            TypeOver(any, kRows, QStringLiteral("2048"));
            TypeOver(any, kColumns, QStringLiteral("16384"));
            auto* color = Item<QComboBox>(any, kColor);
            color->setCurrentIndex(K4_SIGN_COLOR_RGB32KB);
            Q_EMIT color->activated(K4_SIGN_COLOR_RGB32KB);
            Click(any, kPalette);
            EXPECT_EQ(TextOf(any, kFolder), "Folder: 2048x16384.RGB32KB.LED.Palette.Sign");
            EXPECT_GE(folder->width(), folder->sizeHint().width());
            EXPECT_GE(folder->height(), folder->sizeHint().height());
            any.EndDialog(IDCANCEL);
        });
    }
}

struct BadStart {
    const char* what;
    std::uint32_t rows;
    std::uint32_t columns;
    int color;
    int pixel;
    int fixed;
    bool isFixed;
    const char* folder;
};

class CreateSignFoldersBadStart : public CreateSignFolders,
                                  public testing::WithParamInterface<BadStart> {};

TEST_P(CreateSignFoldersBadStart, OpensAllTheSame) {
    const BadStart& start = GetParam();
    EXPECT_EQ(
        dialog.Initialize(start.rows, start.columns, static_cast<tag_K4_SIGN_COLOR>(start.color),
                          static_cast<tag_K4_PIXEL_TECH>(start.pixel), start.fixed),
        1);
    Look([&] {
        EXPECT_EQ(Folder(), start.folder);
        EXPECT_EQ(IsEnabled(kColor), !start.isFixed);
        EXPECT_EQ(IsEnabled(kRows), !start.isFixed);
        EXPECT_EQ(Text(kRows), std::to_string(start.rows));
    });
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CreateSignFoldersBadStart,
    testing::Values(
        BadStart{"ColorAbove", 8, 16, 16, 1, 1, false, "Folder: 8x16.Mono1.Incand.Sign"},
        BadStart{"ColorBelow", 8, 16, -1, 1, 1, false, "Folder: 8x16.Mono1.Incand.Sign"},
        BadStart{"PixelAbove", 8, 16, 0, 4, 1, false, "Folder: 8x16.Mono1.Incand.Sign"},
        BadStart{"PixelBelow", 8, 16, 0, 0, 1, false, "Folder: 8x16.Mono1.Incand.Sign"},
        BadStart{"ColorWithoutName", 8, 16, 15, 3, 1, true, "Folder: 8x16.Mono1.LED.Sign"},
        BadStart{"OddFlag", 8, 16, 14, 3, -5, true, "Folder: 8x16.RGB16MB.LED.Sign"},
        BadStart{"NoSize", 0, 0, 0, 1, 0, false, "Folder: 0x0.Mono1.Incand.Sign"},
        BadStart{"HugeSize", 4294967295u, 4000000000u, 0, 1, 1, true,
                 "Folder: 4294967295x4000000000.Mono1.Incand.Sign"},
        BadStart{"InvalidPair", 8, 16, 1, 3, 1, true, "Folder: 8x16.Quad16.LED.Sign"}),
    [](const auto& row) { return row.param.what; });

TEST_F(CreateSignFolders, ListsEveryServerOfThisSystemUnticked) {
    Configure({{"Local", "", {"A:", "\\\\HOST\\SHARE", "/srv/Schilder \xC3\xA4"}, {}},
               {"North", "", {"C:"}, {}}});
    Look([&] {
        const auto* list = Of<QListWidget>(kServers);
        ASSERT_EQ(list->count(), 3);
        EXPECT_EQ(list->item(0)->text(), QStringLiteral("A:"));
        EXPECT_EQ(list->item(1)->text(), QStringLiteral("\\\\HOST\\SHARE"));
        EXPECT_EQ(list->item(2)->text(), QString::fromUtf8("/srv/Schilder \xC3\xA4"));
        for (int row = 0; row < 3; ++row)
            EXPECT_FALSE(IsTicked(row));
    });
}

TEST_F(CreateSignFolders, OpensWithoutServers) {
    ConfigureLocal({});
    EXPECT_EQ(Run([&] {
                  EXPECT_EQ(Of<QListWidget>(kServers)->count(), 0);
                  messages.Expect("No servers selected.");
                  Click(dialog, kOk);
                  EXPECT_TRUE(dialog.isVisible());
                  Click(dialog, kCancel);
              }),
              IDCANCEL);
}

TEST_F(CreateSignFolders, OpensWhereTheServersCantBeRead) {
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    Look([&] {
        EXPECT_EQ(Of<QListWidget>(kServers)->count(), 0);
        EXPECT_EQ(Folder(), "Folder: 8x16.Mono1.Incand.Sign");
    });
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(&registry);
}

TEST_F(CreateSignFolders, OpenedAgainKeepsItsSignTypeAndReadsTheServersAnew) {
    Look([&] {
        Enter(kRows, "24");
        Choose(kColor, 2);
        Click(dialog, kPalette);
        Tick(0);
        EXPECT_TRUE(IsTicked(0));
    });
    ConfigureLocal({"A:", "B:", "C:"});
    Look([&] {
        EXPECT_EQ(Folder(), "Folder: 24x16.Tri3.LED.Palette.Sign");
        EXPECT_TRUE(Of<QCheckBox>(kPalette)->isChecked());
        EXPECT_FALSE(IsEnabled(kRows));
        EXPECT_EQ(Of<QListWidget>(kServers)->count(), 3);
        EXPECT_FALSE(IsTicked(0));
    });
}

}  // namespace
}  // namespace k4test

#include <QElapsedTimer>
#include <QLabel>
#include <QToolButton>

#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

class ThumbnailPage : public Properties {
 protected:
    void Show(const std::string& path) {
        ASSERT_EQ(sheet.ShowFileProperties(path), 1);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
        ShowThumbnail(sheet);
    }
    QLineEdit* Field() const { return Item<QLineEdit>(sheet, kFrame); }
    std::string Number() const { return TextOf(sheet, kFrame); }
    void Type(const char* text) { TypeOver(sheet, kFrame, QString::fromUtf8(text)); }
    QColor At(int x, int y) const { return Painted(sheet, {x, y}); }
    /// The colour of a lamp of the second and of the first frame, which are all lit and all dark.
    QColor Lit() {
        Type("2");
        return At(8, 8);
    }
    QColor Dark() {
        Type("1");
        return At(8, 8);
    }

    CK4CmnDlgFileProp sheet{"Properties", &parent, kGeneral, kModeless};
};

TEST_F(ThumbnailPage, HasItsTitleAndLabels) {
    EXPECT_EQ(sheet.GetPage(kThumbnail)->windowTitle().toStdString(), "Thumbnail");
    EXPECT_EQ(TextOf(sheet, 1251), "Thumbnail &Frame:");
    EXPECT_EQ(TextOf(sheet, 1243), "of");
    EXPECT_EQ(TextOf(sheet, 1252), "Thumbnail:");
    EXPECT_EQ(Item<QLabel>(sheet, 1251)->buddy(), Field());
}

TEST_F(ThumbnailPage, ShowsTheFrameThatStandsForTheSequence) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    EXPECT_EQ(Number(), "2");
    EXPECT_EQ(TextOf(sheet, kFrameCount), "3");
    auto* spin = Item<CSpinButtonCtrl>(sheet, kFrameSpin);
    EXPECT_EQ(spin->Lower(), 1);
    EXPECT_EQ(spin->Upper(), 3);
    EXPECT_TRUE(Enabled(sheet, kFrame));
    EXPECT_TRUE(Enabled(sheet, kFrameSpin));
}

TEST_F(ThumbnailPage, WaitsAMomentEachTimeItIsShown) {
    Make("A:\\One.SQ4");
    ASSERT_EQ(sheet.ShowFileProperties("A:\\One.SQ4"), 1);
    for (int round = 0; round < 2; ++round) {
        QElapsedTimer shown;
        shown.start();
        ShowPage(sheet, kThumbnail);
        EXPECT_FALSE(Box(sheet).HasPicture());
        EXPECT_TRUE(QTest::qWaitFor([&] { return Box(sheet).HasPicture(); }));
        EXPECT_GE(shown.elapsed(), 45);
        ShowPage(sheet, kAdvanced);
    }
}

TEST_F(ThumbnailPage, LeftBeforeTheWaitIsOverItStaysEmpty) {
    Make("A:\\One.SQ4");
    ASSERT_EQ(sheet.ShowFileProperties("A:\\One.SQ4"), 1);
    ShowPage(sheet, kThumbnail);
    ShowPage(sheet, kGeneral);
    QElapsedTimer left;
    left.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return left.elapsed() > 120; }));
    EXPECT_FALSE(Box(sheet).HasPicture());
}

TEST_F(ThumbnailPage, LeavingItFreesThePicture) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    EXPECT_TRUE(Box(sheet).HasPicture());
    ShowPage(sheet, kGeneral);
    EXPECT_FALSE(Box(sheet).HasPicture());
    ShowThumbnail(sheet);
    EXPECT_TRUE(Box(sheet).HasPicture());
    sheet.DestroyWindow();
    EXPECT_FALSE(Box(sheet).HasPicture());
}

struct StoredRow {
    int stored;
    const char* shown;
};

class ThumbnailPageStored : public ThumbnailPage, public testing::WithParamInterface<StoredRow> {};

TEST_P(ThumbnailPageStored, IsShownWithinTheFrames) {
    k4suite::SequenceFacts facts = Facts();
    facts.thumbnailFrame = static_cast<std::uint16_t>(GetParam().stored);
    Make("A:\\One.SQ4", facts);
    Show("A:\\One.SQ4");
    EXPECT_EQ(Number(), GetParam().shown);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.GetModifiedFlag(), 0) << "nobody changed it";
    EXPECT_EQ(sheet.GetFileProperties()->thumbnailFrame,
              static_cast<std::uint32_t>(GetParam().stored));
}

INSTANTIATE_TEST_SUITE_P(Frames, ThumbnailPageStored,
                         testing::Values(StoredRow{0, "1"}, StoredRow{1, "1"}, StoredRow{3, "3"},
                                         StoredRow{4, "1"}, StoredRow{65535, "1"}));

struct TypedRow {
    const char* what;
    const char* typed;
    const char* shown;
    std::uint32_t stored;
};

class ThumbnailPageTyped : public ThumbnailPage, public testing::WithParamInterface<TypedRow> {};

TEST_P(ThumbnailPageTyped, IsHeldWithinTheFramesAndShown) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    Type(GetParam().typed);
    EXPECT_EQ(Number(), GetParam().shown);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.GetFileProperties()->thumbnailFrame, GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ThumbnailPageTyped,
    testing::Values(TypedRow{"Within", "3", "3", 3}, TypedRow{"Above", "9", "3", 3},
                    TypedRow{"FarAbove", "99999999999", "3", 3}, TypedRow{"Zero", "0", "1", 1},
                    TypedRow{"Nothing", "", "1", 1}, TypedRow{"Letters", "x", "2", 2},
                    TypedRow{"Minus", "-", "2", 2}),
    [](const auto& row) { return row.param.what; });

TEST_F(ThumbnailPage, AChangeOfTheNumberRepaintsThePicture) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    EXPECT_NE(Lit(), Dark());
    Type("3");
    EXPECT_EQ(At(4, 8), Lit()) << "left half";
    Type("3");
    EXPECT_EQ(At(30, 8), Dark()) << "right half";
}

TEST_F(ThumbnailPage, TheSpinStepsThroughTheFrames) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    const QColor lit = At(30, 8);
    QTest::keyClick(Field(), Qt::Key_Up);
    EXPECT_EQ(Number(), "3");
    EXPECT_EQ(At(4, 8), lit) << "painted: its left half is lit";
    EXPECT_NE(At(30, 8), lit);
    QTest::keyClick(Field(), Qt::Key_Up);
    EXPECT_EQ(Number(), "3");
    for (int step = 0; step < 4; ++step)
        QTest::keyClick(Field(), Qt::Key_Down);
    EXPECT_EQ(Number(), "1");
    const auto arrows = Item<QWidget>(sheet, kFrameSpin)->findChildren<QToolButton*>();
    ASSERT_EQ(arrows.size(), 2);
    QTest::mouseClick(arrows.front(), Qt::LeftButton);
    EXPECT_EQ(Number(), "2");
}

TEST_F(ThumbnailPage, TheSpinGoesBeyondWhatASignedWordHolds) {
    Make("A:\\One.SQ4", Facts(), [](k4suite::SequenceWriter& writer) {
        const std::vector<std::uint8_t> bulbs(16);
        for (int frame = 0; frame < 40000; ++frame)
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, bulbs));
    });
    Show("A:\\One.SQ4");
    Type("32767");
    QTest::keyClick(Field(), Qt::Key_Up);
    QTest::keyClick(Field(), Qt::Key_Up);
    EXPECT_EQ(Number(), "32769");
    Type("65535");
    EXPECT_EQ(Number(), "40000");
}

TEST_F(ThumbnailPage, ARecordOfMoreFramesThanASignedNumberHoldsStaysUntouched) {
    Make("A:\\One.SQ4");
    const auto file = Opened("A:\\One.SQ4");
    CK4CmnSeqFileProperties record;
    record.filePath = "A:\\One.SQ4";
    for (const std::uint32_t frame : {3U, 0x80000000U, 0xFFFFFFFFU}) {
        record.frameCount = 0xFFFFFFFF;
        record.thumbnailFrame = frame;
        CK4CmnPSProperties given("Properties", nullptr, kThumbnail, kModeless);
        ASSERT_EQ(given.ShowFileProperties(file.get(), &record), 1);
        EXPECT_TRUE(given.ReadActivePage());
        EXPECT_EQ(given.GetModifiedFlag(), 0);
        EXPECT_EQ(given.GetFileProperties()->thumbnailFrame, frame);
        EXPECT_EQ(TextOf(given, kFrameCount), "2147483647");
        EXPECT_EQ(TextOf(given, kFrame), frame == 3 ? "3" : "2147483647");
    }
}

TEST_F(ThumbnailPage, ADifferentNumberMarksTheSheet) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    Type("3");
    EXPECT_EQ(sheet.GetFileProperties()->thumbnailFrame, 2U) << "not read yet";
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    EXPECT_EQ(sheet.GetFileProperties()->thumbnailFrame, 3U);
}

TEST_F(ThumbnailPage, AnEqualNumberClearsTheMarkOfTheWholeSheet) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    ShowPage(sheet, kAdvanced);
    TypeOver(sheet, kKeywords, QStringLiteral("lost"));
    ShowThumbnail(sheet);
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "lost") << "the record keeps it";
}

TEST_F(ThumbnailPage, ReadBeforeItHasFilledItselfItSpeaksForItsRecord) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    Type("3");
    ShowPage(sheet, kGeneral);
    sheet.GetFileProperties()->thumbnailFrame = 1;
    sheet.SetModifiedFlag(1);
    ShowPage(sheet, kThumbnail);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.GetFileProperties()->thumbnailFrame, 1U);
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(ThumbnailPage, IsDisabledWhereNothingMayBeChanged) {
    k4suite::SequenceFacts facts = Facts();
    facts.previewOnly = true;
    Make("A:\\One.SQ4", facts);
    Show("A:\\One.SQ4");
    EXPECT_FALSE(Enabled(sheet, kFrame));
    EXPECT_FALSE(Enabled(sheet, kFrameSpin));
    EXPECT_TRUE(Box(sheet).HasPicture());
}

TEST_F(ThumbnailPage, FollowsToAnotherFileAtOnce) {
    k4suite::SequenceFacts facts = Facts();
    facts.thumbnailFrame = 1;
    facts.columns = 32;
    Make("A:\\One.SQ4");
    Make("A:\\Two.SQ4", facts);
    Show("A:\\One.SQ4");
    const QColor lit = At(8, 8);
    ASSERT_EQ(sheet.ShowFileProperties("A:\\Two.SQ4"), 1);
    EXPECT_EQ(Number(), "1");
    EXPECT_EQ(Box(sheet).size(), QSize(67, 17));
    EXPECT_NE(At(8, 8), lit);
}

TEST_F(ThumbnailPage, FramesOfASequenceWithoutAnyAreNone) {
    Make("A:\\One.SQ4", Facts(), [](k4suite::SequenceWriter&) {});
    ASSERT_EQ(sheet.ShowFileProperties("A:\\One.SQ4"), 1);
    ShowPage(sheet, kThumbnail);
    EXPECT_TRUE(QTest::qWaitFor([&] { return TextOf(sheet, kFrameCount) == "0"; }));
    EXPECT_EQ(Number(), "1");
    EXPECT_EQ(At(8, 8), QColor(Qt::white));
    QTest::keyClick(Field(), Qt::Key_Up);
    EXPECT_EQ(Number(), "1");
}

}  // namespace
}  // namespace k4test

#include <QLabel>

#include "k4cmndlg/frame/PathField.h"
#include "suite/sequence/IncludeField.h"
#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

/// The page "General", over a sheet that opens the file by its path, or is given the open file.
class GeneralPage : public Properties {
 protected:
    void Show(const std::string& path) {
        ASSERT_EQ(sheet.ShowFileProperties(path), 1);
        ASSERT_EQ(sheet.GetActiveIndex(), kGeneral);
    }
    std::string Of(int controlId) const { return TextOf(sheet, controlId); }

    CK4CmnDlgFileProp sheet{"Properties", &parent, kGeneral, kModeless};
};

TEST_F(GeneralPage, ShowsTheFactsOfTheFile) {
    Make("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4");
    Show("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4");
    EXPECT_EQ(Of(kFileName), "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4");
    EXPECT_EQ(Of(kFrameSize), " 7 x 16");
    EXPECT_EQ(Of(kPixelTech), "LED");
    EXPECT_EQ(Of(kColorTech), "Mono1");
    EXPECT_EQ(Of(kDuration), " 1.50 Seconds");
    EXPECT_EQ(Of(kFrames), " 3");
    EXPECT_FALSE(Item<QWidget>(sheet, kPreviewOnly)->isVisible());
}

TEST_F(GeneralPage, HasItsTitleAndLabels) {
    EXPECT_EQ(sheet.GetPage(kGeneral)->windowTitle().toStdString(), "General");
    const std::pair<int, const char*> labels[] = {
        {1211, "File Name:"},
        {1212, "Frame Size:"},
        {1213, "Pixel Tech:"},
        {1214, "Color Tech:"},
        {1215, "Duration:"},
        {1216, "Frames:"},
        {kPreviewOnly, "Preview Only Sequence"},
    };
    for (const auto& [id, text] : labels)
        EXPECT_EQ(Of(id), text);
}

TEST_F(GeneralPage, CanOnlyBeRead) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    auto* name = Item<QLineEdit>(sheet, kFileName);
    EXPECT_TRUE(name->isReadOnly());
    QTest::keyClicks(name, QStringLiteral("x"));
    EXPECT_EQ(Of(kFileName), "A:\\One.SQ4");
}

TEST_F(GeneralPage, NameOfALongPathIsSeen) {
    const std::string path = "A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\" + std::string(30, 'f') +
                             ".Fld\\" + std::string(30, 'g') + ".Fld\\Goal.SQ4";
    Make(path);
    Show(path);
    auto* name = Item<k4cmn::PathField>(sheet, kFileName);
    Item<QWidget>(sheet, kCancel)->setFocus();
    EXPECT_TRUE(name->Shown().startsWith(QStringLiteral("A:\\")));
    EXPECT_TRUE(name->Shown().contains(QChar(0x2026)));
    EXPECT_TRUE(name->Shown().endsWith(QStringLiteral("\\Goal.SQ4")));
    EXPECT_EQ(Of(kFileName), path);
    EXPECT_TRUE(name->toolTip().contains(QString::fromStdString(path)));
    EXPECT_EQ(name->cursorPosition(), name->text().size()) << "with the focus its end is in view";
}

TEST_F(GeneralPage, ShowsThatASequenceCanOnlyBePreviewed) {
    k4suite::SequenceFacts facts = Facts();
    facts.previewOnly = true;
    Make("A:\\One.SQ4", facts);
    Make("A:\\Two.SQ4");
    Show("A:\\One.SQ4");
    EXPECT_TRUE(Item<QWidget>(sheet, kPreviewOnly)->isVisible());
    Show("A:\\Two.SQ4");
    EXPECT_FALSE(Item<QWidget>(sheet, kPreviewOnly)->isVisible());
}

struct TechnologyRow {
    const char* what;
    int color;
    int pixel;
    const char* colorName;
    const char* pixelName;
};

class GeneralPageTechnology : public GeneralPage,
                              public testing::WithParamInterface<TechnologyRow> {};

TEST_P(GeneralPageTechnology, IsShownByItsShortColorAndLongPixelName) {
    k4suite::SequenceFacts facts = Facts();
    facts.color = tag_K4_SIGN_COLOR(GetParam().color);
    facts.pixel = tag_K4_PIXEL_TECH(GetParam().pixel);
    Make("A:\\One.SQ4", facts);
    Show("A:\\One.SQ4");
    EXPECT_EQ(Of(kColorTech), GetParam().colorName);
    EXPECT_EQ(Of(kPixelTech), GetParam().pixelName);
}

INSTANTIATE_TEST_SUITE_P(Rows, GeneralPageTechnology,
                         testing::Values(TechnologyRow{"Quad", 1, 1, "Quad16", "Incandescent"},
                                         TechnologyRow{"Reflective", 0, 2, "Mono1", "Reflective"},
                                         TechnologyRow{"LastColor", 14, 3, "RGB16MB", "LED"},
                                         TechnologyRow{"NoNames", 16, 4, "", ""},
                                         TechnologyRow{"Zero", 0, 0, "Mono1", ""},
                                         TechnologyRow{"Huge", -1, -1, "", ""}),
                         [](const auto& row) { return row.param.what; });

TEST_F(GeneralPage, TheDurationHoldsWhatIsIncluded) {
    Make("A:\\In.SQ4");
    Make("A:\\One.SQ4", Facts(), [](k4suite::SequenceWriter& writer) {
        const std::vector<std::uint8_t> bulbs(16);
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 250, bulbs));
        const std::vector<k4suite::IncludeField> fields{{1, "In.SQ4"}, {0, "In.SQ4"}};
        ASSERT_TRUE(writer.AddInclude(fields));
    });
    Show("A:\\One.SQ4");
    EXPECT_EQ(Of(kDuration), " 1.75 Seconds");
    EXPECT_EQ(Of(kFrames), " 2");
}

TEST_F(GeneralPage, TheDurationOfAFileOpenedByPathIsTheStoredOne) {
    Make("A:\\One.SQ4");
    auto file = library.Create();
    ASSERT_EQ(file->Open("A:\\One.SQ4", K4_OPEN_READWRITE), 1);
    file->SosData()->runTime = 9990;
    ASSERT_EQ(file->Save(), 1);
    Show("A:\\One.SQ4");
    EXPECT_EQ(Of(kDuration), " 9.99 Seconds");

    CK4CmnPSProperties given("Properties", nullptr, kGeneral, kModeless);
    CK4CmnSeqFileProperties record;
    record.filePath = "A:\\One.SQ4";
    ASSERT_EQ(given.ShowFileProperties(file.get(), &record), 1);
    EXPECT_EQ(TextOf(given, kDuration), " 1.50 Seconds") << "worked out from the frames";
}

TEST_F(GeneralPage, FollowsToAnotherFile) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 16;
    facts.columns = 80;
    Make("A:\\One.SQ4");
    Make("A:\\Two.SQ4", facts);
    Show("A:\\One.SQ4");
    Show("A:\\Two.SQ4");
    EXPECT_EQ(Of(kFileName), "A:\\Two.SQ4");
    EXPECT_EQ(Of(kFrameSize), " 16 x 80");
}

TEST_F(GeneralPage, ASequenceWithoutFramesHasNoDuration) {
    Make("A:\\One.SQ4", Facts(), [](k4suite::SequenceWriter&) {});
    Show("A:\\One.SQ4");
    EXPECT_EQ(Of(kFrames), " 0");
    EXPECT_EQ(Of(kDuration), " 0.00 Seconds");
}

TEST_F(GeneralPage, ShowsNamesAsTheyAre) {
    Make("A:\\R&D <b>.SQ4");
    Show("A:\\R&D <b>.SQ4");
    EXPECT_EQ(Of(kFileName), "A:\\R&D <b>.SQ4");
}

TEST_F(GeneralPage, IsRefilledWhenItComesToTheFront) {
    Make("A:\\One.SQ4");
    Show("A:\\One.SQ4");
    ShowPage(sheet, kAdvanced);
    sheet.GetFileProperties()->frameCount = 99;
    EXPECT_EQ(Of(kFrames), " 3");
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(Of(kFrames), " 99");
}

}  // namespace
}  // namespace k4test

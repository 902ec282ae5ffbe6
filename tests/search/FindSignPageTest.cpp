#include <QCheckBox>
#include <memory>

#include "tests/search/FindPagesFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

/// The page "Sign" in front.
class FindSign : public FindPages {
 protected:
    void SetUp() override {
        FindPages::SetUp();
        Open(kSign);
    }
    /// Opens the page with its controls enabled.
    void Enable() { Click(sheet, kEnable); }
    /// Writes both sizes without going into the fields.
    void Write(const char* rows, const char* columns) {
        Of<QLineEdit>(kRows)->setText(QLatin1String(rows));
        Of<QLineEdit>(kColumns)->setText(QLatin1String(columns));
    }
    /// Types a number into a field and leaves the field by the Tab key.
    void Enter(int field, const char* text) {
        Type(field, text);
        PressKey(sheet, Qt::Key_Tab);
    }
    std::vector<bool> Enabled() const {
        return {IsEnabled(kRows), IsEnabled(kColumns), IsEnabled(kColor), IsEnabled(kPixel)};
    }
};

TEST_F(FindSign, IsTemplate113WithItsControls) {
    EXPECT_EQ(sheet.sign.ResourceId(), 113U);
    EXPECT_EQ(sheet.sign.windowTitle().toStdString(), "Sign");
    EXPECT_EQ(Text(kEnable), "&Enable Sign Searching");
    EXPECT_EQ(CaptionOf(kRows), "&Rows:");
    EXPECT_EQ(CaptionOf(kColumns), "&Cols:");
    EXPECT_EQ(CaptionOf(kColor), "C&olor Technology:");
    EXPECT_EQ(CaptionOf(kPixel), "&Pixel Technology:");
    const std::unique_ptr<QObject> page(CK4CmnDlgFindSign::staticMetaObject.newInstance());
    EXPECT_NE(qobject_cast<CK4CmnDlgFindSign*>(page.get()), nullptr);
}

TEST_F(FindSign, ListsTheTechnologiesByTheNamesOfTheSearch) {
    EXPECT_THAT(
        Entries(kColor),
        ElementsAre("Monochrome", "Quad Color 16 Shades", "Tri Color (RG LED)",
                    "Quad Color 256 Shades", "Monochrome 4 Shades", "Quad Color 65535 Shades",
                    "Monochrome 16 Shades", "Tri Color (RG LED) 256 Shades",
                    "Quad Color 16 Million Shades", "RGB LED 64 Shades", "RGB LED 4096 Shades",
                    "RGB LED 16,777,216 Shades", "Monochrome 64 Shades",
                    "RGB LED 32,768 Shades (DIB)", "RGB LED 16 Million Shades (DIB)"));
    EXPECT_THAT(Entries(kPixel), ElementsAre("Incandescent", "Reflective", "LED"));
}

TEST_F(FindSign, BeginsOffAtTheSmallestSign) {
    EXPECT_EQ(sheet.sign.m_enabled, 0);
    EXPECT_FALSE(Of<QCheckBox>(kEnable)->isChecked());
    EXPECT_THAT(Enabled(), ElementsAre(false, false, false, false));
    EXPECT_EQ(Text(kRows), "7");
    EXPECT_EQ(Text(kColumns), "16");
    EXPECT_EQ(Index(kColor), 0);
    EXPECT_EQ(Index(kPixel), 0);
}

TEST_F(FindSign, BeginsOffAtEveryStartOfTheSheet) {
    Enable();
    Enter(kRows, "24");
    Enter(kColumns, "96");
    Choose(kColor, 4);
    Choose(kPixel, 2);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.sign.m_enabled, 1);
    EXPECT_EQ(sheet.sign.m_rows, 24U);
    sheet.DestroyWindow();
    Open(kSign);
    EXPECT_EQ(sheet.sign.m_enabled, 0);
    EXPECT_FALSE(Of<QCheckBox>(kEnable)->isChecked());
    EXPECT_THAT(Enabled(), ElementsAre(false, false, false, false));
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.sign.m_rows, 7U);
    EXPECT_EQ(sheet.sign.m_columns, 16U);
    EXPECT_EQ(sheet.sign.m_colorIndex, 0);
    EXPECT_EQ(sheet.sign.m_pixelIndex, 0);
}

// The check box -------------------------------------------------------------------------------

TEST_F(FindSign, TheBoxTurnsTheSearchOnAndOff) {
    for (const int expected : {1, 0, 1}) {
        Click(sheet, kEnable);
        EXPECT_EQ(sheet.sign.m_enabled, expected);
        for (const bool isEnabled : Enabled())
            EXPECT_EQ(isEnabled, expected == 1);
    }
    PressKey(sheet, Qt::Key_Space);
    EXPECT_EQ(sheet.sign.m_enabled, 0) << "by a key too";
}

TEST_F(FindSign, TheBoxIsNotAskedWhatItShows) {
    Of<QCheckBox>(kEnable)->setChecked(true);
    EXPECT_EQ(sheet.sign.m_enabled, 0);
    Click(sheet, kEnable);
    EXPECT_FALSE(Of<QCheckBox>(kEnable)->isChecked());
    EXPECT_EQ(sheet.sign.m_enabled, 1) << "turned over all the same";
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.sign.m_enabled, 1) << "reading the page doesn't read it either";
    EXPECT_TRUE(sheet.sign.UpdateData(false));
    EXPECT_FALSE(Of<QCheckBox>(kEnable)->isChecked());
}

TEST_F(FindSign, StaysOnWhileOtherPagesAreInFront) {
    Enable();
    ClickTab(kSize);
    ClickTab(kSign);
    EXPECT_EQ(sheet.sign.m_enabled, 1);
    EXPECT_TRUE(Of<QCheckBox>(kEnable)->isChecked());
    EXPECT_THAT(Enabled(), ElementsAre(true, true, true, true));
}

// Spins ---------------------------------------------------------------------------------------

TEST_F(FindSign, TheSpinsHaveTheirRangesAndSpeeds) {
    using k4cmn::SpinAccel;
    const auto* rows = Of<CSpinButtonCtrl>(kRowSpin);
    EXPECT_EQ(rows->Lower(), 7);
    EXPECT_EQ(rows->Upper(), 2048);
    EXPECT_THAT(rows->GetAccel(),
                ElementsAre(SpinAccel{0, 8}, SpinAccel{2, 64}, SpinAccel{4, 128}));
    const auto* columns = Of<CSpinButtonCtrl>(kColumnSpin);
    EXPECT_EQ(columns->Lower(), 16);
    EXPECT_EQ(columns->Upper(), 16384);
    EXPECT_THAT(columns->GetAccel(),
                ElementsAre(SpinAccel{0, 16}, SpinAccel{2, 128}, SpinAccel{4, 256}));
}

TEST_F(FindSign, ASpinGoesToTheNextMultiple) {
    const struct {
        int field;
        int spin;
        const char* from;
        int direction;
        const char* to;
    } rows[] = {{kRows, kRowSpin, "7", 1, "8"},
                {kRows, kRowSpin, "13", 1, "16"},
                {kRows, kRowSpin, "13", -1, "8"},
                {kRows, kRowSpin, "16", 1, "24"},
                {kRows, kRowSpin, "16", -1, "8"},
                {kRows, kRowSpin, "8", -1, "7"},
                {kRows, kRowSpin, "7", -1, "7"},
                {kRows, kRowSpin, "2048", 1, "2048"},
                {kColumns, kColumnSpin, "16", 1, "32"},
                {kColumns, kColumnSpin, "17", -1, "16"},
                {kColumns, kColumnSpin, "33", 1, "48"},
                {kColumns, kColumnSpin, "16", -1, "16"},
                {kColumns, kColumnSpin, "16384", 1, "16384"},
                // What can be typed and is out of the range ends at its nearer end.
                {kRows, kRowSpin, "0", 1, "8"},
                {kRows, kRowSpin, "", -1, "7"},
                {kRows, kRowSpin, "40000", -1, "2048"},
                {kRows, kRowSpin, "70000", 1, "2048"},
                {kColumns, kColumnSpin, "40000", 1, "16384"},
                {kColumns, kColumnSpin, "70000", -1, "16384"},
                {kColumns, kColumnSpin, "99999999999", 1, "16384"}};
    Enable();
    for (const auto& row : rows) {
        Type(row.field, row.from);
        ClickSpin(row.spin, row.direction);
        EXPECT_EQ(Text(row.field), row.to) << row.from << ", " << row.direction;
        Type(row.field, row.from);
        PressKey(sheet, row.direction > 0 ? Qt::Key_Up : Qt::Key_Down);
        EXPECT_EQ(Text(row.field), row.to) << row.from << ", by a key";
    }
}

TEST_F(FindSign, AHeldSpinGetsFasterAfterTwoAndFourSeconds) {
    Enable();
    EXPECT_THAT(Hold(kRows, {0, 1999, 1, 1999, 1, 0}),
                ElementsAre("16", "24", "64", "128", "256", "384"));
    EXPECT_THAT(Hold(kColumns, {0, 1999, 1, 1999, 1}),
                ElementsAre("48", "64", "128", "256", "512"));
}

TEST_F(FindSign, TheSpinsDoNothingWhileTheSearchIsOff) {
    ClickSpin(kRowSpin, 1);
    ClickSpin(kColumnSpin, 1);
    EXPECT_EQ(Text(kRows), "7");
    EXPECT_EQ(Text(kColumns), "16");
}

// Leaving a field -----------------------------------------------------------------------------

TEST_F(FindSign, RowsAreRoundedWhenTheFieldIsLeft) {
    const std::pair<const char*, const char*> rows[] = {{"9", "8"},
                                                        {"7", "7"},
                                                        {"12", "16"},
                                                        {"11", "8"},
                                                        {"3", "0"},
                                                        {"4", "8"},
                                                        {"2048", "2048"},
                                                        {"2051", "2048"},
                                                        {"9999", "10000"},
                                                        {"", ""},
                                                        {"0016", "0016"},
                                                        {"4294967295", "4294967288"},
                                                        {"99999999999999999999", "4294967288"}};
    Enable();
    for (const auto& [typed, becomes] : rows) {
        Enter(kRows, typed);
        EXPECT_EQ(Text(kRows), becomes) << typed;
    }
}

TEST_F(FindSign, ColumnsAreRoundedWhenTheFieldIsLeft) {
    const std::pair<const char*, const char*> rows[] = {
        {"24", "32"},       {"20", "16"}, {"7", "0"},         {"8", "16"},
        {"16384", "16384"}, {"", ""},     {"20000", "20000"}, {"20001", "20000"}};
    Enable();
    for (const auto& [typed, becomes] : rows) {
        Enter(kColumns, typed);
        EXPECT_EQ(Text(kColumns), becomes) << typed;
    }
}

TEST_F(FindSign, AFieldIsLeftByTheMouseToo) {
    Enable();
    Type(kRows, "9");
    EXPECT_EQ(Text(kRows), "9");
    QTest::mouseClick(Of<QWidget>(kColumns), Qt::LeftButton);
    EXPECT_EQ(Text(kRows), "8");
}

TEST_F(FindSign, TheFieldsTakeDigitsAlone) {
    Enable();
    for (const int field : {kRows, kColumns}) {
        Type(field, "-1a2.3 +4");
        EXPECT_EQ(Text(field), "1234");
    }
}

// Reading -------------------------------------------------------------------------------------

struct Refused {
    const char* rows;
    const char* columns;
    int color;
    int pixel;
    const char* words;
    int focus;
};

constexpr char kRowRange[] = "Enter an integer between 7 and 2048.";
constexpr char kColumnRange[] = "Enter an integer between 16 and 16384.";
constexpr char kProduct[] = "Rows x Cols cannot be > 8388608";
constexpr char kRowMultiple[] = "Number of rows must be 7 or a multiple of 8.\n";
constexpr char kColumnMultiple[] = "Number of columns must be a multiple of 8.\n";
constexpr char kTechnologies[] = "Color and pixel technology are invalid.";

/// In each row all that comes behind the rule in question is broken too.
const Refused kRefused[] = {
    {"", "", 1, 2, "Enter an integer.", 1112},
    {"6", "15", 1, 2, kRowRange, 1112},
    {"2049", "15", 1, 2, kRowRange, 1112},
    {"0", "15", 1, 2, kRowRange, 1112},
    {"99999999999999999999", "15", 1, 2, kRowRange, 1112},
    {"9", "", 1, 2, "Enter an integer.", 1114},
    {"9", "15", 1, 2, kColumnRange, 1114},
    {"9", "16385", 1, 2, kColumnRange, 1114},
    {"2048", "16384", 1, 2, kProduct, 1112},
    {"2047", "16383", 1, 2, kProduct, 1112},
    {"520", "16384", 1, 2, kProduct, 1112},
    {"9", "17", 1, 2, kRowMultiple, 1112},
    {"2047", "16", 1, 2, kRowMultiple, 1112},
    {"7", "17", 1, 2, kColumnMultiple, 1114},
    {"512", "16383", 1, 2, kColumnMultiple, 1114},
    {"512", "16384", 1, 2, kTechnologies, 1116},
    {"7", "24", 0, -1, kTechnologies, 1116},
    {"7", "24", -1, 0, kTechnologies, 1116},
};

class FindSignRefused : public FindSign, public testing::WithParamInterface<Refused> {};

TEST_P(FindSignRefused, TellsTheFirstBrokenRuleAndStays) {
    const Refused& row = GetParam();
    Enable();
    Of<QWidget>(kPixel)->setFocus();
    Write(row.rows, row.columns);
    Of<QComboBox>(kColor)->setCurrentIndex(row.color);
    Of<QComboBox>(kPixel)->setCurrentIndex(row.pixel);
    messages.Expect(row.words);
    EXPECT_FALSE(sheet.ReadActivePage());
    EXPECT_EQ(FocusedId(sheet), row.focus);
    EXPECT_EQ(Text(kRows), row.rows) << "what is refused stays as it was typed";
    EXPECT_EQ(Text(kColumns), row.columns);

    // Also while the search is off.
    Enable();
    Of<QWidget>(kEnable)->setFocus();
    Write(row.rows, row.columns);
    messages.Expect(row.words);
    ClickTab(kName);
    EXPECT_EQ(sheet.GetActiveIndex(), kSign);
    EXPECT_TRUE(sheet.isVisible());
    Write("7", "16");
    Of<QComboBox>(kColor)->setCurrentIndex(0);
    Of<QComboBox>(kPixel)->setCurrentIndex(0);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindSignRefused, testing::ValuesIn(kRefused));

TEST_F(FindSign, SizesAreTakenAtTheirLimits) {
    Enable();
    const std::pair<const char*, const char*> rows[] = {
        {"7", "16"}, {"2048", "4096"}, {"512", "16384"}, {"7", "16384"}, {"8", "24"}};
    for (const auto& [typedRows, typedColumns] : rows) {
        Write(typedRows, typedColumns);
        EXPECT_TRUE(sheet.ReadActivePage()) << typedRows << " x " << typedColumns;
        EXPECT_EQ(std::to_string(sheet.sign.m_rows), typedRows);
        EXPECT_EQ(std::to_string(sheet.sign.m_columns), typedColumns);
    }
}

TEST_F(FindSign, ColumnsThatAreLeftAreRoundedMoreThanReadingAsks) {
    Enable();
    Type(kColumns, "24");
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.sign.m_columns, 24U);
    PressKey(sheet, Qt::Key_Tab);
    EXPECT_EQ(Text(kColumns), "32");
}

TEST_F(FindSign, ReadingGivesTheTechnologiesOfThePairsThatThereAre) {
    Enable();
    for (int color = 0; color < 15; ++color) {
        for (int pixel = 0; pixel < 3; ++pixel) {
            Of<QComboBox>(kColor)->setCurrentIndex(color);
            Of<QComboBox>(kPixel)->setCurrentIndex(pixel);
            const auto wantedColor = static_cast<tag_K4_SIGN_COLOR>(color);
            const auto wantedPixel = static_cast<tag_K4_PIXEL_TECH>(pixel + 1);
            const bool isValid = files.IsColorAndPixelTechValid(wantedColor, wantedPixel) != 0;
            if (!isValid)
                messages.Expect(kTechnologies);
            EXPECT_EQ(sheet.ReadActivePage(), isValid) << color << ", " << pixel;
            EXPECT_EQ(sheet.sign.m_colorIndex, color);
            EXPECT_EQ(sheet.sign.m_pixelIndex, pixel);
            EXPECT_EQ(sheet.sign.m_color, wantedColor);
            EXPECT_EQ(sheet.sign.m_pixel, wantedPixel);
        }
    }
}

TEST_F(FindSign, AFailureStopsTheReading) {
    Enable();
    Write("24", "96");
    Choose(kColor, 4);
    EXPECT_TRUE(sheet.ReadActivePage());
    Write("32", "15");
    Choose(kColor, 6);
    messages.Expect(kColumnRange);
    EXPECT_FALSE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.sign.m_rows, 32U);
    EXPECT_EQ(sheet.sign.m_columns, 15U);
    EXPECT_EQ(sheet.sign.m_colorIndex, 4);
    EXPECT_EQ(sheet.sign.m_color, K4_SIGN_COLOR_MONO4);
    Write("24", "96");
}

TEST_F(FindSign, ASheetMayGoWithItsMessage) {
    const std::tuple<int, const char*, const char*> rows[] = {
        {kRows, "", "Enter an integer."},  {kRows, "6", kRowRange},
        {kRows, "9", kRowMultiple},        {kColumns, "", "Enter an integer."},
        {kColumns, "16385", kColumnRange}, {kColumns, "17", kColumnMultiple}};
    for (const auto& [field, text, words] : rows)
        ReadWhileItGoes(kSign, field, text, words);
}

TEST_F(FindSign, WithoutAStoreNoPairIsValid) {
    k4cmn::Provided<k4cmn::FilesProvider>::Install(nullptr);
    messages.Expect(kTechnologies);
    EXPECT_FALSE(sheet.ReadActivePage());
}

}  // namespace
}  // namespace k4test

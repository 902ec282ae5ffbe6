#include <QRadioButton>
#include <memory>

#include "tests/filesel/ScopedTimeZone.h"
#include "tests/search/FindPagesFixture.h"

namespace k4test {
namespace {

using k4cmn::CalendarDay;
using testing::ElementsAre;

/// The page "Size" in front, on 15 January 2027.
class FindSize : public FindPages {
 protected:
    void SetUp() override {
        FindPages::SetUp();
        Open(kSize);
    }
    bool IsOn(int radio) const { return Of<QRadioButton>(radio)->isChecked(); }
};

TEST_F(FindSize, IsTemplate114WithItsControls) {
    EXPECT_EQ(sheet.size.ResourceId(), 114U);
    EXPECT_EQ(sheet.size.windowTitle().toStdString(), "Size");
    EXPECT_EQ(CaptionOf(kRelation), "Si&ze is");
    EXPECT_THAT(Entries(kRelation), ElementsAre("any", "at least", "at most"));
    const std::pair<int, const char*> texts[] = {{kAllFiles, "&All Files"},
                                                 {kModified, "&Files created or modified"},
                                                 {kBetween, "&between"},
                                                 {kDuringMonths, "&during the previous"},
                                                 {kDuringDays, "d&uring the previous"}};
    for (const auto& [id, text] : texts)
        EXPECT_EQ(Text(id), text);
    const std::pair<const char*, const char*> labels[] = {{"sizeUnit", "KB"},
                                                          {"datesBetween", "and"},
                                                          {"daysUnit", "day(s)."},
                                                          {"monthsUnit", "month(s)."}};
    for (const auto& [name, text] : labels)
        EXPECT_EQ(sheet.size.findChild<QLabel*>(QLatin1String(name))->text().toStdString(), text);
    const std::unique_ptr<QObject> page(CK4CmnDlgFindSize::staticMetaObject.newInstance());
    EXPECT_NE(qobject_cast<CK4CmnDlgFindSize*>(page.get()), nullptr);
}

TEST_F(FindSize, BeginsWithAnySizeAndAllFiles) {
    EXPECT_EQ(Index(kRelation), 0);
    EXPECT_EQ(Text(kSizeField), "0");
    EXPECT_TRUE(IsOn(kAllFiles));
    EXPECT_FALSE(IsOn(kModified));
    EXPECT_TRUE(IsOn(kBetween));
    EXPECT_EQ(Text(kDays), "1");
    EXPECT_EQ(Text(kMonths), "1");
    for (const int id : {kSizeField, kSizeSpin, kBetween, kFirstDate, kLastDate, kDuringMonths,
                         kMonths, kDuringDays, kDays})
        EXPECT_FALSE(IsEnabled(id)) << id;
    for (const int id : {kRelation, kAllFiles, kModified})
        EXPECT_TRUE(IsEnabled(id)) << id;
}

TEST_F(FindSize, TheSpinsHaveTheirRanges) {
    const std::tuple<int, int, int> rows[] = {
        {kSizeSpin, 0, 32767}, {kMonthSpin, 1, 999}, {kDaySpin, 1, 999}};
    for (const auto& [spin, lower, upper] : rows) {
        EXPECT_EQ(Of<CSpinButtonCtrl>(spin)->Lower(), lower);
        EXPECT_EQ(Of<CSpinButtonCtrl>(spin)->Upper(), upper);
        EXPECT_THAT(Of<CSpinButtonCtrl>(spin)->GetAccel(), ElementsAre(k4cmn::SpinAccel{0, 1}));
    }
}

TEST_F(FindSize, TheSpinsStepByOneInsideTheirRanges) {
    Choose(kRelation, 1);
    ClickSpin(kSizeSpin, -1);
    EXPECT_EQ(Text(kSizeField), "0");
    ClickSpin(kSizeSpin, 1);
    EXPECT_EQ(Text(kSizeField), "1");
    Type(kSizeField, "32767");
    ClickSpin(kSizeSpin, 1);
    EXPECT_EQ(Text(kSizeField), "32767");
    Click(sheet, kModified);
    Click(sheet, kDuringDays);
    ClickSpin(kDaySpin, -1);
    EXPECT_EQ(Text(kDays), "1");
    Type(kDays, "998");
    ClickSpin(kDaySpin, 1);
    ClickSpin(kDaySpin, 1);
    EXPECT_EQ(Text(kDays), "999");
}

// What can be used ----------------------------------------------------------------------------

/// The state that the page stands in, by what is clicked last.
struct Stand {
    int relation;
    int filter;  ///< 0 all files, 1 modified
    int mode;    ///< 0 between, 1 months, 2 days
};

class FindSizeStand : public FindSize,
                      public testing::WithParamInterface<std::tuple<int, int, int>> {};

TEST_P(FindSizeStand, UsesTheControlsOfItsStateAlone) {
    const auto [relation, filter, mode] = GetParam();
    constexpr int modes[] = {kBetween, kDuringMonths, kDuringDays};
    Choose(kRelation, relation);
    Click(sheet, kModified);
    Click(sheet, modes[mode]);
    if (filter == 0)
        Click(sheet, kAllFiles);
    EXPECT_EQ(IsOn(kModified), filter == 1);
    EXPECT_EQ(IsOn(kAllFiles), filter == 0);
    for (int other = 0; other < 3; ++other) {
        EXPECT_EQ(IsOn(modes[other]), other == mode);
        EXPECT_EQ(IsEnabled(modes[other]), filter == 1);
    }
    const bool hasSize = relation != 0;
    EXPECT_EQ(IsEnabled(kSizeField), hasSize);
    EXPECT_EQ(IsEnabled(kSizeSpin), hasSize);
    EXPECT_EQ(IsEnabled(kFirstDate), filter == 1 && mode == 0);
    EXPECT_EQ(IsEnabled(kLastDate), filter == 1 && mode == 0);
    EXPECT_EQ(IsEnabled(kMonths), filter == 1 && mode == 1);
    EXPECT_EQ(IsEnabled(kDays), filter == 1 && mode == 2);

    // Off and on again: the mode is where it was.
    Click(sheet, kModified);
    EXPECT_EQ(IsEnabled(kFirstDate), mode == 0);
    EXPECT_EQ(IsEnabled(kMonths), mode == 1);
    EXPECT_EQ(IsEnabled(kDays), mode == 2);
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.size.m_sizeRelation, relation);
    EXPECT_EQ(sheet.size.m_dateFilter, 1);
    EXPECT_EQ(sheet.size.m_dateMode, mode);
}

INSTANTIATE_TEST_SUITE_P(All, FindSizeStand,
                         testing::Combine(testing::Values(0, 1, 2), testing::Values(0, 1),
                                          testing::Values(0, 1, 2)));

TEST_F(FindSize, AModeTurnsTheFilterOn) {
    for (const int mode : {kBetween, kDuringMonths, kDuringDays}) {
        Click(sheet, kAllFiles);
        // A person can't: the program can.
        Of<QRadioButton>(mode)->setEnabled(true);
        Of<QRadioButton>(mode)->click();
        EXPECT_TRUE(IsOn(kModified)) << mode;
        EXPECT_FALSE(IsOn(kAllFiles)) << mode;
    }
}

TEST_F(FindSize, TheArrowKeysGoThroughEachGroupByItself) {
    Of<QWidget>(kAllFiles)->setFocus();
    PressKey(sheet, Qt::Key_Down);
    EXPECT_TRUE(IsOn(kModified));
    EXPECT_TRUE(IsOn(kBetween));
    EXPECT_TRUE(IsEnabled(kFirstDate));
    Of<QWidget>(kBetween)->setFocus();
    PressKey(sheet, Qt::Key_Down);
    EXPECT_TRUE(IsOn(kDuringMonths));
    EXPECT_TRUE(IsOn(kModified));
    EXPECT_TRUE(IsEnabled(kMonths));
    EXPECT_FALSE(IsEnabled(kFirstDate));
    PressKey(sheet, Qt::Key_Down);
    EXPECT_TRUE(IsEnabled(kDays));
}

TEST_F(FindSize, BeginsAnewAtEveryStartOfTheSheet) {
    Choose(kRelation, 2);
    Type(kSizeField, "12");
    Click(sheet, kModified);
    Click(sheet, kDuringDays);
    Type(kDays, "30");
    EXPECT_TRUE(sheet.ReadActivePage());
    sheet.DestroyWindow();
    clock.Advance(std::chrono::hours(24));
    Open(kSize);
    EXPECT_TRUE(IsOn(kAllFiles));
    EXPECT_TRUE(IsOn(kBetween));
    for (const int id : {kSizeField, kSizeSpin, kBetween, kFirstDate, kDays})
        EXPECT_FALSE(IsEnabled(id)) << id;
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.size.m_dateFilter, 0);
    EXPECT_EQ(sheet.size.m_dateMode, 0);
    EXPECT_EQ(Text(kLastDate), " 1/16/2027");
}

// Reading -------------------------------------------------------------------------------------

TEST_F(FindSize, IsReadAsItStands) {
    Choose(kRelation, 2);
    Type(kSizeField, "100000");
    Click(sheet, kModified);
    Click(sheet, kDuringMonths);
    Type(kMonths, "999");
    Click(sheet, kDuringDays);
    Type(kDays, "12");
    EXPECT_TRUE(sheet.ReadActivePage());
    EXPECT_EQ(sheet.size.m_sizeRelation, 2);
    EXPECT_EQ(sheet.size.m_size, 100000) << "only the spin has a limit";
    EXPECT_EQ(sheet.size.m_months, 999);
    EXPECT_EQ(sheet.size.m_days, 12);
    EXPECT_EQ(sheet.size.m_dateMode, 2);
}

struct Refused {
    int field;
    const char* text;
    const char* words;
};

class FindSizeRefused : public FindSize, public testing::WithParamInterface<Refused> {};

TEST_P(FindSizeRefused, TellsAndStaysAlsoWhereTheNumberDoesntCount) {
    const auto& [field, text, words] = GetParam();
    Choose(kRelation, 1);
    Click(sheet, kModified);
    Click(sheet, field == 1133 ? kDuringDays : kDuringMonths);
    Of<QLineEdit>(field)->setText(QLatin1String(text));
    Of<QWidget>(kRelation)->setFocus();
    messages.Expect(words);
    EXPECT_FALSE(sheet.ReadActivePage());
    EXPECT_EQ(FocusedId(sheet), field);
    EXPECT_EQ(Of<QLineEdit>(field)->selectedText().toStdString(), text);

    Choose(kRelation, 0);
    Click(sheet, kAllFiles);
    messages.Expect(words);
    ClickTab(kName);
    EXPECT_EQ(sheet.GetActiveIndex(), kSize);
    Of<QLineEdit>(field)->setText(QStringLiteral("1"));
}

constexpr char kRange[] = "Enter an integer between 1 and 999.";

INSTANTIATE_TEST_SUITE_P(Rows, FindSizeRefused,
                         testing::Values(Refused{1122, "", "Enter an integer."},
                                         Refused{1122, "2147483648", "Enter an integer."},
                                         Refused{1130, "", "Enter an integer."},
                                         Refused{1130, "0", kRange}, Refused{1130, "1000", kRange},
                                         Refused{1133, "", "Enter an integer."},
                                         Refused{1133, "0", kRange},
                                         Refused{1133, "1000", kRange}));

TEST_F(FindSize, TheFirstWrongNumberIsTold) {
    Of<QLineEdit>(kDays)->setText(QStringLiteral("0"));
    Of<QLineEdit>(kMonths)->setText(QStringLiteral("x"));
    messages.Expect(kRange);
    EXPECT_FALSE(sheet.ReadActivePage());
    Of<QLineEdit>(kSizeField)->setText(QString());
    messages.Expect("Enter an integer.");
    EXPECT_FALSE(sheet.ReadActivePage());
}

TEST_F(FindSize, ASheetMayGoWithItsMessage) {
    for (const int field : {kSizeField, kDays, kMonths})
        ReadWhileItGoes(kSize, field, "", "Enter an integer.");
    for (const int field : {kDays, kMonths})
        ReadWhileItGoes(kSize, field, "1000", kRange);
}

TEST_F(FindSize, TheFieldsTakeDigitsAlone) {
    Choose(kRelation, 1);
    Type(kSizeField, "-1a2.3 +4");
    EXPECT_EQ(Text(kSizeField), "1234");
}

// Dates ---------------------------------------------------------------------------------------

TEST_F(FindSize, TheDatesAreTodayAnd90DaysBefore) {
    const ScopedTimeZone zone("UTC");
    sheet.DestroyWindow();
    Open(kSize);
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{15, 1, 2027}));
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{17, 10, 2026}));
    EXPECT_EQ(Text(kFirstDate), "10/17/2026");
    EXPECT_EQ(Text(kLastDate), " 1/15/2027");
}

TEST_F(FindSize, TheDatesAreThoseOfTheLocalCalendar) {
    const ScopedTimeZone zone("EST5");
    clock.Set(k4cmn::Clock::TimePoint(std::chrono::seconds(1'799'985'600)));  // 04:00 UTC
    sheet.DestroyWindow();
    Open(kSize);
    EXPECT_EQ(sheet.size.m_lastDate, (CalendarDay{14, 1, 2027}));
    EXPECT_EQ(sheet.size.m_firstDate, (CalendarDay{16, 10, 2026}));
}

}  // namespace
}  // namespace k4test

#include <QLabel>
#include <algorithm>

#include "k4cmndlg/frame/HelpDecision.h"
#include "tests/search/FindPagesFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;

class FindPagesLooks : public FindPages {
 protected:
    static std::string Name(const QWidget* control) { return control->objectName().toStdString(); }
    static QRect Place(const QWidget& page, const QWidget* control) {
        return {control->mapTo(&page, QPoint(0, 0)), control->size()};
    }
    /// Everything is inside, nothing lies on anything else, and every text has its room.
    static void ExpectNothingClipped(CPropertyPage& page) {
        std::vector<QWidget*> controls;
        for (QWidget* control : page.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid() || qobject_cast<QLabel*>(control))
                controls.push_back(control);
        }
        for (const QWidget* control : controls) {
            const QRect place = Place(page, control);
            EXPECT_TRUE(page.rect().contains(place)) << Name(control);
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << Name(control);
            EXPECT_GE(control->height(), control->minimumSizeHint().height()) << Name(control);
            for (const QWidget* other : controls)
                EXPECT_FALSE(other != control && place.intersects(Place(page, other)))
                    << Name(control) << " and " << Name(other);
        }
    }
    /// Where the Tab key goes in the page in front, from its first control on.
    std::vector<int> TabStops(int first) {
        Of<QWidget>(first)->setFocus();
        std::vector<int> stops;
        const QWidget* page = sheet.GetActivePage();
        while (page->isAncestorOf(sheet.focusWidget()) && stops.size() < 50) {
            stops.push_back(FocusedId(sheet));
            PressKey(sheet, Qt::Key_Tab);
        }
        return stops;
    }
};

TEST_F(FindPagesLooks, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        FindSheet scaled;
        ASSERT_EQ(scaled.Create(), 1);
        scaled.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&scaled));
        EXPECT_LE(scaled.width(), 700) << "the buttons of the search stand beside the pages";
        EXPECT_LE(scaled.height(), 450) << "and the results below";
        for (int index = 0; index < scaled.GetPageCount(); ++index) {
            ASSERT_EQ(scaled.SetActivePage(index), 1);
            QCoreApplication::processEvents();
            ExpectNothingClipped(*scaled.GetPage(index));
        }
    }
}

TEST_F(FindPagesLooks, NumbersAndDatesFitTheirFields) {
    for (const double factor : {1.0, 2.0}) {
        const FontScale scale(factor);
        Open(kSize);
        const std::pair<int, const char*> rows[] = {
            {kSizeField, "2147483647"}, {kMonths, "999"}, {kFirstDate, "10/10/2026"},
            {kLastDate, "10/10/2026"},  {kRows, "2048"},  {kColumns, "16384"}};
        for (const auto& [id, text] : rows) {
            const auto* edit = Of<QLineEdit>(id);
            EXPECT_GT(edit->width(), edit->fontMetrics().horizontalAdvance(QLatin1String(text)));
        }
        sheet.DestroyWindow();
    }
}

TEST_F(FindPagesLooks, EveryControlHasAnAccessibleName) {
    int named = 0;
    for (const QWidget* control : sheet.findChildren<QWidget*>()) {
        const bool isOfThePages = control->property("controlId").isValid();
        const bool isArrow = control->inherits("QToolButton") && control->parentWidget() &&
                             control->parentWidget()->inherits("CSpinButtonCtrl");
        if (!isOfThePages && !isArrow)
            continue;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << Name(control);
        ++named;
    }
    EXPECT_EQ(named, 7 + 7 + 14 + 2 * 5);
}

TEST_F(FindPagesLooks, EveryControlHasItsIdOnce) {
    std::vector<int> ids;
    for (const QWidget* control : sheet.findChildren<QWidget*>()) {
        if (control->property("controlId").isValid())
            ids.push_back(control->property("controlId").toInt());
    }
    std::sort(ids.begin(), ids.end());
    EXPECT_THAT(ids, ElementsAre(1101, 1102, 1103, 1104, 1105, 1106, 1107, 1111, 1112, 1113, 1114,
                                 1115, 1116, 1117, 1121, 1122, 1123, 1124, 1125, 1126, 1127, 1128,
                                 1129, 1130, 1131, 1132, 1133, 1134));
}

TEST_F(FindPagesLooks, TheTabKeyGoesThroughThePagesAsTheEyeDoes) {
    Open(kName);
    EXPECT_THAT(TabStops(kKeywords),
                ElementsAre(kKeywords, kAnd, kFileName, kFileType, kSearchPath, kBrowse));
    ClickTab(kSign);
    EXPECT_THAT(TabStops(kEnable), ElementsAre(+kEnable));
    Click(sheet, kEnable);
    EXPECT_THAT(TabStops(kEnable), ElementsAre(kEnable, kRows, kColumns, kColor, kPixel));
    ClickTab(kSize);
    EXPECT_THAT(TabStops(kRelation), ElementsAre(kRelation, kAllFiles));
    Choose(kRelation, 1);
    Click(sheet, kModified);
    EXPECT_THAT(TabStops(kRelation),
                ElementsAre(kRelation, kSizeField, kModified, kBetween, kFirstDate, kLastDate));
    Click(sheet, kDuringMonths);
    EXPECT_THAT(TabStops(kRelation),
                ElementsAre(kRelation, kSizeField, kModified, kDuringMonths, kMonths));
    Click(sheet, kDuringDays);
    EXPECT_THAT(TabStops(kRelation),
                ElementsAre(kRelation, kSizeField, kModified, kDuringDays, kDays));
}

TEST_F(FindPagesLooks, TheLettersOfThePagesLeadToTheirControls) {
    Open(kName);
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(&sheet, key, Qt::AltModifier);
        return FocusedId(sheet);
    };
    EXPECT_EQ(press(Qt::Key_K), kKeywords);
    EXPECT_EQ(press(Qt::Key_F), kFileName);
    EXPECT_EQ(press(Qt::Key_T), kFileType);
    EXPECT_EQ(press(Qt::Key_O), kOr);
    EXPECT_EQ(press(Qt::Key_A), kAnd);
    ClickTab(kSign);
    press(Qt::Key_E);
    EXPECT_TRUE(QTest::qWaitFor([&] { return sheet.sign.m_enabled == 1; }));
    EXPECT_EQ(press(Qt::Key_R), kRows);
    EXPECT_EQ(press(Qt::Key_C), kColumns);
    EXPECT_EQ(press(Qt::Key_O), kColor);
    EXPECT_EQ(press(Qt::Key_P), kPixel);
    ClickTab(kSize);
    EXPECT_EQ(press(Qt::Key_Z), kRelation);
    const auto pressAndWait = [&](Qt::Key key, int field, bool isEnabled) {
        const int focused = press(key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsEnabled(field) == isEnabled; })) << field;
        return focused;
    };
    EXPECT_EQ(pressAndWait(Qt::Key_F, kFirstDate, true), kModified);
    EXPECT_EQ(pressAndWait(Qt::Key_D, kMonths, true), kDuringMonths);
    EXPECT_EQ(pressAndWait(Qt::Key_U, kDays, true), kDuringDays);
    EXPECT_EQ(pressAndWait(Qt::Key_B, kFirstDate, true), kBetween);
    EXPECT_EQ(pressAndWait(Qt::Key_A, kFirstDate, false), kAllFiles);
}

TEST_F(FindPagesLooks, HelpIsThatOfThePages) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> installed(help);
    Open(kName);
    const std::tuple<int, int, std::uint32_t> rows[] = {
        {kName, kKeywords, 112}, {kSign, kEnable, 113}, {kSize, kAllFiles, 114}};
    for (const auto& [page, control, number] : rows) {
        ASSERT_EQ(sheet.SetActivePage(page), 1);
        EXPECT_EQ(k4cmn::GetWindowContextHelpId(sheet.GetPage(page)), number + 0x20000);
        help.calls.clear();
        QTest::keyClick(Of<QWidget>(control), Qt::Key_F1);
        ASSERT_EQ(help.calls.size(), 1U);
        EXPECT_EQ(help.calls.front().command, 8U);
        EXPECT_EQ(help.calls.front().data,
                  0x1000000 + (number << 16) + static_cast<std::uint32_t>(control));
    }
}

}  // namespace
}  // namespace k4test

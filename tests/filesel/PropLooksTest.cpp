#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <algorithm>

#include "k4cmndlg/frame/DialogFrame.h"
#include "tests/filesel/PropFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;

class PropertiesLooks : public Properties {
 protected:
    using Check = std::function<void(CK4CmnDlgFileProp&)>;

    PropertiesLooks() {
        k4suite::SequenceFacts facts = Facts();
        facts.rows = 88;
        facts.columns = 160;
        Make("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4", facts);
    }
    /// Does a check on a modeless and on a modal sheet.
    void InBoth(const Check& check) {
        InModeless(check);
        InModal(check);
    }
    void InModeless(const Check& check) {
        SCOPED_TRACE("modeless");
        CK4CmnDlgFileProp sheet("Properties", &parent, kGeneral, kModeless);
        ASSERT_EQ(sheet.ShowFileProperties("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4"), 1);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
        check(sheet);
    }
    void InModal(const Check& check) {
        SCOPED_TRACE("modal");
        CK4CmnDlgFileProp sheet("Properties", &parent);
        ASSERT_EQ(sheet.ShowFileProperties("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4"), 1);
        RunModal(sheet, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet));
            check(sheet);
            Click(sheet, kCancel);
        });
    }
    /// Does a check with each page in front.
    static void OnEachPage(CK4CmnDlgFileProp& sheet, const std::function<void()>& check) {
        for (const int page : {kGeneral, kAdvanced, kThumbnail}) {
            SCOPED_TRACE(page);
            if (page == kThumbnail)
                ShowThumbnail(sheet);
            else
                ShowPage(sheet, page);
            QCoreApplication::sendPostedEvents();
            check();
        }
    }

    static QRect Place(const CPropertySheet& sheet, int id) {
        return PlaceOf(sheet, Item<QWidget>(sheet, id));
    }
    static QRect PlaceOf(const CPropertySheet& sheet, const QWidget* control) {
        return {control->mapTo(&sheet, QPoint()), control->size()};
    }
    static std::string Name(const QWidget* control) {
        return (control->objectName() + control->accessibleName()).toStdString();
    }
    /// The controls that are shown: of the page in front, and the sheet's own buttons.
    static std::vector<QWidget*> Controls(const CPropertySheet& sheet) {
        std::vector<QWidget*> controls;
        for (QWidget* control : sheet.findChildren<QWidget*>()) {
            if (control->isVisible() && control->property("controlId").isValid())
                controls.push_back(control);
        }
        return controls;
    }
    static void ExpectNothingClipped(const CPropertySheet& sheet) {
        const std::vector<QWidget*> controls = Controls(sheet);
        EXPECT_GE(controls.size(), 8U);
        for (const QWidget* control : controls) {
            const QRect place = PlaceOf(sheet, control);
            EXPECT_TRUE(sheet.rect().contains(place)) << Name(control);
            ExpectRoom(control);
            for (const QWidget* other : controls) {
                if (other == control)
                    continue;
                EXPECT_FALSE(place.intersects(PlaceOf(sheet, other)))
                    << Name(control) << " and " << Name(other);
            }
        }
    }
    static void ExpectRoom(const QWidget* control) {
        if (const auto* button = qobject_cast<const QPushButton*>(control)) {
            // The sheet's own buttons are smaller than the toolkit's.
            EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 8);
            EXPECT_GT(button->height(), button->fontMetrics().height() + 2);
            return;
        }
        EXPECT_GE(control->width(), control->minimumSizeHint().width()) << Name(control);
        EXPECT_GE(control->height(), control->minimumSizeHint().height()) << Name(control);
        if (qobject_cast<const QLabel*>(control)) {
            EXPECT_GE(control->width(), control->sizeHint().width()) << Name(control);
            EXPECT_GE(control->height(), control->sizeHint().height()) << Name(control);
        }
    }
    /// Where the Tab key goes, from the first field of a page and once around.
    static std::vector<int> TabStops(CPropertySheet& sheet, int first) {
        Item<QWidget>(sheet, first)->setFocus();
        std::vector<int> stops;
        const QWidget* begin = sheet.focusWidget();
        do {
            stops.push_back(FocusedId(sheet));
            PressKey(sheet, Qt::Key_Tab);
        } while (sheet.focusWidget() != begin && stops.size() < 50);
        return stops;
    }
};

void ExpectButtonPlaces(const CPropertySheet& sheet) {
    const std::tuple<int, const char*, int> buttons[] = {
        {3, "Apply", 7}, {2, "Cancel", 74}, {1, "OK", 141}};
    for (const auto& [id, text, fromRight] : buttons) {
        const auto* button = Item<QPushButton>(sheet, id);
        EXPECT_EQ(button->text().toStdString(), text);
        EXPECT_EQ(button->size(), QSize(60, 20)) << text;
        EXPECT_EQ(sheet.width() - (button->x() + button->width()), fromRight) << text;
        EXPECT_EQ(sheet.height() - button->y(), 23) << text;
        EXPECT_EQ(button->font(), sheet.font()) << text;
        EXPECT_TRUE(button->isVisible()) << text;
    }
}

TEST_F(PropertiesLooks, ItsButtonsStandInTheirPlaces) {
    InBoth([](CK4CmnDlgFileProp& sheet) { ExpectButtonPlaces(sheet); });
}

TEST_F(PropertiesLooks, ItsButtonsKeepTheirPlacesWhenItIsResized) {
    InBoth([](CK4CmnDlgFileProp& sheet) {
        for (const QSize size : {QSize(700, 550), sheet.minimumSize(), QSize(401, 377)}) {
            sheet.resize(size);
            ExpectButtonPlaces(sheet);
            OnEachPage(sheet, [&] { ExpectNothingClipped(sheet); });
        }
    });
}

TEST_F(PropertiesLooks, TheStandardButtonsAreHidden) {
    InBoth([](CK4CmnDlgFileProp& sheet) {
        int visible = 0;
        for (const QPushButton* button : sheet.findChildren<QPushButton*>())
            visible += button->isVisible() ? 1 : 0;
        EXPECT_EQ(visible, 3);
    });
}

/// A modeless sheet as it was before its own buttons were made.
class WithoutButtons : public CK4CmnPSProperties {
 public:
    using CK4CmnPSProperties::CK4CmnPSProperties;
    int before = 0;

 protected:
    int OnCreate() override {
        before = height();
        return CK4CmnPSProperties::OnCreate();
    }
};

TEST_F(PropertiesLooks, AModelessSheetGrowsBy27ForThem) {
    const auto file = Opened("A:\\16x80.Mono1.LED.Sign\\Default.Lib\\One.SQ4");
    CK4CmnSeqFileProperties record;
    WithoutButtons sheet("Properties", nullptr, kGeneral, kModeless);
    ASSERT_EQ(sheet.ShowFileProperties(file.get(), &record), 1);
    EXPECT_EQ(sheet.height(), sheet.before + 27);
    const int height = sheet.height();
    sheet.DestroyWindow();
    ASSERT_EQ(sheet.ShowFileProperties(file.get(), &record), 1);
    EXPECT_EQ(sheet.height(), height) << "once";

    WithoutButtons modal("Properties", nullptr, kGeneral, kModal);
    RunModal(modal, [&] {
        EXPECT_EQ(modal.height(), modal.before);
        Click(modal, kOk);
    });
}

TEST_F(PropertiesLooks, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        InBoth([](CK4CmnDlgFileProp& sheet) {
            EXPECT_LE(sheet.width(), 800);
            EXPECT_LE(sheet.height(), 600);
            OnEachPage(sheet, [&] { ExpectNothingClipped(sheet); });
        });
    }
}

TEST_F(PropertiesLooks, LargeFontsKeepTheGapsBetweenTheButtons) {
    const FontScale scale(2.0);
    InBoth([](CK4CmnDlgFileProp& sheet) {
        const QRect ok = Place(sheet, kOk);
        const QRect cancel = Place(sheet, kCancel);
        const QRect apply = Place(sheet, kApply);
        EXPECT_EQ(sheet.width() - 1 - apply.right(), 7);
        EXPECT_EQ(apply.left() - 1 - cancel.right(), 7);
        EXPECT_EQ(cancel.left() - 1 - ok.right(), 7);
        EXPECT_EQ(sheet.height() - 1 - ok.bottom(), 3);
        EXPECT_EQ(ok.size(), apply.size());
    });
}

TEST_F(PropertiesLooks, EveryControlHasAnAccessibleName) {
    InModeless([](CK4CmnDlgFileProp& sheet) {
        int named = 0;
        for (const QWidget* control : sheet.findChildren<QWidget*>()) {
            const bool ofTheLayout = control->property("controlId").isValid();
            if (!ofTheLayout || control->inherits("QLabel"))
                continue;
            EXPECT_FALSE(control->accessibleName().isEmpty()) << Name(control);
            ++named;
        }
        EXPECT_GE(named, 10);
    });
}

TEST_F(PropertiesLooks, EveryControlHasItsIdOnce) {
    InModeless([](CK4CmnDlgFileProp& sheet) {
        std::vector<int> ids;
        for (const QWidget* control : sheet.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid())
                ids.push_back(control->property("controlId").toInt());
        }
        std::sort(ids.begin(), ids.end());
        EXPECT_THAT(ids, ElementsAre(1, 2, 3, 1201, 1202, 1203, 1204, 1205, 1206, 1207, 1211, 1212,
                                     1213, 1214, 1215, 1216, 1221, 1222, 1223, 1231, 1232, 1233,
                                     1241, 1242, 1243, 1244, 1245, 1251, 1252));
    });
}

TEST_F(PropertiesLooks, TheTabKeyGoesThroughThePageAndThenTheButtons) {
    InBoth([](CK4CmnDlgFileProp& sheet) {
        constexpr int kTabs = 0;
        EXPECT_THAT(TabStops(sheet, kFileName),
                    ElementsAre(kFileName, kOk, kCancel, kApply, kTabs));
        ShowPage(sheet, kAdvanced);
        EXPECT_THAT(TabStops(sheet, kCompression),
                    ElementsAre(kCompression, kKeywords, kNotes, kOk, kCancel, kApply, kTabs));
        ShowThumbnail(sheet);
        EXPECT_THAT(TabStops(sheet, kFrame), ElementsAre(kFrame, kOk, kCancel, kApply, kTabs));
    });
}

TEST_F(PropertiesLooks, OkIsTheDefaultButton) {
    InBoth([](CK4CmnDlgFileProp& sheet) {
        EXPECT_TRUE(Item<QPushButton>(sheet, kOk)->isDefault());
        EXPECT_FALSE(Item<QPushButton>(sheet, kApply)->isDefault());
    });
}

TEST_F(PropertiesLooks, HelpIsThatOfThePagesAndButtons) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> installed(help);
    InModeless([&](CK4CmnDlgFileProp& sheet) {
        ShowPage(sheet, kAdvanced);
        const std::tuple<QWidget*, std::uint32_t, std::uint32_t> rows[] = {
            {Item<QWidget>(sheet, kKeywords), 8, 0x1000000 + (202U << 16) + 1222},
            {Item<QWidget>(sheet, kOk), 8, 0x1000000 + (200U << 16) + 1},
            {Item<QWidget>(sheet, kApply), 8, 0x1000000 + (200U << 16) + 3},
            {sheet.findChild<QTabBar*>(), 1, 0x1020000 + 200},
        };
        for (const auto& [control, command, id] : rows) {
            help.calls.clear();
            QTest::keyClick(control, Qt::Key_F1);
            ASSERT_EQ(help.calls.size(), 1U);
            EXPECT_EQ(help.calls.front().command, command);
            EXPECT_EQ(help.calls.front().data, id);
        }
    });
}

}  // namespace
}  // namespace k4test

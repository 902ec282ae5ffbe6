#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <algorithm>
#include <functional>

#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"
#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"
#include "tests/signctl/WindowControlFixture.h"
#include "tests/support/FontScale.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

/// The dialogs on signs: what holds for each of them.
class SignDialogLooks : public WindowControl {
 protected:
    /// Runs each dialog and a check in it.
    void InEach(const std::function<void(CDialog&)>& check) {
        SCOPED_TRACE("Window Control");
        CK4CmnDlgWindowControl windows("North", "Main", nullptr);
        Run(windows, [&] {
            check(windows);
            windows.EndDialog(IDCANCEL);
        });
        InDimming(5, check);
        InFolders(check);
    }
    void InFolders(const std::function<void(CDialog&)>& check) {
        SCOPED_TRACE("Create New Sign Folders");
        CK4CmnDlgCreateSignFolders folders(nullptr);
        folders.Initialize(2048, 16384, K4_SIGN_COLOR_RGB32KB, K4_PIXEL_TECH_LED, 0);
        Run(folders, [&] {
            check(folders);
            folders.EndDialog(IDCANCEL);
        });
    }
    void InDimming(int mode, const std::function<void(CDialog&)>& check) {
        SCOPED_TRACE("Dimming");
        configs["Main"] = "16\t80\t0\t3\t0\t" + std::to_string(mode) + "\t0\t100\t-20";
        CK4CmnDlgDimmingCtrl dimming("North", "Main", nullptr);
        Run(dimming, [&] {
            check(dimming);
            dimming.EndDialog(IDCANCEL);
        });
    }

    static std::vector<QWidget*> Controls(const CDialog& any) {
        std::vector<QWidget*> controls;
        for (QWidget* control : any.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid() || qobject_cast<QLabel*>(control))
                controls.push_back(control);
        }
        return controls;
    }
    static QRect Place(const CDialog& any, const QWidget* control) {
        return {control->mapTo(&any, QPoint(0, 0)), control->size()};
    }
    static std::string Name(const QWidget* control) { return control->objectName().toStdString(); }

    /// Everything is inside, nothing lies on anything else, and every text has its room.
    static void ExpectNothingClipped(CDialog& any) {
        const std::vector<QWidget*> controls = Controls(any);
        for (const QWidget* control : controls) {
            const QRect place = Place(any, control);
            EXPECT_TRUE(any.rect().contains(place)) << Name(control);
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << Name(control);
            EXPECT_GE(control->height(), control->minimumSizeHint().height()) << Name(control);
            if (qobject_cast<const QLabel*>(control) ||
                qobject_cast<const QAbstractButton*>(control)) {
                EXPECT_GE(control->width(), control->sizeHint().width()) << Name(control);
                EXPECT_GE(control->height(), control->sizeHint().height()) << Name(control);
            }
            for (const QWidget* other : controls) {
                if (other == control)
                    continue;
                EXPECT_FALSE(place.intersects(Place(any, other)))
                    << Name(control) << " and " << Name(other);
            }
        }
    }

    /// Where the Tab key goes, from the control that has the focus on opening and once around.
    static std::vector<int> TabStops(CDialog& any) {
        std::vector<int> stops;
        const QWidget* first = any.focusWidget();
        do {
            stops.push_back(FocusedId(any));
            PressKey(any, Qt::Key_Tab);
        } while (any.focusWidget() != first && stops.size() < 100);
        return stops;
    }
};

TEST_F(SignDialogLooks, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        InEach([](CDialog& any) {
            EXPECT_LE(any.sizeHint().width(), 800);
            EXPECT_LE(any.sizeHint().height(), 600);
            EXPECT_GE(any.width(), any.minimumSizeHint().width());
            EXPECT_GE(any.height(), any.minimumSizeHint().height());
            ExpectNothingClipped(any);
        });
    }
}

TEST_F(SignDialogLooks, NothingIsClippedAtTheSmallestSizeOrAtALargeOne) {
    InEach([](CDialog& any) {
        for (const QSize size : {any.minimumSizeHint(), QSize(1200, 900), any.sizeHint()}) {
            any.resize(size);
            QCoreApplication::sendPostedEvents();
            any.layout()->activate();
            ExpectNothingClipped(any);
        }
    });
}

TEST_F(SignDialogLooks, APositionOf16BitsFitsItsField) {
    for (const double factor : {1.0, 2.0}) {
        const FontScale scale(factor);
        CK4CmnDlgWindowControl windows("North", "Main", nullptr);
        Run(windows, [&] {
            const auto* edit = Item<QLineEdit>(windows, kRow + 1);
            EXPECT_GT(edit->width(),
                      edit->fontMetrics().horizontalAdvance(QStringLiteral("-32768")));
            windows.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(SignDialogLooks, EveryControlHasAnAccessibleName) {
    InEach([](CDialog& any) {
        int named = 0;
        for (const QWidget* control : any.findChildren<QWidget*>()) {
            const bool ofTheLayout = control->property("controlId").isValid();
            const bool arrow = control->inherits("QToolButton");
            if ((!ofTheLayout && !arrow) || control->inherits("QLabel"))
                continue;
            EXPECT_FALSE(control->accessibleName().isEmpty()) << Name(control);
            ++named;
        }
        EXPECT_GE(named, 10);
    });
}

TEST_F(SignDialogLooks, TheNamesOfAWindowsControlsTellItsNumber) {
    for (int k = 1; k <= 8; ++k) {
        const std::string window = "Window " + std::to_string(k);
        const std::pair<int, const char*> names[] = {{kEnable, " enable"},
                                                     {kWindowSign, " sign"},
                                                     {kRow, " row"},
                                                     {kColumn, " column"},
                                                     {kRowSpin, " row up and down"},
                                                     {kColumnSpin, " column up and down"}};
        for (const auto& [id, name] : names)
            EXPECT_EQ(Item<QWidget>(dialog, id + k)->accessibleName().toStdString(), window + name);
    }
}

TEST_F(SignDialogLooks, ALabelHasTheControlThatItNamesAsItsBuddy) {
    const auto buddy = [](const CDialog& any, const char* label) {
        const auto* found = any.findChild<QLabel*>(QLatin1String(label));
        return found && found->buddy() ? found->buddy()->property("controlId").toInt() : 0;
    };
    const CK4CmnDlgDimmingCtrl dimming("North", "Main", nullptr);
    EXPECT_EQ(buddy(dimming, "signLabel"), 1118);
    EXPECT_EQ(buddy(dimming, "manualCaption"), 1115);
    EXPECT_EQ(buddy(dimming, "photocellCaption"), 1116);
    for (int k = 1; k <= 8; ++k)
        EXPECT_EQ(buddy(dialog, ("number" + std::to_string(k)).c_str()), kEnable + k);
}

TEST_F(SignDialogLooks, EveryControlHasItsIdOnce) {
    const auto ids = [](const CDialog& any) {
        std::vector<int> found;
        for (const QWidget* control : any.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid())
                found.push_back(control->property("controlId").toInt());
        }
        std::sort(found.begin(), found.end());
        return found;
    };
    const CK4CmnDlgDimmingCtrl dimming("North", "Main", nullptr);
    EXPECT_THAT(ids(dimming), ElementsAre(1, 2, 3, 1111, 1112, 1113, 1114, 1115, 1116, 1118, 1119,
                                          1120, 1121, 1122, 1123, 1124));
    std::vector<int> expected{1, 2, 3};
    for (int id = kEnable + 1; id <= kColumnSpin + 8; ++id)
        expected.push_back(id);
    EXPECT_THAT(ids(dialog), ElementsAreArray(expected));
}

TEST_F(SignDialogLooks, TheTabKeyGoesThroughDimmingAsTheEyeDoes) {
    InDimming(
        5, [](CDialog& any) { EXPECT_THAT(TabStops(any), ElementsAre(1118, 1111, 1115, 1, 2)); });
    InDimming(
        2, [](CDialog& any) { EXPECT_THAT(TabStops(any), ElementsAre(1118, 1112, 1116, 1, 2)); });
    InDimming(4, [](CDialog& any) {
        Click(any, 1114);
        Item<QWidget>(any, 1118)->setFocus();
        EXPECT_THAT(TabStops(any), ElementsAre(1118, 1114, 1, 3, 2));
    });
}

TEST_F(SignDialogLooks, TheTabKeyGoesThroughWindowControlLineByLine) {
    std::vector<int> expected;
    for (int k = 1; k <= 8; ++k)
        expected.insert(expected.end(), {kEnable + k, kRow + k, kColumn + k});
    expected.insert(expected.end(), {kOk, kApply, kCancel});
    Run([&] {
        EXPECT_THAT(TabStops(dialog), ElementsAreArray(expected));
        Click(dialog, kCancel);
    });
}

TEST_F(SignDialogLooks, TheTabKeyGoesThroughSignFoldersAsTheEyeDoes) {
    InFolders([](CDialog& any) {
        EXPECT_THAT(TabStops(any), ElementsAre(1267, 1015, 1017, 1014, 1021, 1022, 1, 2));
        Click(any, 1267);
        EXPECT_THAT(TabStops(any), ElementsAre(1267, 1014, 1021, 1022, 1, 2));
    });
}

TEST_F(SignDialogLooks, TheControlsOfSignFoldersHaveTheirIdsOnce) {
    InFolders([](CDialog& any) {
        for (const int id : {1, 2, 1014, 1015, 1017, 1019, 1020, 1021, 1022, 1048, 1267}) {
            int found = 0;
            for (const QWidget* control : any.findChildren<QWidget*>())
                found += control->property("controlId").toInt() == id;
            EXPECT_EQ(found, 1) << id;
        }
    });
}

TEST_F(SignDialogLooks, EachWindowStandsInALineUnderTheHeadings) {
    Run([&] {
        const auto heading = [&](const char* name) {
            return Place(dialog, dialog.findChild<QLabel*>(QLatin1String(name)));
        };
        for (int k = 1; k <= 8; ++k) {
            const auto at = [&](int id) { return Place(dialog, Item<QWidget>(dialog, id + k)); };
            EXPECT_NEAR(at(kEnable).center().x(), heading("enableHeading").center().x(), 1);
            EXPECT_EQ(at(kWindowSign).left(), heading("windowSignHeading").left());
            EXPECT_EQ(at(kRow).left(), heading("rowHeading").left());
            EXPECT_EQ(at(kColumn).left(), heading("columnHeading").left());
            for (const int id : {+kEnable, +kRow, +kRowSpin, +kColumn, +kColumnSpin})
                EXPECT_NEAR(at(id).center().y(), at(kWindowSign).center().y(), 1) << id + k;
        }
        Click(dialog, kCancel);
    });
}

TEST_F(SignDialogLooks, OkIsTheDefaultAndTheButtonsStandAtTheLowerRight) {
    InEach([](CDialog& any) {
        EXPECT_TRUE(Item<QPushButton>(any, 1)->isDefault());
        const QRect ok = Place(any, Item<QWidget>(any, 1));
        const QRect cancel = Place(any, Item<QWidget>(any, 2));
        QRect before = ok;
        if (const QWidget* button = any.GetDlgItem(3)) {
            const QRect apply = Place(any, button);
            EXPECT_LT(ok.right(), apply.left());
            EXPECT_EQ(ok.top(), apply.top());
            before = apply;
        }
        EXPECT_LT(before.right(), cancel.left());
        EXPECT_EQ(ok.top(), cancel.top());
        EXPECT_LT(any.width() - cancel.right(), 20);
        EXPECT_LT(any.height() - cancel.bottom(), 20);
    });
}

TEST_F(SignDialogLooks, ADialogCarriesItsHelpId) {
    InEach([](CDialog& any) {
        EXPECT_EQ(k4cmn::GetWindowContextHelpId(&any), any.ResourceId() + 0x20000);
    });
}

TEST_F(SignDialogLooks, TheTwoSlidersOfDimmingLineUp) {
    InDimming(5, [](CDialog& any) {
        const QRect level = Place(any, Item<QSlider>(any, 1115));
        const QRect offset = Place(any, Item<QSlider>(any, 1116));
        EXPECT_EQ(level.left(), offset.left());
        EXPECT_EQ(level.width(), offset.width());
        EXPECT_GE(level.width(), 256);
    });
}

}  // namespace
}  // namespace k4test

#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "k4cmndlg/filesel/CreateLibraryDialog.h"
#include "k4cmndlg/frame/contracts/Profile.h"
#include "tests/filesel/FileSelWindowFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;

class FileSelLooksWindow : public FileSelWindow {
 protected:
    static QRect Place(const CDialog& any, const QWidget* control) {
        return {control->mapTo(&any, QPoint(0, 0)), control->size()};
    }
    static std::vector<QWidget*> Controls(const CDialog& any) {
        std::vector<QWidget*> controls;
        for (QWidget* control : any.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid())
                controls.push_back(control);
        }
        return controls;
    }
    /// Everything is inside, nothing lies on anything else, and every text has its room.
    static void ExpectNothingClipped(const CDialog& any, std::size_t atLeast) {
        Settle();
        const std::vector<QWidget*> controls = Controls(any);
        EXPECT_GE(controls.size(), atLeast);
        for (const QWidget* control : controls) {
            const std::string name = control->objectName().toStdString();
            const QRect place = Place(any, control);
            EXPECT_TRUE(any.rect().contains(place)) << name;
            if (qobject_cast<const QLabel*>(control) ||
                qobject_cast<const QAbstractButton*>(control)) {
                EXPECT_GE(control->width(), control->sizeHint().width()) << name;
                EXPECT_GE(control->height(), control->sizeHint().height()) << name;
            }
            if (qobject_cast<const QLineEdit*>(control) ||
                qobject_cast<const QComboBox*>(control)) {
                EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
            }
            for (const QWidget* other : controls) {
                if (other != control) {
                    EXPECT_FALSE(place.intersects(Place(any, other)))
                        << name << " and " << other->objectName().toStdString();
                }
            }
        }
    }
    int FocusedControl() const {
        const QWidget* control = dialog->focusWidget();
        while (control && !control->property("controlId").isValid())
            control = control->parentWidget();
        return control ? control->property("controlId").toInt() : 0;
    }
};

TEST_F(FileSelLooksWindow, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        ShowAt(At("b"));
        ExpectNothingClipped(*dialog, 18);
        const QSize least = dialog->minimumSizeHint();
        EXPECT_LE(least.width(), 784);
        EXPECT_LE(least.height(), 552);
        EXPECT_LE(dialog->width(), dialog->screen()->availableSize().width());
        EXPECT_LE(dialog->height(), dialog->screen()->availableSize().height());
        for (const QSize size : {least, QSize(1400, 1000)}) {
            dialog->resize(size);
            ExpectNothingClipped(*dialog, 18);
        }
        dialog->DestroyWindow();

        k4cmn::CreateLibraryDialog library("A:\\" + std::string(kType), "", nullptr);
        RunModal(library, [&] {
            ExpectNothingClipped(library, 5);
            EXPECT_LE(library.width(), 800);
            library.EndDialog(IDCANCEL);
        });
    }
}

TEST_F(FileSelLooksWindow, TheColumnsAreSeenWithoutScrolling) {
    ShowAt(At("b"));
    int columns = 0;
    for (int column = 0; column < 4; ++column)
        columns += Rows().visualRect(Rows().model()->index(0, column)).width();
    EXPECT_LE(columns, Rows().viewport()->width());
}

TEST_F(FileSelLooksWindow, TheWindowCanBeResizedAndThePanesGrow) {
    ShowAt(At("b"));
    const int height = List().height();
    const int nameTop = The<QWidget>(kFileName)->y();
    dialog->resize(dialog->width(), dialog->height() + 100);
    Settle();
    EXPECT_EQ(List().height(), height + 100);
    EXPECT_EQ(The<QWidget>(kFileName)->y(), nameTop + 100);
    EXPECT_TRUE(dialog->isSizeGripEnabled());
}

TEST_F(FileSelLooksWindow, EveryControlHasAnIdOnceAndAName) {
    New();
    const k4cmn::CreateLibraryDialog library("A:\\x", "", nullptr);
    std::vector<int> ids;
    for (const CDialog* any :
         {static_cast<const CDialog*>(dialog.get()), static_cast<const CDialog*>(&library)}) {
        for (const QWidget* control : Controls(*any)) {
            ids.push_back(control->property("controlId").toInt());
            const bool says = qobject_cast<const QLabel*>(control) ||
                              qobject_cast<const QPushButton*>(control) ||
                              !control->accessibleName().isEmpty();
            EXPECT_TRUE(says) << ids.back();
        }
    }
    std::sort(ids.begin(), ids.end());
    EXPECT_THAT(ids, ElementsAre(1, 1, 2, 2, 1070, 1071, 1072, 1073, 1074, 1075, 1076, 1077, 1078,
                                 1079, 1080, 1081, 1082, 1083, 1084, 1085, 1086, 1087, 1088));
}

TEST_F(FileSelLooksWindow, LabelsAndTheirLettersLeadToTheirControls) {
    ShowAt(At("b"));
    const std::pair<int, int> buddies[] = {
        {1082, kPath}, {1083, kFileName}, {1084, kFileTypes}, {1085, kLastModified}};
    for (const auto& [label, control] : buddies)
        EXPECT_EQ(The<QLabel>(label)->buddy(), The<QWidget>(control)) << label;
    const std::pair<Qt::Key, int> letters[] = {
        {Qt::Key_N, kFileName}, {Qt::Key_T, kFileTypes}, {Qt::Key_M, kLastModified}};
    for (const auto& [key, control] : letters) {
        QTest::keyClick(dialog->windowHandle(), key, Qt::AltModifier);
        EXPECT_EQ(FocusedControl(), control);
    }
    QTest::keyClick(dialog->windowHandle(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog->isVisible(); }));
}

TEST_F(FileSelLooksWindow, TheTabKeyGoesThroughItAsTheEyeDoes) {
    ShowAt(At("b"));
    The<QWidget>(kPath)->setFocus();
    std::vector<int> stops;
    for (int i = 0; i < 14; ++i) {
        stops.push_back(FocusedControl());
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
    }
    // The band between tree and list has no id of its own.
    EXPECT_THAT(stops, ElementsAre(kPath, kUp, kDetails, kSignFilter, kProperties, kTree, 0, kList,
                                   kFileName, kFileTypes, kLastModified, kSearch, IDOK, IDCANCEL));
    EXPECT_EQ(FocusedControl(), kPath);
}

TEST_F(FileSelLooksWindow, TheTwoViewButtonsAreOneStopAndTheArrowKeysChoose) {
    ShowAt(At("b"));
    The<QWidget>(kUp)->setFocus();
    for (const auto& [key, button] :
         {std::pair{Qt::Key_Left, kListView}, {Qt::Key_Right, kDetails}}) {
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
        QTest::keyClick(dialog->windowHandle(), key);
        EXPECT_EQ(FocusedControl(), button);
        EXPECT_TRUE(IsPressed(button));
        EXPECT_EQ(List().ShowsDetails(), button == kDetails);
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
        EXPECT_EQ(FocusedControl(), kSignFilter);
        The<QWidget>(kUp)->setFocus();
    }
}

TEST_F(FileSelLooksWindow, OkIsTheDefaultAndAToolButtonTakesNoFocusByAClick) {
    ShowAt(At("b"));
    EXPECT_TRUE(The<QPushButton>(IDOK)->isDefault());
    Tree().setFocus();
    Press(kUp);
    EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(FileSelLooksWindow, EachTitleHasItsPlace) {
    k4test::MemoryProfile places;
    const k4cmn::ScopedProvider<k4cmn::Profile> use(places);
    ShowAt(At("b"));
    dialog->move(10, 50);
    dialog->DestroyWindow();
    EXPECT_EQ(places.values.count({"Dialogs\\Select File", "WindowPos"}), 1U);
    EXPECT_EQ(places.values.count({"Dialogs\\K4File", "WindowPos"}), 0U);
    New(K4_FILE_MANAGER);
    Show();
    EXPECT_EQ(dialog->pos(), QPoint(10, 50)) << "created under the title of the template";
    dialog->DestroyWindow();
    EXPECT_EQ(places.values.count({"Dialogs\\K4File", "WindowPos"}), 1U);
}

TEST_F(FileSelLooksWindow, F1TellsAboutTheControl) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> use(help);
    ShowAt(At("b"));
    const std::pair<QWidget*, std::uint32_t> rows[] = {
        {&Tree(), kTree}, {&Rows(), kList}, {The<QWidget>(kFileTypes), kFileTypes}};
    for (const auto& [control, id] : rows) {
        control->setFocus();
        QTest::keyClick(dialog->windowHandle(), Qt::Key_F1);
        ASSERT_FALSE(help.calls.empty()) << id;
        EXPECT_EQ(help.calls.back().data, 0x1000000 + (110U << 16 | id));
    }
}

TEST_F(FileSelLooksWindow, NothingIsLeftOfTheWaitCursorAndMessagesHaveAnArrow) {
    ShowAt(At());
    ClickRow("a");
    KeyInList(Qt::Key_C, Qt::ControlModifier);
    ClickItem({"A:", kOtherType});
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    ClickItem({"B:"});
    bool isArrow = false;
    messages.Expect(Question("Create Sign Type: \nB:\\" + std::string(kType) + ".Sign\\?"),
                    k4cmn::MessageAnswer::Cancel, [&] {
                        isArrow = QGuiApplication::overrideCursor() &&
                                  QGuiApplication::overrideCursor()->shape() == Qt::ArrowCursor;
                    });
    messages.Expect("Cannot paste files -- Sign Type not specified");
    KeyInTree(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(messages.Pending(), 0U);
    EXPECT_TRUE(isArrow);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace k4test

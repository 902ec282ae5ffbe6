#include <QVBoxLayout>
#include <algorithm>

#include "k4cmndlg/frame/contracts/Profile.h"
#include "tests/filesel/PreviewFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using testing::ElementsAre;

constexpr char kOne[] = "A:\\One.SQ4";

class PreviewLooks : public Preview {
 protected:
    static QRect Place(const CDialog& any, const QWidget* control) {
        return {control->mapTo(&any, QPoint(0, 0)), control->size()};
    }
    static std::vector<QWidget*> Controls(const CDialog& any) {
        std::vector<QWidget*> controls;
        for (QWidget* control : any.findChildren<QWidget*>()) {
            if (control->property("controlId").isValid() && control->isVisible())
                controls.push_back(control);
        }
        return controls;
    }
    /// Everything is inside, nothing lies on anything else, and every text has its room.
    static void ExpectNothingClipped(CDialog& any) {
        QCoreApplication::processEvents();
        const std::vector<QWidget*> controls = Controls(any);
        EXPECT_GE(controls.size(), 26u);
        for (const QWidget* control : controls) {
            const std::string name = control->objectName().toStdString();
            const QRect place = Place(any, control);
            EXPECT_TRUE(any.rect().contains(place)) << name;
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << name;
            EXPECT_GE(control->height(), control->minimumSizeHint().height()) << name;
            if (qobject_cast<const QLabel*>(control) ||
                qobject_cast<const QAbstractButton*>(control)) {
                EXPECT_GE(control->width(), control->sizeHint().width()) << name;
                EXPECT_GE(control->height(), control->sizeHint().height()) << name;
            }
            for (const QWidget* other : controls) {
                if (other != control) {
                    EXPECT_FALSE(place.intersects(Place(any, other)))
                        << name << " and " << other->objectName().toStdString();
                }
            }
        }
    }
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

TEST_F(PreviewLooks, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    auto facts = Facts(64, 64);
    facts.previewOnly = true;
    MakeColored("A:\\Wide.SQ4", 3, Facts(8, 192));
    MakeColored("A:\\Square.SQ4", 3, facts);
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        ProbePane any(nullptr);
        Show(any);
        ExpectNothingClipped(any);
        for (const char* path : {"A:\\Wide.SQ4", "A:\\Square.SQ4"}) {
            any.UpdateSelection(path);
            ExpectNothingClipped(any);
            EXPECT_LE(any.width(), 800);
            EXPECT_LE(any.height(), 600);
            EXPECT_LE(any.sizeHint().width(), 800);
            EXPECT_LE(any.sizeHint().height(), 600);
        }
        for (const QSize size : {any.minimumSizeHint(), QSize(1200, 900)}) {
            any.resize(size);
            ExpectNothingClipped(any);
        }
        any.close();
    }
}

TEST_F(PreviewLooks, AFrameNumberOfFiveDigitsFitsItsField) {
    for (const double factor : {1.0, 2.0}) {
        const FontScale scale(factor);
        ProbePane any(nullptr);
        Show(any);
        for (const int id : {Pane::kThumbnailFrame, Pane::kFrameCount}) {
            const auto* field = Item<QLineEdit>(any, id);
            EXPECT_GT(field->width(),
                      field->fontMetrics().horizontalAdvance(QStringLiteral("65535")) + 4);
        }
        any.close();
    }
}

TEST_F(PreviewLooks, EveryControlHasAnIdOnceAndAName) {
    std::vector<int> ids;
    for (const QWidget* control : pane.findChildren<QWidget*>()) {
        if (!control->property("controlId").isValid())
            continue;
        ids.push_back(control->property("controlId").toInt());
        if (!qobject_cast<const QLabel*>(control)) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << ids.back();
        }
    }
    std::sort(ids.begin(), ids.end());
    std::vector<int> expected{IDOK};
    for (int id = Pane::kFileNameCaption; id <= Pane::kFrameCount; ++id)
        expected.push_back(id);
    EXPECT_EQ(ids, expected);
    for (const QLabel* label : pane.findChildren<QLabel*>())
        EXPECT_TRUE(label->property("controlId").isValid()) << label->objectName().toStdString();
}

TEST_F(PreviewLooks, ACaptionHasTheControlThatItNamesAsItsBuddy) {
    for (const int id :
         {Pane::kFileNameCaption, Pane::kFrameSizeCaption, Pane::kPixelTechCaption,
          Pane::kColorTechCaption, Pane::kDurationCaption, Pane::kFramesCaption,
          Pane::kCompressionCaption, Pane::kKeywordsCaption, Pane::kNotesCaption,
          Pane::kThumbnailCaption, Pane::kThumbnailFrameCaption, Pane::kFrameCountCaption}) {
        const QWidget* buddy = At<QLabel>(id)->buddy();
        ASSERT_NE(buddy, nullptr) << id;
        EXPECT_EQ(buddy->property("controlId").toInt(), id + 1);
    }
}

TEST_F(PreviewLooks, LettersOfCaptionsLeadToTheirControls) {
    MakeColored(kOne, 3);
    Show(kOne);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    const std::pair<Qt::Key, int> rows[] = {{Qt::Key_C, Pane::kCompression},
                                            {Qt::Key_N, Pane::kNotes},
                                            {Qt::Key_F, Pane::kThumbnailFrame},
                                            {Qt::Key_K, Pane::kKeywords}};
    for (const auto& [key, id] : rows) {
        PressKey(pane, key, Qt::AltModifier);
        EXPECT_EQ(FocusedId(pane), id);
    }
    pane.close();
}

TEST_F(PreviewLooks, TheTabKeyGoesThroughItAsTheEyeDoes) {
    MakeColored(kOne, 3);
    Show(kOne);
    At<QWidget>(Pane::kFileName)->setFocus();
    EXPECT_THAT(TabStops(pane),
                ElementsAre(Pane::kFileName, Pane::kCompression, Pane::kKeywords, Pane::kNotes,
                            Pane::kThumbnailFrame, Pane::kFrameCount, IDOK));
    pane.close();
}

TEST_F(PreviewLooks, OkIsTheDefaultAndTheCountIsReadOnly) {
    EXPECT_TRUE(At<QPushButton>(IDOK)->isDefault());
    EXPECT_TRUE(At<QLineEdit>(Pane::kFrameCount)->isReadOnly());
    EXPECT_TRUE(At<QLineEdit>(Pane::kFileName)->isReadOnly());
}

TEST_F(PreviewLooks, InAWindowWithALayoutItTakesTheRoomThatThereIs) {
    MakeColored("A:\\Wide.SQ4", 3, Facts(64, 192));
    MakeColored("A:\\Square.SQ4", 3, Facts(64, 64));
    {
        QWidget window;
        QVBoxLayout column(&window);
        Show();
        pane.DestroyWindow();
        ASSERT_EQ(pane.Create(Pane::kTemplate, &window), 1);
        column.addWidget(&pane);
        window.show();
        pane.show();
        for (const char* path : {"A:\\Wide.SQ4", "A:\\Square.SQ4"}) {
            pane.UpdateSelection(path);
            ExpectNothingClipped(pane);
            EXPECT_TRUE(window.rect().contains(pane.geometry()));
        }
        PressKey(pane, Qt::Key_Escape);
        EXPECT_FALSE(pane.isVisible());
        EXPECT_TRUE(window.isVisible()) << "Escape closes the pane alone";
        window.close();
        // The pane isn't the window's to delete.
        pane.setParent(nullptr);
    }
    Show();
    EXPECT_TRUE(pane.isWindow()) << "without a window to stand in it is one again";
    pane.close();
}

TEST_F(PreviewLooks, ComesBackWhereItWasLeftWhateverItHasShown) {
    k4test::MemoryProfile places;
    const k4cmn::ScopedProvider<k4cmn::Profile> use(places);
    MakeColored(kOne, 3);
    Show(kOne);
    pane.move(90, 60);
    pane.close();
    EXPECT_THAT(places.values,
                ElementsAre(testing::Key(testing::Pair("Dialogs\\File Properties", "WindowPos"))));
    ProbePane other(nullptr);
    other.UpdateSelection(kOne);
    Show(other);
    EXPECT_EQ(other.pos(), QPoint(90, 60));
    EXPECT_EQ(other.windowTitle(), QStringLiteral("Properties for One.SQ4"));
    other.close();
}

TEST_F(PreviewLooks, F1TellsAboutTheControlAlsoInAChild) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> use(help);
    const std::uint32_t id = 0x1000000 + (Pane::kTemplate << 16 | Pane::kNotes);
    Show();
    At<QWidget>(Pane::kNotes)->setFocus();
    PressKey(pane, Qt::Key_F1);
    ASSERT_EQ(help.calls.size(), 1u);
    EXPECT_EQ(help.calls.back().data, id);
    pane.close();

    QWidget window;
    window.resize(700, 600);
    window.show();
    Show(pane, &window);
    At<QWidget>(Pane::kNotes)->setFocus();
    PressKey(pane, Qt::Key_F1);
    ASSERT_EQ(help.calls.size(), 2u);
    EXPECT_EQ(help.calls.back().data, id);
    pane.DestroyWindow();
    pane.setParent(nullptr);
    window.close();
}

}  // namespace
}  // namespace k4test

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <QWhatsThis>
#include <QWindow>

#include "tests/frame/FrameProbe.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingHelpSystem.h"

using k4cmn::GetWindowContextHelpId;
using k4cmn::HelpRequest;
using k4cmn::HelpSystem;
using k4cmn::ScopedProvider;
using k4cmn::SetWindowContextHelpId;
using k4test::FrameProbe;
using k4test::RecordingHelpSystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::uint32_t kContext = 1;
constexpr std::uint32_t kPopup = 8;
constexpr std::uint32_t kFinder = 11;
constexpr std::uint32_t kDialogId = 0x200B0;

template <class Base>
constexpr std::uint32_t kOffset = std::is_same_v<Base, CK4CmnDlgBase> ? 0x1000000 : 0;

/// What both bases have to do alike, but for the offset.
template <class Base>
class DialogHelp : public testing::Test {
 protected:
    DialogHelp() {
        m_dialog.Create();
        m_dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
    }
    ~DialogHelp() override {
        QWhatsThis::leaveWhatsThisMode();
        m_dialog.DestroyWindow();
    }

    RecordingHelpSystem::Call Call(QWidget* window, std::uint32_t command, std::uint32_t data) {
        return {window, "k4test.hlp", command, data + kOffset<Base>};
    }
    RecordingHelpSystem::Call OfDialog() { return Call(&m_dialog, kContext, kDialogId); }
    void PointAt(QWidget* control) {
        QWhatsThis::enterWhatsThisMode();
        QTest::mouseClick(control, Qt::LeftButton);
    }
    /// A right click, as the platform hands it to the window. On a window, at its margin.
    void RightClick(QWidget* control) {
        QWidget* window = control->window();
        const QPoint place =
            control == window ? QPoint(1, 1) : control->mapTo(window, control->rect().center());
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {}, place);
    }

    RecordingHelpSystem m_help;
    ScopedProvider<HelpSystem> m_installed{m_help};
    FrameProbe<Base> m_dialog;
};

using Bases = testing::Types<CK4CmnDialog, CK4CmnDlgBase>;
TYPED_TEST_SUITE(DialogHelp, Bases);

}  // namespace

TYPED_TEST(DialogHelp, DialogHasItsResourceIdPlus0x20000) {
    EXPECT_EQ(GetWindowContextHelpId(&this->m_dialog), 0x200B0u);
    FrameProbe<TypeParam> notCreated;
    EXPECT_EQ(GetWindowContextHelpId(&notCreated), 0u);
}

TYPED_TEST(DialogHelp, ControlsHaveIdsOfTheirOwnOrMadeOfTheirNumbers) {
    auto& dialog = this->m_dialog;
    EXPECT_EQ(GetWindowContextHelpId(dialog.m_field), 5u);
    EXPECT_EQ(GetWindowContextHelpId(dialog.m_combo), 0x00B003FEu);
    EXPECT_EQ(GetWindowContextHelpId(dialog.m_label), 0x00B0FFFFu);
    EXPECT_EQ(GetWindowContextHelpId(dialog.m_plain), 0u);
    EXPECT_EQ(GetWindowContextHelpId(nullptr), 0u);
    SetWindowContextHelpId(dialog.m_combo, 0);
    EXPECT_EQ(GetWindowContextHelpId(dialog.m_combo), 0u);
    SetWindowContextHelpId(nullptr, 5);
}

TYPED_TEST(DialogHelp, LabelWithANumberHasAnIdLikeAnyControl) {
    this->m_dialog.m_label->setProperty("controlId", 1120);
    EXPECT_EQ(GetWindowContextHelpId(this->m_dialog.m_label), 0x00B00460u);
}

TYPED_TEST(DialogHelp, HelpButtonShowsTheDialogsTopic) {
    QTest::mouseClick(this->m_dialog.m_help, Qt::LeftButton);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, DialogWithoutATopicShowsTheContents) {
    for (const std::uint32_t id : {0u, 0x20000u, 0x2FFFFu, 0xFFFFu}) {
        this->m_help.calls.clear();
        SetWindowContextHelpId(&this->m_dialog, id);
        this->m_dialog.DefaultWinHelp();
        EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(&this->m_dialog, kFinder, 0))) << id;
    }
}

TYPED_TEST(DialogHelp, F1AsksForTheControlWithTheFocus) {
    this->m_dialog.m_field->setFocus();
    QTest::keyClick(this->m_dialog.m_field, Qt::Key_F1);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_field, kPopup, 5)));
}

TYPED_TEST(DialogHelp, F1OnAControlWithoutAnIdShowsTheDialogsHelp) {
    this->m_dialog.m_plain->setFocus();
    QTest::keyClick(this->m_dialog.m_plain, Qt::Key_F1);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, F1OnAControlWithTheDialogsIdShowsTheDialogsHelp) {
    SetWindowContextHelpId(this->m_dialog.m_plain, kDialogId);
    QTest::keyClick(this->m_dialog.m_plain, Qt::Key_F1);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, F1OnTheDialogItselfShowsItsHelp) {
    QTest::keyClick(&this->m_dialog, Qt::Key_F1);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, F1InsideAControlOfPartsAsksForTheWholeControl) {
    QLineEdit* inner = this->m_dialog.m_combo->lineEdit();
    inner->setFocus();
    QTest::keyClick(inner, Qt::Key_F1);
    EXPECT_THAT(this->m_help.calls,
                ElementsAre(this->Call(this->m_dialog.m_combo, kPopup, 0x00B003FE)));
}

TYPED_TEST(DialogHelp, OtherKeysAskForNothing) {
    QTest::keyClick(this->m_dialog.m_field, Qt::Key_F2);
    QTest::keyClick(this->m_dialog.m_field, Qt::Key_F1, Qt::ControlModifier);
    EXPECT_THAT(this->m_help.calls, IsEmpty());
}

TYPED_TEST(DialogHelp, QuestionMarkToolAsksForTheControlThatIsClickedOn) {
    this->PointAt(this->m_dialog.m_field);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_field, kPopup, 5)));
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
}

TYPED_TEST(DialogHelp, QuestionMarkToolIsInTheTitleBar) {
    EXPECT_TRUE(this->m_dialog.windowFlags() & Qt::WindowContextHelpButtonHint);
}

TYPED_TEST(DialogHelp, QuestionMarkOnALabelShowsTheNextControlsTopicOnTheLabel) {
    this->PointAt(this->m_dialog.m_label);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_label, kPopup, 5)));
}

TYPED_TEST(DialogHelp, QuestionMarkOnALabelBeforeAControlWithoutHelpShowsTheDialogs) {
    this->PointAt(this->m_dialog.m_plainLabel);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, QuestionMarkOnTheDialogShowsItsHelp) {
    this->PointAt(&this->m_dialog);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, QuestionMarkOnADisabledControlShowsItsHelp) {
    this->m_dialog.m_field->setEnabled(false);
    this->PointAt(this->m_dialog.m_field);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_field, kPopup, 5)));
}

TYPED_TEST(DialogHelp, LastLabelIsFollowedByTheFirstControl) {
    this->PointAt(this->m_dialog.m_lastLabel);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_lastLabel, kPopup, 5)));
}

TYPED_TEST(DialogHelp, ControlsThatTabCannotReachDoNotFollowALabel) {
    auto& dialog = this->m_dialog;
    SetWindowContextHelpId(dialog.m_combo, 77);
    dialog.m_field->setEnabled(false);
    dialog.m_plain->hide();
    this->PointAt(dialog.m_label);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(dialog.m_label, kPopup, 77)));
}

TYPED_TEST(DialogHelp, LabelAloneInTheOrderShowsTheDialogsHelp) {
    auto& dialog = this->m_dialog;
    for (QWidget* control :
         {static_cast<QWidget*>(dialog.m_field), static_cast<QWidget*>(dialog.m_plain),
          static_cast<QWidget*>(dialog.m_combo), static_cast<QWidget*>(dialog.m_help)})
        control->setEnabled(false);
    HelpRequest request{dialog.m_label, GetWindowContextHelpId(dialog.m_label)};
    EXPECT_EQ(dialog.OnHelpInfo(&request), 1);
    dialog.EnableRightClickHelp(1);
    EXPECT_EQ(dialog.OnContextMenu(dialog.m_label, {}), 1);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog(), this->OfDialog()));
}

TYPED_TEST(DialogHelp, LabelWithABuddyIsFollowedByItWhateverTheOrder) {
    auto& dialog = this->m_dialog;
    dialog.m_plainLabel->setBuddy(dialog.m_field);
    this->PointAt(dialog.m_plainLabel);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(dialog.m_plainLabel, kPopup, 5)));
}

TYPED_TEST(DialogHelp, RequestKeepsTheIdThatItEndsWith) {
    auto& dialog = this->m_dialog;
    HelpRequest label{dialog.m_label, GetWindowContextHelpId(dialog.m_label)};
    EXPECT_EQ(dialog.OnHelpInfo(&label), 1);
    EXPECT_EQ(label.contextId, 5u);
    HelpRequest plain{dialog.m_plainLabel, GetWindowContextHelpId(dialog.m_plainLabel)};
    EXPECT_EQ(dialog.OnHelpInfo(&plain), 1);
    EXPECT_EQ(plain.contextId, 0u);
}

TYPED_TEST(DialogHelp, RequestForAnythingButAControlIsThePlatforms) {
    HelpRequest menu{&this->m_dialog, 5, false};
    EXPECT_EQ(this->m_dialog.OnHelpInfo(&menu), 0);
    HelpRequest nothing;
    EXPECT_EQ(this->m_dialog.OnHelpInfo(&nothing), 0);
    EXPECT_THAT(this->m_help.calls, IsEmpty());
}

TYPED_TEST(DialogHelp, RightClickIsThePlatformsUntilItIsSwitchedOn) {
    auto& dialog = this->m_dialog;
    this->RightClick(dialog.m_field);
    EXPECT_THAT(this->m_help.calls, IsEmpty());
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr) << "the field shows its own menu";
    menu->close();
    EXPECT_EQ(dialog.OnContextMenu(dialog.m_field, {}), 0);
}

TYPED_TEST(DialogHelp, RightClickShowsTheControlsTopic) {
    this->m_dialog.EnableRightClickHelp(1);
    this->RightClick(this->m_dialog.m_field);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_field, kPopup, 5)));
}

TYPED_TEST(DialogHelp, RightClickOnAControlWithoutAnIdShowsTheDialogsHelp) {
    this->m_dialog.EnableRightClickHelp(1);
    this->RightClick(this->m_dialog.m_plain);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, RightClickOnALabelShowsTheNextControlsTopicOnThatControl) {
    this->m_dialog.EnableRightClickHelp(1);
    this->RightClick(this->m_dialog.m_label);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(this->m_dialog.m_field, kPopup, 5)));
}

TYPED_TEST(DialogHelp, RightClickOnALabelBeforeAControlWithoutHelpShowsTheDialogs) {
    this->m_dialog.EnableRightClickHelp(1);
    this->RightClick(this->m_dialog.m_plainLabel);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, RightClickOnTheDialogShowsItsHelp) {
    this->m_dialog.EnableRightClickHelp(1);
    this->RightClick(&this->m_dialog);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->OfDialog()));
}

TYPED_TEST(DialogHelp, RightClickOnAControlWithTheDialogsIdShowsAPopup) {
    this->m_dialog.EnableRightClickHelp(1);
    SetWindowContextHelpId(this->m_dialog.m_plain, kDialogId);
    this->RightClick(this->m_dialog.m_plain);
    EXPECT_THAT(this->m_help.calls,
                ElementsAre(this->Call(this->m_dialog.m_plain, kPopup, kDialogId)));
}

TYPED_TEST(DialogHelp, RightClickCanBeSwitchedOffAgain) {
    this->m_dialog.EnableRightClickHelp(1);
    this->m_dialog.EnableRightClickHelp(0);
    this->RightClick(this->m_dialog.m_plain);
    EXPECT_THAT(this->m_help.calls, IsEmpty());
}

TYPED_TEST(DialogHelp, AnotherWindowsRequestsAreItsOwn) {
    this->m_dialog.EnableRightClickHelp(1);
    QLineEdit other;
    other.setContextMenuPolicy(Qt::PreventContextMenu);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    QTest::keyClick(&other, Qt::Key_F1);
    this->RightClick(&other);
    EXPECT_THAT(this->m_help.calls, IsEmpty());
}

TYPED_TEST(DialogHelp, GroupFrameIsLikeALabel) {
    QDialog* dialog = &this->m_dialog;
    auto* group = new QGroupBox(dialog);
    EXPECT_EQ(GetWindowContextHelpId(group), 0x00B0FFFFu);
}

TYPED_TEST(DialogHelp, ControlWithoutAnIdInsideAGroupFrameShowsTheDialogsHelp) {
    auto& dialog = this->m_dialog;
    auto* group = new QGroupBox(&dialog);
    auto* inside = new QCheckBox(group);
    group->setGeometry(0, 0, 100, 40);
    inside->setGeometry(10, 15, 80, 20);
    group->show();
    QWidget::setTabOrder(dialog.m_help, inside);  // so that the field comes behind the frame
    inside->setFocus();
    QTest::keyClick(inside, Qt::Key_F1);
    this->PointAt(inside);
    dialog.EnableRightClickHelp(1);
    this->RightClick(inside);
    EXPECT_THAT(this->m_help.calls,
                ElementsAre(this->OfDialog(), this->OfDialog(), this->OfDialog()));

    this->m_help.calls.clear();
    this->PointAt(group);
    SetWindowContextHelpId(group, 88);
    this->PointAt(inside);
    EXPECT_THAT(this->m_help.calls,
                ElementsAre(this->Call(group, kPopup, 5), this->Call(group, kPopup, 88)));
}

TYPED_TEST(DialogHelp, ShiftF1TakesUpTheQuestionMarkTool) {
    auto& dialog = this->m_dialog;
    dialog.m_field->setEnabled(false);
    dialog.m_plain->setFocus();
    QTest::keyClick(dialog.m_plain, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    EXPECT_THAT(this->m_help.calls, IsEmpty());
    QTest::mouseClick(dialog.m_field, Qt::LeftButton);
    EXPECT_THAT(this->m_help.calls, ElementsAre(this->Call(dialog.m_field, kPopup, 5)));
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
}

TYPED_TEST(DialogHelp, ShiftF1AgainAndEscapeLayTheQuestionMarkToolDown) {
    auto& dialog = this->m_dialog;
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(dialog.m_plain, key, modifiers);
        return QWhatsThis::inWhatsThisMode();
    };
    EXPECT_TRUE(press(Qt::Key_F1, Qt::ShiftModifier));
    EXPECT_FALSE(press(Qt::Key_F1, Qt::ShiftModifier));
    EXPECT_TRUE(press(Qt::Key_F1, Qt::ShiftModifier));
    EXPECT_FALSE(press(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_FALSE(press(Qt::Key_F1, Qt::ShiftModifier | Qt::ControlModifier));
    EXPECT_TRUE(dialog.isVisible()) << "Escape ended the tool, not the dialog";
    EXPECT_THAT(this->m_help.calls, IsEmpty());
}

TYPED_TEST(DialogHelp, ShiftF1InAnotherWindowIsItsOwn) {
    QCheckBox other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    QTest::keyClick(&other, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
}

namespace {

/// Counts how often the dialog is asked before the platform is.
class PassingDialog : public FrameProbe<CK4CmnDlgBase> {
 public:
    std::vector<QWidget*> asked;

 protected:
    int OnContextMenu(QWidget* window, const QPoint& point) override {
        asked.push_back(window);
        return FrameProbe::OnContextMenu(window, point);
    }
};

}  // namespace

TEST(DialogContextMenu, DialogIsAskedOnceForAClickThatItLeavesToThePlatform) {
    PassingDialog dialog;
    dialog.Create();
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    const QPoint place = dialog.m_plain->mapTo(&dialog, dialog.m_plain->rect().center());
    for (std::size_t click = 1; click <= 2; ++click) {
        QTest::mouseClick(dialog.windowHandle(), Qt::RightButton, {}, place);
        QCoreApplication::processEvents();
        EXPECT_EQ(dialog.asked.size(), click);
    }
    EXPECT_EQ(dialog.asked.front(), dialog.m_plain);
    dialog.DestroyWindow();
}

TEST(DialogHelpAlone, WithoutAHelpSystemNothingHappens) {
    FrameProbe<CK4CmnDlgBase> dialog;
    dialog.Create();
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    const auto windows = [] {
        QCoreApplication::processEvents();
        QWidgetList visible = QApplication::topLevelWidgets();
        visible.removeIf([](const QWidget* window) { return !window->isVisible(); });
        return visible;
    };
    dialog.DefaultWinHelp();
    EXPECT_THAT(windows(), ElementsAre(&dialog)) << "the dialog's help";
    QTest::keyClick(dialog.m_field, Qt::Key_F1);
    EXPECT_THAT(windows(), ElementsAre(&dialog)) << "a control's help";
    QTest::mouseClick(dialog.m_help, Qt::LeftButton);
    EXPECT_THAT(windows(), ElementsAre(&dialog)) << "the Help button";
    EXPECT_TRUE(dialog.isActiveWindow());
    dialog.DestroyWindow();
}

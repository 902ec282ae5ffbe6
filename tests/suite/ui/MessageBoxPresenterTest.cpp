#include "suite/ui/MessageBoxPresenter.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "tests/suite/ui/ModalScript.h"

using k4cmn::Message;
using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4cmn::MessageIcon;
using k4suite::MessageBoxPresenter;
using k4test::ModalScript;

namespace {

MessageAnswer ShowAnd(const Message& message, std::function<void(QMessageBox&)> action,
                      QWidget* parent = nullptr) {
    const ModalScript<QMessageBox> script(std::move(action));
    return MessageBoxPresenter().Show(parent, message);
}

void PressEnter(QMessageBox& box) {
    QTest::keyClick(&box, Qt::Key_Return);
}

void PressEscape(QMessageBox& box) {
    QTest::keyClick(&box, Qt::Key_Escape);
}

TEST(MessageBox, ShowsTextTitleAndIconAsTheyAre) {
    const Message message{"<b>3 & 4</b> &File\nsecond line", "A title", MessageButtons::Ok,
                          MessageIcon::Stop};
    ShowAnd(message, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("A title"));
        const auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), QStringLiteral("<b>3 & 4</b> &File\nsecond line"));
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        PressEnter(box);
    });
}

TEST(MessageBox, EmptyTitleIsTheApplicationsName) {
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Sign Bench"));
    ShowAnd(k4cmn::PlainMessage("text"), [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Sign Bench"));
        PressEnter(box);
    });
    QGuiApplication::setApplicationDisplayName(QString());
}

struct IconRow {
    MessageIcon icon;
    QMessageBox::Icon shown;
};

class MessageIcons : public testing::TestWithParam<IconRow> {};

TEST_P(MessageIcons, AreThoseOfTheToolkit) {
    ShowAnd({"text", {}, MessageButtons::Ok, GetParam().icon}, [](QMessageBox& box) {
        EXPECT_EQ(box.icon(), GetParam().shown);
        PressEnter(box);
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, MessageIcons,
                         testing::Values(IconRow{MessageIcon::None, QMessageBox::NoIcon},
                                         IconRow{MessageIcon::Information,
                                                 QMessageBox::Information},
                                         IconRow{MessageIcon::Exclamation, QMessageBox::Warning},
                                         IconRow{MessageIcon::Question, QMessageBox::Question},
                                         IconRow{MessageIcon::Stop, QMessageBox::Critical}));

struct ButtonsRow {
    const char* what;
    MessageButtons buttons;
    std::vector<std::pair<QMessageBox::StandardButton, MessageAnswer>> all;  ///< the default first
    MessageAnswer cautious;
};

class MessageButtonSets : public testing::TestWithParam<ButtonsRow> {};

TEST_P(MessageButtonSets, EachButtonAnswersByTheMouse) {
    for (const auto& row : GetParam().all) {
        EXPECT_EQ(ShowAnd({"text", {}, GetParam().buttons},
                          [&row](QMessageBox& box) {
                              EXPECT_EQ(box.buttons().size(),
                                        static_cast<qsizetype>(GetParam().all.size()));
                              ASSERT_NE(box.button(row.first), nullptr);
                              QTest::mouseClick(box.button(row.first), Qt::LeftButton);
                          }),
                  row.second);
    }
}

TEST_P(MessageButtonSets, EnterTakesTheFirstButton) {
    EXPECT_EQ(ShowAnd({"text", {}, GetParam().buttons}, PressEnter), GetParam().all[0].second);
}

TEST_P(MessageButtonSets, EscapeAndClosingAreCautious) {
    EXPECT_EQ(ShowAnd({"text", {}, GetParam().buttons}, PressEscape), GetParam().cautious);
    EXPECT_EQ(ShowAnd({"text", {}, GetParam().buttons}, [](QMessageBox& box) { box.close(); }),
              GetParam().cautious);
}

INSTANTIATE_TEST_SUITE_P(Rows, MessageButtonSets,
                         testing::Values(ButtonsRow{"Ok",
                                                    MessageButtons::Ok,
                                                    {{QMessageBox::Ok, MessageAnswer::Ok}},
                                                    MessageAnswer::Ok},
                                         ButtonsRow{"OkCancel",
                                                    MessageButtons::OkCancel,
                                                    {{QMessageBox::Ok, MessageAnswer::Ok},
                                                     {QMessageBox::Cancel, MessageAnswer::Cancel}},
                                                    MessageAnswer::Cancel},
                                         ButtonsRow{"YesNo",
                                                    MessageButtons::YesNo,
                                                    {{QMessageBox::Yes, MessageAnswer::Yes},
                                                     {QMessageBox::No, MessageAnswer::No}},
                                                    MessageAnswer::No},
                                         ButtonsRow{"YesNoCancel",
                                                    MessageButtons::YesNoCancel,
                                                    {{QMessageBox::Yes, MessageAnswer::Yes},
                                                     {QMessageBox::No, MessageAnswer::No},
                                                     {QMessageBox::Cancel, MessageAnswer::Cancel}},
                                                    MessageAnswer::Cancel},
                                         ButtonsRow{"RetryCancel",
                                                    MessageButtons::RetryCancel,
                                                    {{QMessageBox::Retry, MessageAnswer::Retry},
                                                     {QMessageBox::Cancel, MessageAnswer::Cancel}},
                                                    MessageAnswer::Cancel}),
                         [](const auto& row) { return row.param.what; });

TEST(MessageBox, BlocksItsParentOrElseTheApplication) {
    QWidget parent;
    parent.show();
    ShowAnd(
        k4cmn::PlainMessage("text"),
        [&parent](QMessageBox& box) {
            EXPECT_EQ(box.windowModality(), Qt::WindowModal);
            EXPECT_EQ(box.parentWidget(), &parent);
            PressEnter(box);
        },
        &parent);
    ShowAnd(k4cmn::PlainMessage("text"), [](QMessageBox& box) {
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        PressEnter(box);
    });
}

TEST(MessageBox, ParentThatGoesAnswersCautiously) {
    auto parent = std::make_unique<QWidget>();
    parent->show();
    QWidget* const window = parent.get();
    EXPECT_EQ(ShowAnd(
                  {"text", {}, MessageButtons::YesNo}, [&parent](QMessageBox&) { parent.reset(); },
                  window),
              MessageAnswer::No);
}

}  // namespace

#include "suite/ui/MessageBoxPresenter.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>

#include "k4cmndlg/frame/Text.h"

namespace k4suite {

using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4cmn::MessageIcon;

namespace {

constexpr QMessageBox::StandardButton kNone = QMessageBox::NoButton;

struct ButtonsRow {
    MessageButtons buttons;
    QMessageBox::StandardButton shown[3];  ///< the first is the default
};

constexpr ButtonsRow kButtons[] = {
    {MessageButtons::Ok, {QMessageBox::Ok, kNone, kNone}},
    {MessageButtons::OkCancel, {QMessageBox::Ok, QMessageBox::Cancel, kNone}},
    {MessageButtons::YesNo, {QMessageBox::Yes, QMessageBox::No, kNone}},
    {MessageButtons::YesNoCancel, {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}},
    {MessageButtons::RetryCancel, {QMessageBox::Retry, QMessageBox::Cancel, kNone}},
};

struct AnswerRow {
    QMessageBox::StandardButton button;
    MessageAnswer answer;
};

constexpr AnswerRow kAnswers[] = {
    {QMessageBox::Ok, MessageAnswer::Ok},       {QMessageBox::Cancel, MessageAnswer::Cancel},
    {QMessageBox::Yes, MessageAnswer::Yes},     {QMessageBox::No, MessageAnswer::No},
    {QMessageBox::Retry, MessageAnswer::Retry},
};

struct IconRow {
    MessageIcon icon;
    QMessageBox::Icon shown;
};

constexpr IconRow kIcons[] = {
    {MessageIcon::None, QMessageBox::NoIcon},
    {MessageIcon::Information, QMessageBox::Information},
    {MessageIcon::Exclamation, QMessageBox::Warning},
    {MessageIcon::Question, QMessageBox::Question},
    {MessageIcon::Stop, QMessageBox::Critical},
};

QMessageBox::StandardButton ButtonFor(MessageAnswer answer) {
    return std::find_if(std::begin(kAnswers), std::end(kAnswers),
                        [answer](const AnswerRow& row) { return row.answer == answer; })
        ->button;
}

void AddButtons(QMessageBox& box, MessageButtons buttons) {
    const ButtonsRow& row =
        *std::find_if(std::begin(kButtons), std::end(kButtons),
                      [buttons](const ButtonsRow& each) { return each.buttons == buttons; });
    for (const QMessageBox::StandardButton button : row.shown)
        if (button != kNone)
            box.addButton(button);
    box.setDefaultButton(row.shown[0]);
    box.setEscapeButton(ButtonFor(k4cmn::CautiousAnswer(buttons)));
}

QMessageBox::Icon PictureOf(MessageIcon icon) {
    return std::find_if(std::begin(kIcons), std::end(kIcons),
                        [icon](const IconRow& row) { return row.icon == icon; })
        ->shown;
}

}  // namespace

MessageAnswer MessageBoxPresenter::Show(QWidget* parent, const k4cmn::Message& message) {
    // Not on the stack: it is its parent's child, and the parent may go first.
    const QPointer<QMessageBox> box(new QMessageBox(parent));
    box->setIcon(PictureOf(message.icon));
    box->setWindowTitle(message.title.empty() ? QGuiApplication::applicationDisplayName()
                                              : k4cmn::ToQt(message.title));
    box->setTextFormat(Qt::PlainText);
    box->setText(k4cmn::ToQt(message.text));
    AddButtons(*box, message.buttons);
    box->setWindowModality(parent ? Qt::WindowModal : Qt::ApplicationModal);

    const int clicked = box->exec();
    const bool isAnswered = !box.isNull();
    delete box;
    for (const AnswerRow& row : kAnswers)
        if (isAnswered && row.button == clicked)
            return row.answer;
    return k4cmn::CautiousAnswer(message.buttons);
}

}  // namespace k4suite

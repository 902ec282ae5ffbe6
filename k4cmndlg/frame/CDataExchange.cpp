#include "k4cmndlg/frame/CDataExchange.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>

#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/LibraryStrings.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

using k4cmn::FormatMessage1;
using k4cmn::FromQt;
using k4cmn::LoadString;
using k4cmn::ToQt;

CDataExchange::CDataExchange(CDialog* pDlgWnd, bool saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(pDlgWnd) {}

void CDataExchange::PrepareControl(QWidget* control) {
    m_control = control;
}

void CDataExchange::Fail(const std::string& words) {
    m_ok = false;
    if (!words.empty())
        k4cmn::WindowPrompt(m_pDlgWnd).Ask(k4cmn::PlainMessage(words));
    if (!m_control)
        return;
    m_control->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(Control()))
        edit->selectAll();
    else if (auto* combo = qobject_cast<QComboBox*>(Control()); combo && combo->lineEdit())
        combo->lineEdit()->selectAll();
}

namespace {

/// Writes a text where it differs, so that the cursor and what can be undone stay otherwise.
void SetFieldText(QLineEdit* edit, const QString& text) {
    const QSignalBlocker quiet(edit);
    if (edit->text() != text)
        edit->setText(text);
}

/// Switches a radio button off, which one of a group refuses for itself.
void SwitchOff(QRadioButton* button) {
    QButtonGroup* group = button->group();
    const bool groupWas = group && group->exclusive();
    const bool buttonWas = button->autoExclusive();
    if (group)
        group->setExclusive(false);
    button->setAutoExclusive(false);
    button->setChecked(false);
    button->setAutoExclusive(buttonWas);
    if (group)
        group->setExclusive(groupWas);
}

/// Moves a number, which a parser reads from a text.
template <class Number, class Parse>
void ExchangeNumber(CDataExchange* pDX, QLineEdit* edit, Number& value, Parse parse) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(edit);
    if (pDX->Loading()) {
        SetFieldText(edit, QString::number(value));
        return;
    }
    if (const auto number = parse(FromQt(edit->text())))
        value = *number;
    else
        pDX->Fail(LoadString(k4cmn::AFX_IDP_PARSE_INT));
}

template <class Number>
void CheckRange(CDataExchange* pDX, Number value, Number minimum, Number maximum) {
    if (!pDX->Saving() || (value >= minimum && value <= maximum))
        return;
    pDX->Fail(FormatMessage1(LoadString(k4cmn::AFX_IDP_PARSE_INT_RANGE),
                             {std::to_string(minimum), std::to_string(maximum)}));
}

}  // namespace

void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::string& value) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(edit);
    if (pDX->Saving())
        value = FromQt(edit->text());
    else
        SetFieldText(edit, ToQt(value));
}

void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::int32_t& value) {
    ExchangeNumber(pDX, edit, value, k4cmn::ParseInteger);
}

void DDX_Text(CDataExchange* pDX, QLineEdit* edit, std::uint32_t& value) {
    ExchangeNumber(pDX, edit, value, k4cmn::ParseUnsigned);
}

void DDX_Check(CDataExchange* pDX, QAbstractButton* button, int& value) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(button);
    if (pDX->Saving()) {
        value = button->isChecked() ? 1 : 0;
    } else {
        const QSignalBlocker quiet(button);
        button->setChecked(value != 0);
    }
}

void DDX_Radio(CDataExchange* pDX, std::initializer_list<QRadioButton*> buttons, int& value) {
    if (!pDX->Ok() || buttons.size() == 0)
        return;
    pDX->PrepareControl(*buttons.begin());
    if (pDX->Saving())
        value = -1;
    int index = 0;
    for (QRadioButton* button : buttons) {
        const int own = index++;
        if (pDX->Saving()) {
            if (button->isChecked())
                value = own;
            continue;
        }
        const QSignalBlocker quiet(button);
        if (own == value)
            button->setChecked(true);
        else if (button->isChecked())
            SwitchOff(button);
    }
}

void DDX_CBString(CDataExchange* pDX, QComboBox* combo, std::string& value) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(combo);
    if (pDX->Saving()) {
        value = FromQt(combo->currentText());
        return;
    }
    const QSignalBlocker quiet(combo);
    combo->setCurrentIndex(combo->findText(ToQt(value), Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (combo->isEditable())
        combo->setEditText(ToQt(value));
}

void DDX_CBIndex(CDataExchange* pDX, QComboBox* combo, int& index) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(combo);
    if (pDX->Saving()) {
        index = combo->currentIndex();
    } else {
        const QSignalBlocker quiet(combo);
        combo->setCurrentIndex(index);
    }
}

void DDX_Slider(CDataExchange* pDX, QSlider* slider, int& value) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(slider);
    if (pDX->Saving()) {
        value = slider->value();
    } else {
        const QSignalBlocker quiet(slider);
        slider->setValue(value);
    }
}

void DDV_MinMaxInt(CDataExchange* pDX, std::int32_t value, std::int32_t minimum,
                   std::int32_t maximum) {
    CheckRange(pDX, value, minimum, maximum);
}

void DDV_MinMaxUInt(CDataExchange* pDX, std::uint32_t value, std::uint32_t minimum,
                    std::uint32_t maximum) {
    CheckRange(pDX, value, minimum, maximum);
}

void DDV_MaxChars(CDataExchange* pDX, const std::string& value, std::size_t maximum) {
    if (!pDX->Ok())
        return;
    const auto length = static_cast<std::size_t>(ToQt(value).size());
    if (pDX->Saving()) {
        if (length > maximum)
            pDX->Fail(FormatMessage1(LoadString(k4cmn::AFX_IDP_PARSE_STRING_SIZE),
                                     {std::to_string(maximum)}));
        return;
    }
    auto* edit = qobject_cast<QLineEdit*>(pDX->Control());
    if (auto* combo = qobject_cast<QComboBox*>(pDX->Control()))
        edit = combo->lineEdit();
    // A longer text that is there already is not cut: it is refused when it is read.
    constexpr std::size_t kMost = 32767;
    if (edit)
        edit->setMaxLength(static_cast<int>(std::min(std::max(maximum, length), kMost)));
}

#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

#include "k4cmndlg/frame/CK4CmnDialog.h"
#include "k4cmndlg/frame/CK4CmnDlgBase.h"

namespace k4test {

/// A dialog over one of the two bases, 300 by 200, with a control of each kind in this tab order: a
/// label, a field (help id 5), a label, a check box without any id, a combo box that can be edited
/// (control id 1022), a Help button, a label.
template <class Base>
class FrameProbe : public Base {
 public:
    static constexpr std::uint32_t kResourceId = 176;

    explicit FrameProbe(const QString& title = QStringLiteral("Probe"), QWidget* parent = nullptr)
        : Base(kResourceId, parent) {
        this->setWindowTitle(title);
        auto* column = new QVBoxLayout(this);
        for (QWidget* control : {static_cast<QWidget*>(m_label), static_cast<QWidget*>(m_field),
                                 static_cast<QWidget*>(m_plainLabel),
                                 static_cast<QWidget*>(m_plain), static_cast<QWidget*>(m_combo),
                                 static_cast<QWidget*>(m_help), static_cast<QWidget*>(m_lastLabel)})
            column->addWidget(control);
        column->setSizeConstraint(QLayout::SetNoConstraint);
        m_field->setProperty("helpId", 5u);
        m_combo->setEditable(true);
        m_combo->setProperty("controlId", 1022);
        m_help->setProperty("controlId", IDHELP);
        this->resize(300, 200);
    }

    using Base::DefaultWinHelp;
    using Base::EnableRightClickHelp;
    using Base::OnContextMenu;
    using Base::OnHelpInfo;

    QLabel* m_label = new QLabel(QStringLiteral("Field:"), this);
    QLineEdit* m_field = new QLineEdit(this);
    QLabel* m_plainLabel = new QLabel(QStringLiteral("Plain:"), this);
    QCheckBox* m_plain = new QCheckBox(QStringLiteral("plain"), this);
    QComboBox* m_combo = new QComboBox(this);
    QPushButton* m_help = new QPushButton(QStringLiteral("Help"), this);
    QLabel* m_lastLabel = new QLabel(QStringLiteral("Last"), this);
};

}  // namespace k4test

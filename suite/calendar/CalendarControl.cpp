#include "suite/calendar/CalendarControl.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>
#include <algorithm>

#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "suite/calendar/YearBox.h"

namespace k4suite {

namespace {

constexpr int kMonths = 12;

QDate Today() {
    const std::tm today = k4cmn::LocalTime(k4cmn::SecondsNow());
    return {today.tm_year + 1900, today.tm_mon + 1, today.tm_mday};
}

}  // namespace

// Making -----------------------------------------------------------------------------------------

CalendarControl::CalendarControl(QWidget* parent) : K4CalendarCtrl(parent) {
    const QDate today = Today();
    m_page = today;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(MakeHead(today));
    MakeDays(today);
    layout->addWidget(m_days, 1);
    Show();
}

CalendarControl::~CalendarControl() = default;

QHBoxLayout* CalendarControl::MakeHead(const QDate& today) {
    auto* const head = new QHBoxLayout;
    QToolButton* const before = MakeStep(Qt::LeftArrow, tr("Previous Month"));
    m_month = new QComboBox(this);
    m_month->setAccessibleName(tr("Month"));
    for (int month = 0; month <= kMonths; ++month)
        m_month->addItem(QString());
    NameMonths();
    m_year = new YearBox(CalendarDate::kLastYear, today.year(), this);
    m_year->setAccessibleName(tr("Year"));
    QToolButton* const after = MakeStep(Qt::RightArrow, tr("Next Month"));
    head->addWidget(before);
    head->addWidget(m_month, 1);
    head->addWidget(m_year);
    head->addWidget(after);
    connect(before, &QToolButton::clicked, this, [this] { m_days->showPreviousMonth(); });
    connect(after, &QToolButton::clicked, this, [this] { m_days->showNextMonth(); });
    connect(m_month, &QComboBox::activated, this, &CalendarControl::SetMonth);
    connect(m_year, &QSpinBox::valueChanged, this, [this](int year) {
        if (!m_isShowing)
            SetYear(year);
    });
    return head;
}

QToolButton* CalendarControl::MakeStep(Qt::ArrowType arrow, const QString& name) {
    auto* const button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

void CalendarControl::MakeDays(const QDate& today) {
    m_days = new QCalendarWidget(this);
    m_days->setNavigationBarVisible(false);
    m_days->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_days->setDateEditEnabled(false);
    m_days->setDateRange(QDate(1, 1, 1), QDate(CalendarDate::kLastYear, kMonths, 31));
    m_days->setSelectedDate(today);
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    m_days->setDateTextFormat(today, bold);
    m_view = m_days->findChild<QTableView*>();
    m_view->setAccessibleName(tr("Days"));
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);

    const auto pick = [this] { Pick(m_days->selectedDate()); };
    connect(m_days, &QCalendarWidget::selectionChanged, this, pick);
    connect(m_days, &QCalendarWidget::clicked, this, pick);
    connect(m_days, &QCalendarWidget::currentPageChanged, this, &CalendarControl::TurnTo);
    // The toolkit's calendar always has a day, and selects it anew whenever its looks change.
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CalendarControl::ShowDay);
}

void CalendarControl::NameMonths() {
    for (int month = 1; month <= kMonths; ++month)
        m_month->setItemText(month, locale().standaloneMonthName(month));
}

// The date ---------------------------------------------------------------------------------------

void CalendarControl::SetDay(int day) {
    m_date.SetDay(day);
    Show();
}

void CalendarControl::SetMonth(int month) {
    m_date.SetMonth(month);
    Show();
}

void CalendarControl::SetYear(int year) {
    m_date.SetYear(year);
    Show();
}

void CalendarControl::Pick(const QDate& date) {
    if (m_isShowing)
        return;
    m_date.SetDay(date.day());
    m_date.SetMonth(date.month());
    m_date.SetYear(date.year());
    Show();
}

void CalendarControl::TurnTo(int year, int month) {
    // A day of that month is being picked, which is told of next.
    const QDate at = m_days->selectedDate();
    if (m_isShowing || (at.year() == year && at.month() == month))
        return;
    // The wheel turns to months of which no day can be picked.
    if (year >= 1 && year <= CalendarDate::kLastYear) {
        m_date.SetMonth(month);
        m_date.SetYear(year);
    }
    Show();
}

void CalendarControl::Show() {
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    const int year = m_date.Year() ? m_date.Year() : m_page.year();
    const int month = m_date.Month() ? m_date.Month() : m_page.month();
    m_page = QDate(year, month, 1);
    // Without a day the keyboard stays where it is.
    const int day = m_date.Day() ? m_date.Day() : m_days->selectedDate().day();
    m_days->setSelectedDate(QDate(year, month, std::min(day, m_page.daysInMonth())));
    m_days->setCurrentPage(year, month);
    ShowDay();
    m_month->setCurrentIndex(m_date.Month());
    if (m_year->value() != m_date.Year())
        m_year->setValue(m_date.Year());
}

void CalendarControl::ShowDay() {
    QItemSelectionModel& selection = *m_view->selectionModel();
    if (m_date.Day() == 0)
        selection.clearSelection();
    else if (!selection.hasSelection())
        selection.select(m_view->currentIndex(), QItemSelectionModel::ClearAndSelect);
}

void CalendarControl::AboutBox() {
    k4cmn::WindowPrompt(window()).Ask(
        {k4cmn::FromQt(tr("The calendar of the Kelda 4400 sign control suite.\n\nIt knows the days "
                          "of the years 1 to %1.")
                           .arg(CalendarDate::kLastYear)),
         k4cmn::FromQt(tr("About Calendar")), k4cmn::MessageButtons::Ok,
         k4cmn::MessageIcon::Information});
}

// Events -----------------------------------------------------------------------------------------

void CalendarControl::focusInEvent(QFocusEvent* event) {
    // No focus proxy: with one, the Tab key would pass by what stands above the days.
    m_view->setFocus(event->reason());
}

void CalendarControl::changeEvent(QEvent* event) {
    K4CalendarCtrl::changeEvent(event);
    if (event->type() == QEvent::LocaleChange)
        NameMonths();
}

bool CalendarControl::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_view && event->type() == QEvent::KeyPress)
        return OnKey(static_cast<QKeyEvent&>(*event));
    if (watched == m_view->viewport() && event->type() == QEvent::MouseButtonDblClick)
        return OnDoubleClick(static_cast<QMouseEvent&>(*event));
    return K4CalendarCtrl::eventFilter(watched, event);
}

bool CalendarControl::OnKey(const QKeyEvent& key) {
    const bool isYear = key.modifiers() & Qt::ControlModifier;
    switch (key.key()) {
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            SetDay(0);
            return true;
        case Qt::Key_Space:
            Pick(m_days->selectedDate());
            return true;
        case Qt::Key_PageUp:
            isYear ? m_days->showPreviousYear() : m_days->showPreviousMonth();
            return true;
        case Qt::Key_PageDown:
            isYear ? m_days->showNextYear() : m_days->showNextMonth();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Q_EMIT DblClick();
            return true;
        default:
            return false;
    }
}

bool CalendarControl::OnDoubleClick(const QMouseEvent& click) {
    // The first click may have turned to another month: then there is another day under the second.
    const QModelIndex day = m_view->indexAt(click.position().toPoint());
    if (click.button() == Qt::LeftButton && day.isValid() && day == m_view->currentIndex())
        Q_EMIT DblClick();
    return true;
}

K4CalendarCtrl* EmbeddedCalendars::Create(QWidget* window) {
    return new CalendarControl(window);
}

}  // namespace k4suite

#include "suite/calendar/YearBox.h"

#include <algorithm>

namespace k4suite {

YearBox::YearBox(int last, int offered, QWidget* parent) : QSpinBox(parent), m_offered(offered) {
    setRange(0, last);
}

YearBox::~YearBox() = default;

void YearBox::stepBy(int steps) {
    if (value() == 0) {
        setValue(m_offered);
        selectAll();
        return;
    }
    // Stepping doesn't take the year away; emptying the field does.
    QSpinBox::stepBy(std::max(steps, 1 - value()));
}

QString YearBox::textFromValue(int value) const {
    return value == 0 ? QString() : QSpinBox::textFromValue(value);
}

int YearBox::valueFromText(const QString& text) const {
    return text.isEmpty() ? 0 : QSpinBox::valueFromText(text);
}

QValidator::State YearBox::validate(QString& text, int& position) const {
    return text.isEmpty() ? QValidator::Acceptable : QSpinBox::validate(text, position);
}

QAbstractSpinBox::StepEnabled YearBox::stepEnabled() const {
    StepEnabled enabled = StepNone;
    if (value() != maximum())
        enabled |= StepUpEnabled;
    if (value() != 1)
        enabled |= StepDownEnabled;
    return enabled;
}

}  // namespace k4suite

#pragma once

#include <QSpinBox>

namespace k4suite {

/// A field for a year, which may be blank: its value is 0 then. A blank one steps to the year that
/// it is offered.
/// Ownership: the parent's. Threads: the user interface thread.
class YearBox final : public QSpinBox {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(YearBox)

 public:
    /// @param last the last year that there is. @param offered what a step makes of a blank field.
    YearBox(int last, int offered, QWidget* parent);
    ~YearBox() override;

    void stepBy(int steps) override;

 protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
    StepEnabled stepEnabled() const override;

 private:
    const int m_offered;
};

}  // namespace k4suite

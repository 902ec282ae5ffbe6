#pragma once

#include <QApplication>
#include <QFont>

namespace k4test {

/// Makes every font of the application so many times as large for the life of a scope.
class FontScale {
 public:
    explicit FontScale(double factor) : m_font(QApplication::font()) {
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * factor);
        QApplication::setFont(font);
    }
    ~FontScale() { QApplication::setFont(m_font); }
    FontScale(const FontScale&) = delete;
    FontScale& operator=(const FontScale&) = delete;

 private:
    QFont m_font;
};

}  // namespace k4test

#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace k4cmn {

/// A text of the library (UTF-8) as the toolkit takes it.
inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A text of the toolkit as the library takes it (UTF-8).
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace k4cmn

#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <string>

namespace k4suite {

/// The values in an INI file: texts and numbers, a number being a text of decimal digits.

/// A value as one text. A line that a person wrote with bare commas is a list to the toolkit; its
/// pieces get ", " between them.
QString TextOf(const QVariant& value);
/// Whether a text can be stored: it must be UTF-8, since the file is.
bool IsStorable(const std::string& text);
/// Stores a text, which must be storable.
void WriteText(QSettings& file, const QString& key, const std::string& text);
/// Stores a number.
void WriteNumber(QSettings& file, const QString& key, std::uint32_t number);
/// @return 1 and the text, or 0 with `text` as it was where there is none.
int ReadText(const QSettings& file, const QString& key, std::string& text);
/// @return 1 and the number, or 0 with `number` as it was where there is none from 0 to 2^32 - 1.
int ReadNumber(const QSettings& file, const QString& key, std::uint32_t& number);

}  // namespace k4suite

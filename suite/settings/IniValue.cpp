#include "suite/settings/IniValue.h"

#include <QStringList>

#include "suite/settings/NameText.h"

namespace k4suite {

QString TextOf(const QVariant& value) {
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QLatin1String(", "))
                                                    : value.toString();
}

bool IsStorable(const std::string& text) {
    return IsUtf8(text);
}

void WriteText(QSettings& file, const QString& key, const std::string& text) {
    file.setValue(key, QString::fromStdString(text));
}

void WriteNumber(QSettings& file, const QString& key, std::uint32_t number) {
    file.setValue(key, number);
}

int ReadText(const QSettings& file, const QString& key, std::string& text) {
    const QVariant value = file.value(key);
    if (value.typeId() != QMetaType::QStringList && !value.canConvert<QString>())
        return 0;
    text = TextOf(value).toStdString();
    return 1;
}

int ReadNumber(const QSettings& file, const QString& key, std::uint32_t& number) {
    std::string text;
    if (!ReadText(file, key, text))
        return 0;
    bool isNumber = false;
    const std::uint32_t value = QString::fromStdString(text).toUInt(&isNumber);
    if (!isNumber)
        return 0;
    number = value;
    return 1;
}

}  // namespace k4suite

#include "suite/settings/IniName.h"

#include <QByteArray>

#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

constexpr char kEmptyName[] = ".default";

void AppendEscaped(std::string& out, char byte) {
    constexpr char digits[] = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    out += '%';
    out += digits[value >> 4];
    out += digits[value & 15];
}

bool MustEscape(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value < 0x20 || value == 0x7F || byte == '/' || byte == '\\' || byte == '%';
}

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return -1;
}

}  // namespace

QString EncodeName(std::string_view name) {
    if (name.empty())
        return QString::fromLatin1(kEmptyName);
    const bool isText = IsUtf8(name);
    const bool escapeFirst = name.front() == '.' || IsSameName(name, "general");
    std::string out;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool isForeign = !isText && static_cast<unsigned char>(name[at]) >= 0x80;
        if (MustEscape(name[at]) || isForeign || (at == 0 && escapeFirst))
            AppendEscaped(out, name[at]);
        else
            out += name[at];
    }
    return QString::fromStdString(out);
}

std::string DecodeName(const QString& written) {
    const std::string text = written.toStdString();
    if (text == kEmptyName)
        return {};
    std::string name;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const int high = text[at] == '%' && at + 2 < text.size() ? HexDigit(text[at + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[at + 2]) : -1;
        if (low < 0) {
            name += text[at];
            continue;
        }
        name += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return name;
}

QString EncodeKey(std::string_view key) {
    QString encoded;
    while (!key.empty()) {
        const std::size_t end = key.find('\\');
        const std::string_view level = key.substr(0, end);
        key = end == std::string_view::npos ? std::string_view() : key.substr(end + 1);
        if (level.empty())
            continue;
        if (!encoded.isEmpty())
            encoded += QLatin1Char('/');
        encoded += EncodeName(level);
    }
    return encoded;
}

QString EncodeValue(const QString& encodedKey, std::string_view name) {
    const QString value = EncodeName(name);
    return encodedKey.isEmpty() ? value : encodedKey + QLatin1Char('/') + value;
}

}  // namespace k4suite

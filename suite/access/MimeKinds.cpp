#include "suite/access/MimeKinds.h"

#include <fnmatch.h>

#include <QMimeDatabase>
#include <QStandardPaths>
#include <QString>
#include <algorithm>
#include <fstream>

namespace k4suite {

namespace {

constexpr std::size_t kMostEndings = 4096;

/// Whether a pattern is "*" and an ending that begins with a dot.
bool IsEnding(const std::string& pattern) {
    return pattern.starts_with("*.") && pattern.find_first_of("*?[\\", 1) == std::string::npos;
}

/// The pattern of a line "WEIGHT:TYPE:PATTERN" or "WEIGHT:TYPE:PATTERN:FLAGS"; empty for any other.
std::string PatternOf(const std::string& line) {
    const std::size_t type = line.find(':');
    const std::size_t pattern = type == std::string::npos ? type : line.find(':', type + 1);
    if (line.starts_with('#') || pattern == std::string::npos)
        return {};
    return line.substr(pattern + 1, line.find(':', pattern + 1) - pattern - 1);
}

}  // namespace

MimeKinds::Kind MimeKinds::Ask(std::string_view name) {
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(
        QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
        QMimeDatabase::MatchExtension);
    if (kind.isDefault())
        return {};
    return {kind.comment().toStdString(), kind.iconName().toStdString()};
}

MimeKinds::Patterns MimeKinds::ReadPatterns() {
    Patterns patterns;
    const QStringList lists = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                        QStringLiteral("mime/globs2"));
    for (const QString& list : lists) {
        std::ifstream file(list.toStdString());
        for (std::string line; std::getline(file, line);) {
            const std::string pattern = PatternOf(line);
            const auto dots =
                static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '.'));
            if (IsEnding(pattern))
                patterns.dotsOfAnEnding = std::max(patterns.dotsOfAnEnding, dots);
            else if (!pattern.empty())
                patterns.odd.push_back(pattern);
        }
    }
    return patterns;
}

/// What stands from the last dots of a name on, if nothing else of it counts.
std::optional<std::string_view> MimeKinds::EndingOf(const std::string& name) {
    if (!m_patterns)
        m_patterns = ReadPatterns();
    const bool isOdd = std::any_of(
        m_patterns->odd.begin(), m_patterns->odd.end(), [&](const std::string& pattern) {
            return fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
        });
    if (isOdd || m_patterns->dotsOfAnEnding == 0)
        return std::nullopt;
    std::size_t at = name.size();
    for (std::size_t dots = m_patterns->dotsOfAnEnding; dots > 0 && at > 0; --dots) {
        const std::size_t dot = name.rfind('.', at - 1);
        if (dot == std::string::npos)
            break;
        at = dot;
    }
    // A name that is nothing but an ending is a hidden one without any.
    return at > 0 ? std::optional(std::string_view(name).substr(at)) : std::nullopt;
}

MimeKinds::Kind MimeKinds::KindOf(const std::string& path) {
    const std::string name = path.substr(path.find_last_of("\\/") + 1);
    const std::lock_guard lock(m_guard);
    const std::optional<std::string_view> ending = EndingOf(name);
    if (!ending)
        return Ask(name);
    if (m_kinds.size() >= kMostEndings)
        m_kinds.clear();
    const auto [known, isNew] = m_kinds.try_emplace(std::string(*ending));
    if (isNew)
        known->second = Ask(name);
    return known->second;
}

std::string MimeKinds::TypeName(const std::string& path) {
    return KindOf(path).type;
}

std::string MimeKinds::IconName(const std::string& path) {
    return KindOf(path).icon;
}

}  // namespace k4suite

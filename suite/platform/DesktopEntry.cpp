#include "suite/platform/DesktopEntry.h"

#include <QProcess>
#include <map>
#include <sstream>
#include <string_view>

namespace k4suite {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The values of the group "Desktop Entry".
std::map<std::string, std::string> Values(const std::string& text) {
    std::map<std::string, std::string> values;
    std::istringstream lines(text);
    bool isInside = false;
    for (std::string line; std::getline(lines, line);) {
        line = Trimmed(line);
        const std::size_t equals = line.find('=');
        if (!line.empty() && line.front() == '[')
            isInside = line == "[Desktop Entry]";
        else if (isInside && line.front() != '#' && equals != std::string::npos)
            values.emplace(Trimmed(line.substr(0, equals)), Trimmed(line.substr(equals + 1)));
    }
    return values;
}

/// A value with its escapes (\s, \n, \t, \r, \\) taken back.
std::string Unescaped(const std::string& value) {
    static const std::map<char, char> kEscapes = {
        {'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        const auto escape = value[at] == '\\' && at + 1 < value.size()
                                ? kEscapes.find(value[at + 1])
                                : kEscapes.end();
        if (escape == kEscapes.end()) {
            text += value[at];
        } else {
            text += escape->second;
            ++at;
        }
    }
    return text;
}

/// The words of an Exec line; none if a quote mark isn't closed.
std::vector<std::string> ExecWords(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    bool isQuoted = false;
    bool isWord = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char byte = line[at];
        if (isQuoted && byte == '\\' && at + 1 < line.size()) {
            word += line[++at];
        } else if (byte == '"') {
            isQuoted = !isQuoted;
            isWord = true;
        } else if (!isQuoted && kBlanks.find(byte) != std::string_view::npos) {
            if (isWord)
                words.push_back(word);
            word.clear();
            isWord = false;
        } else {
            word += byte;
            isWord = true;
        }
    }
    if (isWord)
        words.push_back(word);
    return isQuoted ? std::vector<std::string>() : words;
}

/// A word with its field codes carried out: the document as %1, "%%" as '%', any other as nothing.
std::string WithoutFieldCodes(const std::string& word) {
    std::string text;
    for (std::size_t at = 0; at < word.size(); ++at) {
        if (word[at] != '%' || at + 1 == word.size()) {
            text += word[at];
            continue;
        }
        const char code = word[++at];
        if (std::string_view("uUfF").find(code) != std::string_view::npos)
            text += "%1";
        else if (code == '%')
            text += '%';
    }
    return text;
}

}  // namespace

std::string CommandOfDesktopEntry(const std::string& text) {
    std::map<std::string, std::string> values = Values(text);
    if (values["Type"] != "Application" || values["Hidden"] == "true" ||
        values["Terminal"] == "true")
        return {};
    std::vector<std::string> command;
    for (const std::string& word : ExecWords(Unescaped(values["Exec"]))) {
        std::string plain = WithoutFieldCodes(word);
        if (!plain.empty())
            command.push_back(std::move(plain));
    }
    return JoinCommand(command);
}

std::vector<std::string> SplitCommand(const std::string& command) {
    std::vector<std::string> words;
    for (const QString& word : QProcess::splitCommand(QString::fromStdString(command)))
        words.push_back(word.toStdString());
    return words;
}

std::string JoinCommand(const std::vector<std::string>& words) {
    std::string command;
    for (const std::string& word : words) {
        std::string quoted;
        for (const char byte : word)
            quoted += byte == '"' ? std::string(R"(""")") : std::string(1, byte);
        if (word.find_first_of(" \t\n\r") != std::string::npos)
            quoted = '"' + quoted + '"';
        command += (command.empty() ? "" : " ") + quoted;
    }
    return command;
}

}  // namespace k4suite

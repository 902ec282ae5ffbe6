#include "suite/ui/HelpTopics.h"

#include <QFile>
#include <QLoggingCategory>
#include <cctype>
#include <optional>
#include <sstream>

// A static library's resources are only there once they are asked for.
static void InitHelpResources() {
    Q_INIT_RESOURCE(k4help);
}

namespace k4suite {

namespace {

constexpr std::uint32_t kLibraryOffset = 0x1000000;  // keeps them apart from the application's
constexpr std::uint32_t kDialogOffset = 0x20000;

std::optional<std::string> ReadText(const std::string& path) {
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll().toStdString();
}

/// Reads the number of a dialog. @return what is added to its help ids.
std::uint32_t ReadDialog(std::istringstream& words, std::uint32_t& dialog) {
    if (!(words >> dialog) || words.peek() != '*')
        return kLibraryOffset;
    words.get();
    return 0;
}

}  // namespace

std::string AnchorOf(const std::string& heading) {
    std::string anchor;
    for (const char byte : heading) {
        if (std::isalnum(static_cast<unsigned char>(byte)))
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
        else if (!anchor.empty() && anchor.back() != '-')
            anchor += '-';
    }
    if (!anchor.empty() && anchor.back() == '-')
        anchor.pop_back();
    return anchor;
}

std::string HelpTopic::FirstParagraph() const {
    const std::size_t first = markdown.find_first_not_of('\n');
    if (first == std::string::npos)
        return {};
    return markdown.substr(first, markdown.find("\n\n", first) - first);
}

HelpTopics::HelpTopics(const std::string& indexFile) {
    InitHelpResources();
    const std::optional<std::string> index = ReadText(indexFile);
    if (!index)
        qWarning("no help index: %s", indexFile.c_str());
    const std::string folder = indexFile.substr(0, indexFile.rfind('/') + 1);
    std::istringstream lines(index.value_or(std::string()));
    for (std::string line; std::getline(lines, line);)
        if (!line.empty() && line.front() != '#')
            ReadIndexLine(folder, line);
}

void HelpTopics::ReadIndexLine(const std::string& folder, const std::string& line) {
    std::istringstream words(line);
    std::uint32_t dialog = 0;
    std::string controls;
    std::string place;
    const std::uint32_t offset = ReadDialog(words, dialog);
    if (!(words >> controls >> place)) {
        qWarning("help index, not understood: %s", line.c_str());
        return;
    }
    const std::size_t hash = place.find('#');
    const std::string file = place.substr(0, hash);
    const std::string anchor = hash == std::string::npos ? std::string() : place.substr(hash + 1);
    if (m_pages.find(file) == m_pages.end() && !ReadPage(folder, file)) {
        qWarning("no help page: %s", line.c_str());
        return;
    }
    const std::size_t topic = IndexOf(file, anchor);
    if (topic == m_topics.size()) {
        qWarning("no such section: %s", line.c_str());
        return;
    }

    if (controls == "-") {
        m_byId[offset + dialog + kDialogOffset] = topic;
        return;
    }
    std::uint32_t first = 0;
    std::istringstream range(controls);
    range >> first;
    std::uint32_t last = first;
    if (range.get() == '-')
        range >> last;
    for (std::uint32_t control = first; control <= last && last <= 0xFFFF; ++control)
        m_byId[offset + ((dialog << 16) | control)] = topic;
}

bool HelpTopics::ReadPage(const std::string& folder, const std::string& file) {
    const std::optional<std::string> text = ReadText(folder + file);
    if (!text)
        return false;
    m_pages[file] = *text;
    std::istringstream lines(*text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t level = line.find_first_not_of('#');
        if ((level == 1 || level == 2) && line[level] == ' ') {
            const std::string title = line.substr(level + 1);
            m_topics.push_back({file, level == 1 ? std::string() : AnchorOf(title), title, {}});
        } else if (!m_topics.empty() && m_topics.back().file == file) {
            m_topics.back().markdown += line + "\n";
        }
    }
    return true;
}

std::size_t HelpTopics::IndexOf(const std::string& file, const std::string& anchor) const {
    std::size_t at = 0;
    while (at < m_topics.size() && (m_topics[at].file != file || m_topics[at].anchor != anchor))
        ++at;
    return at;
}

const HelpTopic* HelpTopics::Find(std::uint32_t helpId) const {
    const auto found = m_byId.find(helpId);
    return found == m_byId.end() ? nullptr : &m_topics[found->second];
}

std::string HelpTopics::PageText(const std::string& file) const {
    if (file != ContentsPage()) {
        const auto found = m_pages.find(file);
        return found == m_pages.end() ? std::string() : found->second;
    }
    std::string text = "# Contents\n\n";
    for (const HelpTopic& topic : m_topics)
        text += std::string(topic.anchor.empty() ? "" : "    ") + "- [" + topic.title + "](" +
                LinkTo(topic) + ")\n";
    return text;
}

std::string HelpTopics::LinkTo(const HelpTopic& topic) {
    return "help:" + topic.file + (topic.anchor.empty() ? "" : "#" + topic.anchor);
}

}  // namespace k4suite

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace k4suite {

/// One thing that help tells about: a page, or a section of it.
struct HelpTopic {
    std::string file;      ///< the page, such as "dimming.md"
    std::string anchor;    ///< the section in it; empty for the page as a whole
    std::string title;     ///< its heading, as plain text
    std::string markdown;  ///< what stands under the heading, up to the next one

    /// The first paragraph of it: what a popup shows.
    std::string FirstParagraph() const;
};

/// The help text: Markdown pages, and an index file that says which help id is told about where.
///
/// A line of the index is "dialog control page#section": the dialog's resource number, a control's
/// id or a range of them ("1015-1022") or "-" for the dialog itself, and the place. '*' behind the
/// dialog's number says that its ids come without the 0x1000000 told of below. '#' begins a comment
/// line. Pages are beside the index. A page has one heading "# " and sections "## ", whose
/// anchors are their headings in lower case with '-' for each run of anything but letters and
/// digits.
///
/// Help ids are those that the library's dialogs send: 0x1000000 plus, for a dialog, its number
/// plus 0x20000; for a control, the dialog's number in the high word and its own id in the low
/// word. Threads: any, once made.
class HelpTopics {
 public:
    /// Reads an index and its pages. What is wrong with them goes to the log as a warning, and the
    /// rest is used.
    explicit HelpTopics(const std::string& indexFile);

    /// The topic of a help id; null if there is none.
    const HelpTopic* Find(std::uint32_t helpId) const;

    /// All topics: the pages in the order of the index, each with its sections behind it.
    const std::vector<HelpTopic>& All() const { return m_topics; }

    /// The text of a page, or of ContentsPage(), a list of links to all topics. Empty for another.
    std::string PageText(const std::string& file) const;

    static constexpr const char* ContentsPage() { return "contents.md"; }

    /// Where a link to a topic leads: "help:page#section".
    static std::string LinkTo(const HelpTopic& topic);

 private:
    void ReadIndexLine(const std::string& folder, const std::string& line);
    bool ReadPage(const std::string& folder, const std::string& file);
    std::size_t IndexOf(const std::string& file, const std::string& anchor) const;

    std::vector<HelpTopic> m_topics;
    std::map<std::string, std::string> m_pages;
    std::map<std::uint32_t, std::size_t> m_byId;
};

/// The anchor of a heading.
std::string AnchorOf(const std::string& heading);

}  // namespace k4suite

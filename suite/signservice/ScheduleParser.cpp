#include "suite/signservice/ScheduleParser.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <utility>

#include "suite/settings/NameText.h"
#include "suite/signservice/FileNames.h"
#include "suite/signservice/ScheduleWords.h"

namespace k4suite {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kMark[] = "The first line must be \"K4 schedule 1\".";

std::string Quoted(const std::string& word) {
    return "\"" + word + "\"";
}

std::string RangeWords(std::int64_t least, std::int64_t most) {
    return "a whole number from " + std::to_string(least) + " to " + std::to_string(most);
}

/// One line, taken word by word from left to right. After the first problem nothing counts.
class Line {
 public:
    explicit Line(std::vector<std::string> words) : m_words(std::move(words)) {}

    bool IsAtEnd() const { return m_next == m_words.size(); }
    /// The next word, which stays; empty at the end.
    std::string Next() const { return IsAtEnd() ? std::string() : m_words[m_next]; }
    std::string Following() const {
        return m_next + 1 < m_words.size() ? m_words[m_next + 1] : std::string();
    }
    std::string Take() {
        const std::string word = Next();
        m_next += IsAtEnd() ? 0 : 1;
        return word;
    }
    void Fail(const std::string& words) {
        if (m_problem.empty())
            m_problem = words;
    }
    const std::string& Problem() const { return m_problem; }

 private:
    std::vector<std::string> m_words;
    std::size_t m_next = 0;
    std::string m_problem;
};

/// A number that the last part of an action is.
std::int64_t TakeNumber(Line& line, std::int64_t least, std::int64_t most) {
    const std::string word = line.Take();
    const auto number = NumberOfWord(word, least, most);
    if (!number)
        line.Fail(Quoted(word) + " is not " + RangeWords(least, most) + ".");
    return number.value_or(least);
}

void CheckSequenceName(const std::string& name, Line& line) {
    if (!IsSequenceName(name))
        line.Fail(Quoted(name) + " is no sequence; its name must end in .SQ4.");
    else if (HasControlCharacters(name))
        line.Fail(Quoted(name) + " can't be a sequence's name: it has control characters.");
    else if (name.size() > kLongestFileName)
        line.Fail(Quoted(name) + " can't be a sequence's name: it has more than " +
                  std::to_string(kLongestFileName) + " bytes.");
}

ScheduleAction TakePlay(Line& line) {
    if (line.IsAtEnd())
        line.Fail("play needs a sequence.");
    PlayOrder order;
    order.sequence = line.Take();
    CheckSequenceName(order.sequence, line);
    if (!line.IsAtEnd()) {
        const std::string word = line.Take();
        const auto mode = ModeOfWord(word);
        if (!mode)
            line.Fail(Quoted(word) + " is no play mode; the modes are " + ScheduleModeNames() +
                      ", or " + RangeWords(0, K4_PLAY_SEQ_LAST) + ".");
        order.mode = mode.value_or(order.mode);
    }
    if (!line.IsAtEnd())
        order.param = static_cast<std::uint32_t>(
            TakeNumber(line, 0, std::numeric_limits<std::uint32_t>::max()));
    return SchedulePlay{order};
}

struct DimWord {
    const char* word;
    tag_K4_SIGN_DIM_MODE mode;
    const char* value;  ///< null: the mode takes none
    std::int32_t least;
    std::int32_t most;
};

constexpr DimWord kDimWords[] = {
    {"manual", K4_SIGN_DIM_MANUAL, "level", K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX},
    {"photocell", K4_SIGN_DIM_PHOTOCELL, "offset", K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX},
    {"remote", K4_SIGN_DIM_REMOTE_PHOTOCELL, nullptr, 0, 0},
    {"scheduled", K4_SIGN_DIM_SCHEDULED, nullptr, 0, 0},
};

ScheduleAction TakeDim(Line& line) {
    if (line.IsAtEnd())
        line.Fail("dim needs a mode: manual, photocell, remote or scheduled.");
    const std::string word = line.Take();
    const auto* row = std::find_if(std::begin(kDimWords), std::end(kDimWords),
                                   [&](const DimWord& each) { return IsWord(word, each.word); });
    if (row == std::end(kDimWords)) {
        line.Fail(Quoted(word) +
                  " is no dimming mode; the modes are manual, photocell, remote and scheduled.");
        return ScheduleDim{};
    }
    if (!row->value)
        return ScheduleDim{row->mode, 0};
    if (line.IsAtEnd())
        line.Fail(std::string(row->word) + " needs the " + row->value + ", " +
                  RangeWords(row->least, row->most) + ".");
    return ScheduleDim{row->mode,
                       static_cast<std::int32_t>(TakeNumber(line, row->least, row->most))};
}

struct ActionWord {
    const char* word;
    ScheduleAction (*take)(Line& line);
};

constexpr ActionWord kActions[] = {
    {"play", TakePlay},
    {"stop", [](Line&) -> ScheduleAction { return ScheduleStop{}; }},
    {"blank", [](Line&) -> ScheduleAction { return ScheduleBlank{}; }},
    {"default", [](Line&) -> ScheduleAction { return ScheduleDefault{}; }},
    {"next", [](Line&) -> ScheduleAction { return ScheduleNext{}; }},
    {"dim", TakeDim},
};

const ActionWord* FindAction(const std::string& word) {
    const auto* row = std::find_if(std::begin(kActions), std::end(kActions),
                                   [&](const ActionWord& each) { return IsWord(word, each.word); });
    return row == std::end(kActions) ? nullptr : row;
}

std::chrono::seconds TakeTime(Line& line) {
    if (line.IsAtEnd())
        line.Fail("The time is missing.");
    const std::string word = line.Take();
    const auto time = TimeOfWord(word);
    if (!time)
        line.Fail(Quoted(word) + " is no time of day; one is written as 06:00 or 06:00:30.");
    return time.value_or(std::chrono::seconds(0));
}

ScheduleDays TakeDays(Line& line) {
    if (FindAction(line.Next()))
        return kEveryDay;
    const auto days = DaysOfWord(line.Next());
    if (days) {
        line.Take();
    } else if (FindAction(line.Following())) {
        line.Fail(Quoted(line.Next()) +
                  " is no day; days are daily, or such as mon, mon-fri and sat,sun.");
    }
    return days.value_or(kEveryDay);
}

ScheduleAction TakeAction(Line& line) {
    if (line.IsAtEnd())
        line.Fail("The action is missing.");
    const std::string word = line.Take();
    const ActionWord* action = FindAction(word);
    if (!action) {
        line.Fail(Quoted(word) +
                  " is no action; the actions are play, stop, blank, default, next and dim.");
        return ScheduleStop{};
    }
    return action->take(line);
}

/// @return whether the line is an entry; otherwise it knows why not.
bool TakeEntry(Line& line, std::uint32_t number, ScheduleEntry& entry) {
    const std::string first = line.Take();
    if (!IsWord(first, "at"))
        line.Fail("An entry begins with \"at\", not with " + Quoted(first) + ".");
    entry.line = number;
    entry.time = TakeTime(line);
    entry.days = TakeDays(line);
    entry.action = TakeAction(line);
    if (!line.IsAtEnd())
        line.Fail("There is more than the action takes: " + Quoted(line.Next()) + ".");
    return line.Problem().empty();
}

void CheckMark(Line& line) {
    const bool isSchedule = IsWord(line.Take(), "K4") && IsWord(line.Take(), "schedule");
    const std::string version = line.Take();
    if (!isSchedule || version.empty() || !line.IsAtEnd())
        line.Fail(kMark);
    else if (version != "1")
        line.Fail("The version " + Quoted(version) + " of the format isn't known; it must be 1.");
}

void ParseLine(std::string_view text, std::uint32_t number, ParsedSchedule& schedule) {
    std::string problem;
    const auto words = SplitScheduleLine(text, problem);
    if (!IsUtf8(text)) {
        problem = "The line isn't UTF-8 text.";
    } else if (words) {
        Line line(*words);
        if (number == 1)
            CheckMark(line);
        else if (ScheduleEntry entry; !line.IsAtEnd() && TakeEntry(line, number, entry))
            schedule.entries.push_back(entry);
        problem = line.Problem();
    }
    if (!problem.empty())
        schedule.problems.push_back({number, problem});
}

}  // namespace

ParsedSchedule ParseSchedule(std::string_view text) {
    ParsedSchedule schedule;
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    for (std::uint32_t number = 1; number == 1 || !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        ParseLine(line, number, schedule);
    }
    return schedule;
}

}  // namespace k4suite

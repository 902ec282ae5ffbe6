#include "suite/signservice/ScheduleWords.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "k4cmndlg/frame/Format.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

using std::chrono::seconds;

/// From Sunday, as the bits of ScheduleDays.
constexpr std::string_view kDays[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};
constexpr std::size_t kDaysOfWeek = std::size(kDays);

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

std::string Hyphened(std::string_view name) {
    std::string word(name);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char byte) { return byte == ' ' ? '-' : LowerAscii(byte); });
    return word;
}

std::optional<std::size_t> DayOf(std::string_view word) {
    for (std::size_t day = 0; day < kDaysOfWeek; ++day)
        if (IsWord(word, kDays[day]))
            return day;
    return std::nullopt;
}

/// "mon" or "mon-fri".
std::optional<ScheduleDays> DaysOfRange(std::string_view word) {
    const std::size_t hyphen = word.find('-');
    const auto first = DayOf(word.substr(0, hyphen));
    const auto last = hyphen == std::string_view::npos ? first : DayOf(word.substr(hyphen + 1));
    if (!first || !last)
        return std::nullopt;
    unsigned days = 1U << *first;
    for (std::size_t day = *first; day != *last;) {
        day = (day + 1) % kDaysOfWeek;
        days |= 1U << day;
    }
    return static_cast<ScheduleDays>(days);
}

/// Two digits at a place, up to a limit.
std::optional<int> TwoDigits(std::string_view word, std::size_t at, int most) {
    const auto digit = [&](std::size_t place) { return word[place] - '0'; };
    if (digit(at) < 0 || digit(at) > 9 || digit(at + 1) < 0 || digit(at + 1) > 9)
        return std::nullopt;
    const int number = 10 * digit(at) + digit(at + 1);
    return number <= most ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<std::vector<std::string>> SplitScheduleLine(std::string_view line,
                                                          std::string& problem) {
    std::vector<std::string> words;
    while (true) {
        line.remove_prefix(static_cast<std::size_t>(
            std::find_if_not(line.begin(), line.end(), IsBlank) - line.begin()));
        if (line.empty() || line.front() == '#')
            return words;
        const bool isQuoted = line.front() == '"';
        if (isQuoted)
            line.remove_prefix(1);
        const auto end =
            static_cast<std::size_t>((isQuoted ? std::find(line.begin(), line.end(), '"')
                                               : std::find_if(line.begin(), line.end(), IsBlank)) -
                                     line.begin());
        words.emplace_back(line.substr(0, end));
        if (isQuoted && end == line.size()) {
            problem = "A quote isn't closed.";
            return std::nullopt;
        }
        line.remove_prefix(isQuoted ? end + 1 : end);
        const bool isApart = !isQuoted || line.empty() || IsBlank(line.front());
        if (!isApart || (!isQuoted && words.back().find('"') != std::string::npos)) {
            problem = "A quote stands inside of a word.";
            return std::nullopt;
        }
    }
}

bool IsWord(std::string_view word, std::string_view keyword) {
    return std::equal(word.begin(), word.end(), keyword.begin(), keyword.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

std::optional<seconds> TimeOfWord(std::string_view word) {
    const bool hasSeconds = word.size() == 8;
    if ((word.size() != 5 && !hasSeconds) || word[2] != ':' || (hasSeconds && word[5] != ':'))
        return std::nullopt;
    const auto hour = TwoDigits(word, 0, 23);
    const auto minute = TwoDigits(word, 3, 59);
    const auto second = hasSeconds ? TwoDigits(word, 6, 59) : 0;
    if (!hour || !minute || !second)
        return std::nullopt;
    return std::chrono::hours(*hour) + std::chrono::minutes(*minute) + seconds(*second);
}

std::optional<ScheduleDays> DaysOfWord(std::string_view word) {
    if (IsWord(word, "daily"))
        return kEveryDay;
    ScheduleDays days = 0;
    while (true) {
        const std::size_t comma = word.find(',');
        const std::optional<ScheduleDays> range = DaysOfRange(word.substr(0, comma));
        if (!range)
            return std::nullopt;
        days |= *range;
        if (comma == std::string_view::npos)
            return days;
        word.remove_prefix(comma + 1);
    }
}

std::optional<tag_K4_PLAY_SEQ_MODE> ModeOfWord(std::string_view word) {
    for (int mode = 0; K4PlaySeqModeNames[mode]; ++mode)
        if (!word.empty() && IsWord(word, Hyphened(K4PlaySeqModeNames[mode])))
            return static_cast<tag_K4_PLAY_SEQ_MODE>(mode);
    if (const auto number = NumberOfWord(word, K4_PLAY_SEQ_NONE, K4_PLAY_SEQ_LAST))
        return static_cast<tag_K4_PLAY_SEQ_MODE>(*number);
    return std::nullopt;
}

std::optional<std::int64_t> NumberOfWord(std::string_view word, std::int64_t least,
                                         std::int64_t most) {
    const bool hasPlus = word.size() > 1 && word[0] == '+' && word[1] != '-';
    const char* const last = word.data() + word.size();
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(word.data() + (hasPlus ? 1 : 0), last, number);
    if (error != std::errc() || end != last || number < least || number > most)
        return std::nullopt;
    return number;
}

std::string ScheduleModeNames() {
    std::string names;
    for (int mode = 0; K4PlaySeqModeNames[mode]; ++mode)
        if (*K4PlaySeqModeNames[mode])
            names += (names.empty() ? "" : ", ") + Hyphened(K4PlaySeqModeNames[mode]);
    return names;
}

std::string WordOfMode(tag_K4_PLAY_SEQ_MODE mode) {
    for (int known = 0; K4PlaySeqModeNames[known]; ++known)
        if (known == mode && *K4PlaySeqModeNames[known])
            return Hyphened(K4PlaySeqModeNames[known]);
    return std::to_string(mode);
}

std::string WordOfTime(seconds time) {
    const std::chrono::hh_mm_ss parts(time);
    const auto hours = static_cast<int>(parts.hours().count());
    const auto minutes = static_cast<int>(parts.minutes().count());
    const auto rest = static_cast<int>(parts.seconds().count());
    return rest ? k4cmn::Format("%02d:%02d:%02d", hours, minutes, rest)
                : k4cmn::Format("%02d:%02d", hours, minutes);
}

std::vector<std::string> NamesOfDays(ScheduleDays days) {
    std::vector<std::string> names;
    for (std::size_t count = 1; count <= kDaysOfWeek; ++count)
        if (const std::size_t day = count % kDaysOfWeek; days >> day & 1)
            names.emplace_back(kDays[day]);
    return names;
}

}  // namespace k4suite

#include "apps/k4ctl/store/FindOptions.h"

#include <CLI/CLI.hpp>
#include <array>
#include <chrono>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "apps/k4ctl/sequence/SequenceWords.h"
#include "apps/k4ctl/store/Dialogue.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/frame/Format.h"

namespace k4ctl {
namespace {

using k4cmn::CalendarDay;
using k4cmn::FoundRows;

/// Two words of one option.
using Words = std::pair<std::string, std::string>;

constexpr int kMostPeriods = 999;

// In the order of k4cmn::kSearchExtensions and of the columns.
constexpr std::array<const char*, k4cmn::kSearchExtensions.size()> kTypeWords{
    "sequences", "schedules", "scripts", "old"};
constexpr std::array<const char*, FoundRows::kColumnCount> kFoundColumnWords{
    "name", "folder", "size", "type", "modified"};

int ParseInt(const std::string& text, int least, int most, int& value, std::string& problem) {
    std::int64_t number = 0;
    if (!ParseNumber(text, least, most, number, problem)) {
        return 0;
    }
    value = static_cast<int>(number);
    return 1;
}

int ParseKilobytes(const std::string& text, int& size, std::string& problem) {
    return ParseInt(text, 0, std::numeric_limits<int>::max(), size, problem);
}

int ParsePeriods(const std::string& text, int& count, std::string& problem) {
    return ParseInt(text, 1, kMostPeriods, count, problem);
}

auto InOrder(const CalendarDay& day) {
    return std::tuple(day.year, day.month, day.day);
}

/// Reads the two days of "--between".
int ParseDays(const Words& words, CalendarDay& first, CalendarDay& last, std::string& problem) {
    if (!ParseDay(words.first, first, problem) || !ParseDay(words.second, last, problem)) {
        return 0;
    }
    if (InOrder(last) < InOrder(first)) {
        problem = words.first + " comes after " + words.second;
        return 0;
    }
    return 1;
}

/// An option for values of which a criterion has several kinds, this being one.
template <class Value>
CLI::Option* AddKind(CLI::App& app, const char* option, const char* typeName,
                     int (*parse)(const std::string&, Value&, std::string&), Value& value,
                     int& kind, int of, const char* text) {
    return AddParsed(app, option, typeName, parse, value, text)
        ->each([&kind, of](const std::string&) { kind = of; });
}

}  // namespace

int ParseNamePattern(const std::string& text, std::string& pattern, std::string& problem) {
    if (!k4cmn::IsNameOfOneEntry(text)) {
        problem = "\"" + text + "\" has a separator of paths, and is no name of a file";
        return 0;
    }
    pattern = text;
    return 1;
}

int ParseFoundType(const std::string& text, int& type, std::string& problem) {
    std::string all;
    for (std::size_t index = 0; index < kTypeWords.size(); ++index) {
        const std::string extension(k4cmn::kSearchExtensions[index]);
        if (SameWord(text, kTypeWords[index]) || SameWord(text, extension)) {
            type = static_cast<int>(index);
            return 1;
        }
        all += (index == 0                       ? ""
                : index + 1 == kTypeWords.size() ? " and "
                                                 : ", ") +
               std::string(kTypeWords[index]) + " (" + extension + ")";
    }
    problem = "\"" + text + "\" is no type of files that can be found; they are " + all;
    return 0;
}

int ParseDay(const std::string& text, CalendarDay& day, std::string& problem) {
    constexpr std::string_view kForm = "0000-00-00";
    bool isWhole = text.size() == kForm.size();
    for (std::size_t at = 0; isWhole && at < kForm.size(); ++at) {
        isWhole = kForm[at] == '-' ? text[at] == '-' : text[at] >= '0' && text[at] <= '9';
    }
    if (isWhole) {
        const CalendarDay read{std::stoi(text.substr(8)), std::stoi(text.substr(5, 2)),
                               std::stoi(text.substr(0, 4))};
        const std::chrono::year_month_day date(
            std::chrono::year(read.year), std::chrono::month(static_cast<unsigned>(read.month)),
            std::chrono::day(static_cast<unsigned>(read.day)));
        if (date.ok() && read.year > 0) {
            day = read;
            return 1;
        }
    }
    problem = "\"" + text + "\" is no day; a day is YEAR-MONTH-DAY, as 2026-07-31";
    return 0;
}

int ParseFoundColumn(const std::string& text, int& column, std::string& problem) {
    return ParseWord(text, kFoundColumnWords, "column", column, problem);
}

void FindOptions::AddTo(CLI::App& app) {
    AddWords(app);
    AddSign(app);
    AddSize(app);
    AddTimes(app);
    AddOrder(app);
}

void FindOptions::AddWords(CLI::App& app) {
    CLI::Option* const name =
        AddParsed(app, "--name", "PATTERN", ParseNamePattern, criteria.fileName,
                  "Files of this name, of whatever type; with its extension, or with * and ?");
    AddParsed(app, "--type", "TYPE", ParseFoundType, criteria.fileType,
              "All files of a type: sequences (SQ4), the usual one, schedules (SD4), scripts (SC4) "
              "or old (SEQ)")
        ->excludes(name);
    CLI::Option* const keywords =
        AddParsed(app, "--keywords", "TEXT", ParseText, criteria.keywords,
                  "Sequences with these whole keywords, with blanks, commas or semicolons between; "
                  "files of other types pass");
    const auto combine = [this](int combination) {
        return [this, combination](std::int64_t) { criteria.keywordCombination = combination; };
    };
    CLI::Option* const any = app.add_flag_function("--any", combine(k4cmn::KEYWORDS_OR),
                                                   "One of the keywords is enough");
    app.add_flag_function("--all", combine(k4cmn::KEYWORDS_AND),
                          "All keywords are wanted, the usual way")
        ->excludes(any)
        ->needs(keywords);
    any->needs(keywords);
}

void FindOptions::AddSign(CLI::App& app) {
    const std::vector<CLI::Option*> parts = {
        AddParsed(app, "--rows", "N", ParseRows, criteria.rows,
                  "Files for signs of these rows, 7 or a multiple of 8 up to 2048,"),
        AddParsed(app, "--columns", "N", ParseColumns, criteria.columns,
                  "these columns, a multiple of 8 from 16 to 16384,"),
        AddParsed(app, "--color", "NAME", ParseColor, criteria.color,
                  "this color technology, by its short name or number,"),
        AddParsed(app, "--pixel", "NAME", ParsePixel, criteria.pixel,
                  "and this pixel technology: Incand, Reflect or LED, or its number. The four go "
                  "together"),
    };
    for (CLI::Option* const part : parts) {
        for (CLI::Option* const other : parts) {
            if (part != other) {
                part->needs(other);
            }
        }
    }
    app.callback([this, size = parts.front()] {
        criteria.isSignSearchEnabled = size->count() > 0 ? 1 : 0;
        const auto messages = k4cmn::SignTypeMessages(criteria.rows, criteria.columns,
                                                      criteria.color, criteria.pixel);
        if (criteria.isSignSearchEnabled && !messages.empty()) {
            throw CLI::ValidationError("find", OneLine(messages.front()));
        }
    });
}

void FindOptions::AddSize(CLI::App& app) {
    CLI::Option* const least =
        AddKind(app, "--at-least", "KB", ParseKilobytes, criteria.size, criteria.sizeRelation,
                k4cmn::SIZE_AT_LEAST, "Files of so many whole KB or more, or");
    AddKind(app, "--at-most", "KB", ParseKilobytes, criteria.size, criteria.sizeRelation,
            k4cmn::SIZE_AT_MOST, "of so many or fewer")
        ->excludes(least);
}

void FindOptions::AddTimes(CLI::App& app) {
    const auto modified = [this](int mode) {
        criteria.dateFilter = k4cmn::DATE_MODIFIED;
        criteria.dateMode = mode;
    };
    CLI::Option* const between =
        app.add_option_function<Words>(
               "--between",
               [this, modified](const Words& words) {
                   std::string problem;
                   if (!ParseDays(words, criteria.firstDate, criteria.lastDate, problem)) {
                       throw CLI::ValidationError("--between", problem);
                   }
                   modified(k4cmn::DATE_BETWEEN);
               },
               "Files that were changed on these days or between, as 2026-07-01 2026-07-31, or")
            ->type_name("FIRST LAST");
    CLI::Option* const months =
        AddParsed(app, "--months", "N", ParsePeriods, criteria.months,
                  "during the previous 1 to 999 months, or")
            ->excludes(between)
            ->each([modified](const std::string&) { modified(k4cmn::DATE_MONTHS); });
    AddParsed(app, "--days", "N", ParsePeriods, criteria.days, "during the previous 1 to 999 days")
        ->excludes(between)
        ->excludes(months)
        ->each([modified](const std::string&) { modified(k4cmn::DATE_DAYS); });
}

void FindOptions::AddOrder(CLI::App& app) {
    AddParsed(app, "--sort", "COLUMN", ParseFoundColumn, column,
              "Order by name, the usual one, folder, size, type or modified");
    app.add_flag("--descending", descending, "Turn the order round");
}

}  // namespace k4ctl

#pragma once

#include <string>

#include "k4cmndlg/search/FoundRows.h"
#include "k4cmndlg/search/SearchCriteria.h"

namespace CLI {
class App;
}

namespace k4ctl {

/// What a search looks for, as a command line says it, and the order of what it finds. Where to
/// look isn't told here.
struct FindOptions {
    k4cmn::SearchCriteria criteria;
    int column = k4cmn::FoundRows::kName;
    bool descending = false;

    /// Declares the options. The object must stay where it is until the line is parsed.
    void AddTo(CLI::App& app);

 private:
    void AddWords(CLI::App& app);
    void AddSign(CLI::App& app);
    void AddSize(CLI::App& app);
    void AddTimes(CLI::App& app);
    void AddOrder(CLI::App& app);
};

// How the words of these options become values, as the operations of Arguments.h do it.

/// A file's name or a pattern with '*' and '?': one without a separator of paths.
int ParseNamePattern(const std::string& text, std::string& pattern, std::string& problem);
/// "sequences", "schedules", "scripts", "old", or the extension of one of them.
int ParseFoundType(const std::string& text, int& type, std::string& problem);
/// A day of the calendar as "2026-07-31", from the year 1 on.
int ParseDay(const std::string& text, k4cmn::CalendarDay& day, std::string& problem);
/// "name", "folder", "size", "type" or "modified".
int ParseFoundColumn(const std::string& text, int& column, std::string& problem);

}  // namespace k4ctl

#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/search/SearchPlace.h"

namespace k4cmn {

/// A day of the calendar, as a date dialog gives it; a piece of 0 isn't chosen.
struct CalendarDay {
    int day = 0;    ///< 1 to 31
    int month = 0;  ///< 1 to 12
    int year = 0;   ///< such as 2026

    bool operator==(const CalendarDay&) const = default;
};

/// How several keywords go together.
enum KeywordCombination : int { KEYWORDS_AND = 0, KEYWORDS_OR = 1 };
/// What a file's size is compared by.
enum SizeRelation : int { SIZE_ANY = 0, SIZE_AT_LEAST = 1, SIZE_AT_MOST = 2 };
/// Whether a file's time counts.
enum DateFilter : int { DATE_ALL_FILES = 0, DATE_MODIFIED = 1 };
/// What a file's time is compared by.
enum DateMode : int { DATE_BETWEEN = 0, DATE_MONTHS = 1, DATE_DAYS = 2 };

/// What a search looks for: all that the pages of the search dialog hold, as it stands when the
/// search begins. Numbers out of the ranges below are no error: the engine says what they pass.
struct SearchCriteria {
    std::string fileName;  ///< a name or a pattern with '*' and '?'; empty: every file of fileType
    std::string keywords;  ///< words between ';', ',', blanks, tabs and line feeds; empty: any
    int keywordCombination = KEYWORDS_AND;
    int fileType = 0;  ///< an index in kSearchExtensions
    SearchPlace place;

    int isSignSearchEnabled = 0;  ///< whether the four values below count
    std::uint32_t rows = 7;
    std::uint32_t columns = 16;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;

    int sizeRelation = SIZE_ANY;
    int size = 0;  ///< whole KB

    int dateFilter = DATE_ALL_FILES;
    int dateMode = DATE_BETWEEN;
    int days = 1;           ///< 1 to 999
    int months = 1;         ///< 1 to 999
    CalendarDay firstDate;  ///< local time, from its first second
    CalendarDay lastDate;   ///< local time, to its last second

    bool operator==(const SearchCriteria&) const = default;
};

}  // namespace k4cmn

#include "apps/k4ctl/Arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "apps/k4ctl/Names.h"
#include "k4cmndlg/frame/Format.h"

namespace k4ctl {
namespace {

struct DimmingWord {
    const char* word;
    tag_K4_SIGN_DIM_MODE mode;
    const char* valueName;  ///< null: the mode takes no value
    std::int32_t least;
    std::int32_t most;
};

constexpr std::array<DimmingWord, 4> kDimmingWords = {{
    {"manual", K4_SIGN_DIM_MANUAL, "level", K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX},
    {"photocell", K4_SIGN_DIM_PHOTOCELL, "offset", K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX},
    {"remote", K4_SIGN_DIM_REMOTE_PHOTOCELL, nullptr, 0, 0},
    {"scheduled", K4_SIGN_DIM_SCHEDULED, nullptr, 0, 0},
}};

std::string AllModeNames() {
    std::string names;
    for (std::size_t index = 0; K4PlaySeqModeNames[index]; ++index) {
        if (*K4PlaySeqModeNames[index]) {
            names += (names.empty() ? "" : ", ") + std::string(K4PlaySeqModeNames[index]);
        }
    }
    return names;
}

}  // namespace

int ParseNumber(const std::string& text, std::int64_t least, std::int64_t most, std::int64_t& value,
                std::string& problem) {
    const bool plus = text.size() > 1 && text.front() == '+' && text[1] != '-';
    const char* const first = text.data() + (plus ? 1 : 0);
    const char* const last = text.data() + text.size();
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    if (error != std::errc() || end != last || number < least || number > most) {
        problem = k4cmn::Format("\"%s\" is not a whole number from %lld to %lld", text.c_str(),
                                static_cast<long long>(least), static_cast<long long>(most));
        return 0;
    }
    value = number;
    return 1;
}

int ParseMode(const std::string& text, tag_K4_PLAY_SEQ_MODE& mode, std::string& problem) {
    std::string wanted = text;
    std::replace(wanted.begin(), wanted.end(), '-', ' ');
    for (int index = 0; K4PlaySeqModeNames[index]; ++index) {
        // The mode without a name is given by its number.
        if (!wanted.empty() && SameWord(wanted, K4PlaySeqModeNames[index])) {
            mode = static_cast<tag_K4_PLAY_SEQ_MODE>(index);
            return 1;
        }
    }
    std::int64_t number = 0;
    if (!ParseNumber(text, 0, K4_PLAY_SEQ_LAST, number, problem)) {
        problem =
            k4cmn::Format("\"%s\" is no play mode; the modes are %s, or a number from 0 to %d",
                          text.c_str(), AllModeNames().c_str(), K4_PLAY_SEQ_LAST);
        return 0;
    }
    mode = static_cast<tag_K4_PLAY_SEQ_MODE>(number);
    return 1;
}

int ParseDimming(const std::string& mode, const std::string& value, Dimming& dimming,
                 std::string& problem) {
    const auto row = std::find_if(kDimmingWords.begin(), kDimmingWords.end(),
                                  [&](const auto& each) { return SameWord(mode, each.word); });
    if (row == kDimmingWords.end()) {
        problem = k4cmn::Format(
            "\"%s\" is no dimming mode; the modes are manual, photocell, remote and scheduled",
            mode.c_str());
        return 0;
    }
    if (!row->valueName && !value.empty()) {
        problem = k4cmn::Format("%s takes no value", row->word);
        return 0;
    }
    if (row->valueName && value.empty()) {
        problem = k4cmn::Format("%s needs the %s, a whole number from %d to %d", row->word,
                                row->valueName, row->least, row->most);
        return 0;
    }
    std::int64_t number = 0;
    if (row->valueName && !ParseNumber(value, row->least, row->most, number, problem)) {
        problem = k4cmn::Format("%s: %s", row->valueName, problem.c_str());
        return 0;
    }
    dimming = {row->mode, static_cast<std::int32_t>(number)};
    return 1;
}

int ParsePlace(const std::string& text, Place& place, std::string& problem) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    const std::size_t comma = text.find(',');
    std::int64_t row = 0;
    std::int64_t column = 0;
    if (comma == std::string::npos || !ParseNumber(text.substr(0, comma), 1, kMost, row, problem) ||
        !ParseNumber(text.substr(comma + 1), 1, kMost, column, problem)) {
        problem = k4cmn::Format("\"%s\" is no place; a place is ROW,COLUMN, counted from 1",
                                text.c_str());
        return 0;
    }
    place = {static_cast<std::int32_t>(row), static_cast<std::int32_t>(column)};
    return 1;
}

int ParseOpen(const std::string& text, std::int32_t& open, std::string& problem) {
    if (SameWord(text, "open")) {
        open = 1;
    } else if (SameWord(text, "close")) {
        open = 0;
    } else {
        problem = k4cmn::Format("\"%s\" is neither open nor close", text.c_str());
        return 0;
    }
    return 1;
}

}  // namespace k4ctl

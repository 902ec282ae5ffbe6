#include "apps/k4ctl/Names.h"

#include <algorithm>

namespace k4ctl {
namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// The name of a mode in the table, or the empty text.
std::string TableName(tag_K4_PLAY_SEQ_MODE mode) {
    // The table is as long as it says, so that the walk ends at its null entry.
    for (std::int32_t index = 0; K4PlaySeqModeNames[index]; ++index) {
        if (index == mode) {
            return K4PlaySeqModeNames[index];
        }
    }
    return {};
}

}  // namespace

bool SameWord(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return Lower(one) == Lower(other); });
}

std::string ModeName(tag_K4_PLAY_SEQ_MODE mode) {
    const std::string name = TableName(mode);
    return name.empty() ? std::to_string(static_cast<std::int32_t>(mode)) : name;
}

std::string DimmingName(tag_K4_SIGN_DIM_MODE mode) {
    switch (mode) {
        case K4_SIGN_DIM_PHOTOCELL:
            return "photocell";
        case K4_SIGN_DIM_REMOTE_PHOTOCELL:
            return "remote photocell";
        case K4_SIGN_DIM_SCHEDULED:
            return "scheduled";
        default:
            return "manual";
    }
}

QJsonObject NamedValue(std::int32_t value, const std::string& name) {
    return {{QStringLiteral("value"), value},
            {QStringLiteral("name"), QString::fromStdString(name)}};
}

QJsonObject ModeJson(tag_K4_PLAY_SEQ_MODE mode) {
    return NamedValue(mode, TableName(mode));
}

}  // namespace k4ctl

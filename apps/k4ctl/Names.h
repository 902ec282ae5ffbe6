#pragma once

#include <QJsonObject>
#include <cstdint>
#include <string>
#include <string_view>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4ctl {

/// Whether two words are the same, the case of ASCII letters not counting.
bool SameWord(std::string_view left, std::string_view right);

/// The name of a play mode; its number where it has none. Takes any value.
std::string ModeName(tag_K4_PLAY_SEQ_MODE mode);

/// "manual", "photocell", "remote photocell" or "scheduled"; the modes 0 and 1 are manual too.
std::string DimmingName(tag_K4_SIGN_DIM_MODE mode);

/// A value of an enumeration for machines: "value" and "name".
QJsonObject NamedValue(std::int32_t value, const std::string& name);
/// A play mode for machines; the name is empty where it has none.
QJsonObject ModeJson(tag_K4_PLAY_SEQ_MODE mode);

}  // namespace k4ctl

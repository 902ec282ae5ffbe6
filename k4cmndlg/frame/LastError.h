#pragma once

#include <string>

#include "k4cmndlg/k4cmncore_export.h"

/// The text of the platform's last error code (errno of the calling thread) in the default language
/// of the system: the one that the environment names (LC_ALL, LC_MESSAGES, LANG), whatever language
/// the program runs in; English where that language isn't installed. Always UTF-8. The code stays
/// as it is. Has no failure of its own: a code without a text gives the platform's words for that.
/// Any thread.
K4CMNCORE_EXPORT std::string k4cmnGetLastErrorString();

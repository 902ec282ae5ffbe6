#pragma once

#include <string>
#include <vector>

#include "suite/settings/MachineSettings.h"

namespace k4suite {

/// An entry of the phone book: a number that can be dialled, and the sign services behind it.
struct PhoneBookEntry {
    std::string name;
    std::vector<std::string> services;
};

/// The phone book of a machine: an entry for each different PhoneBookEntry line of its services, in
/// the order and the spelling of the first of them. Case doesn't count. What can't stand in a line
/// of a list is left out.
/// @param problems gets words for people for each thing that was left out.
std::vector<PhoneBookEntry> PhoneBookOf(const MachineSettings& settings,
                                        std::vector<std::string>& problems);

}  // namespace k4suite

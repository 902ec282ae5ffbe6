#pragma once

#include <string>

#include "suite/settings/DataHome.h"
#include "suite/settings/MachineSettings.h"

namespace k4suite {

/// The machines that a new home begins with: "Local", "North Tower" and "Harbour Gate", each with
/// its servers and with signs of different size, color and pixel technology, the largest one first.
MachineSettings SampleMachines();

/// Puts sample data into a home that has none yet: the machine settings, and on each server the
/// sign type folders of the machine's signs, each with its palette twin and its libraries.
///
/// A home with machine settings, or with damaged ones that were set aside, is not touched. The
/// machine settings are written last, so that a home that was left half filled is filled at the
/// next call; files that lie in it stay.
/// @param problem what went wrong, for people; null: not wanted. Emptied on success.
/// @return 1 if the home has its data now, also where it had before; 0 if it couldn't be made.
/// Threads: any; processes that do it at the same time wait for each other.
int SeedSampleData(const DataHome& home, std::string* problem);

}  // namespace k4suite

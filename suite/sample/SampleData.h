#pragma once

#include <filesystem>
#include <string>

#include "suite/settings/DataHome.h"
#include "suite/settings/MachineSettings.h"

namespace k4suite {

/// The machines that a new home begins with: "Local", "North Tower" and "Harbour Gate", and behind
/// the phone book entry "Hilltop" the "Observatory". Each has its servers, and signs of different
/// size, color and pixel technology, the largest one first.
MachineSettings SampleMachines();

/// The folder of the sample content that belongs to this program: "../share/k4400/sample" from the
/// program's own folder. It need not be there.
std::filesystem::path SampleContentFolder();

/// Puts sample data into a home that has none yet: the machine settings; on each server the sign
/// type folders of the machine's signs, each with its palette twin and its libraries; and in these
/// the sample content, of which each sign has a sequence that it plays to begin with. One server,
/// the archive, has the folders of signs that hang nowhere any more.
///
/// A home with machine settings, or with damaged ones that were set aside, is not touched. The
/// machine settings are written last, so that a home that was left half filled is filled at the
/// next call; files that lie in it stay.
/// @param problem what went wrong, for people; null: not wanted. Emptied on success.
/// @param content sequences in the folders of a server, "64x192.RGB16M.LED.Sign/Default.Lib/…";
///                a folder that isn't there leaves the libraries empty.
/// @return 1 if the home has its data now, also where it had before; 0 if it couldn't be made.
/// Threads: any; processes that do it at the same time wait for each other.
int SeedSampleData(const DataHome& home, std::string* problem,
                   const std::filesystem::path& content = SampleContentFolder());

}  // namespace k4suite

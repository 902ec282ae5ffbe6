#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/settings/DataHome.h"

namespace k4suite {

/// One sign of a machine, as it is configured.
struct SignSetup {
    std::string name;
    k4cmn::SignSettings settings;
};

/// One machine with a sign service.
struct ServiceSetup {
    std::string name;            ///< "Local" is this machine
    std::string phoneBookEntry;  ///< empty: reached without dialing
    /// Server texts of its store, such as "A:" or "\\HOST\SHARE".
    std::vector<std::string> servers;
    std::vector<SignSetup> signs;
};

/// The machine's part of the settings: the file "machine.ini" of a data home, for people to edit.
/// In its values a '\' is written twice ("\\HOST\SHARE" is \\\\HOST\\SHARE there);
/// docs/data-home.md tells its lines.
struct MachineSettings {
    std::vector<ServiceSetup> services;

    /// The service of that name, case not counting; null if there is none.
    const ServiceSetup* Find(const std::string& service) const;
};

/// Reads the machine's part. A damaged file is set aside and reported in `problem`; so is, a line
/// each, every service and every sign that is left out.
/// @return 1, or 0 if there is no readable file.
int ReadMachineSettings(const DataHome& home, MachineSettings& settings, std::string* problem);

/// Writes the machine's part, atomically. @return 1 or 0.
int WriteMachineSettings(const DataHome& home, const MachineSettings& settings);

}  // namespace k4suite

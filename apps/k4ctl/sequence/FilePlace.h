#pragma once

#include <functional>
#include <string>

#include "suite/settings/DataHome.h"

namespace k4ctl {

/// Where the file of an argument lies on this machine; empty where there is no such place.
using FilePlaces = std::function<std::string(const std::string& argument)>;

/// An argument that begins with a drive ("A:\") or a host ("\\HOST\SHARE\") is a path of the store
/// of a data home, which need not exist; any other one is a path of this machine.
FilePlaces PlacesOf(const k4suite::DataHome& home);

/// The words for an argument that has no place.
std::string NoPlaceWords(const std::string& argument);

}  // namespace k4ctl

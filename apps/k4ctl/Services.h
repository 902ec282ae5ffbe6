#pragma once

#include <string>
#include <vector>

namespace k4ctl {

/// The configured services, by name. @return 1, or 0 if they can't be read.
int ConfiguredServices(std::vector<std::string>& services);

/// Words that help with a mistyped name of a service.
/// @return the empty text where the name is one of the configured ones, or these can't be read.
std::string ConfiguredInstead(const std::string& service);

}  // namespace k4ctl

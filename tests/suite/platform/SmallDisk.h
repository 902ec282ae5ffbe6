#pragma once

#include <functional>
#include <string>

namespace k4test {

/// Runs a body in a process of its own, in which a small disk is mounted at a folder. What the body
/// expects in vain is printed there and counts here.
/// @return 0 if all went as the body expects; kNoMounts where the system lets nobody mount.
int WithSmallDisk(const std::string& folder, const std::string& size,
                  const std::function<void()>& body);

inline constexpr int kNoMounts = 77;

}  // namespace k4test

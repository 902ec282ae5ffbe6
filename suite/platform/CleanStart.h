#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace k4suite {

/// Starts a program in a session of its own, without input and output, with nothing open, and with
/// no signal blocked or ignored. Nothing passes through a command shell. The process is the
/// caller's child, to be reaped by it.
/// @param arguments   the program, looked for in PATH unless it has a '/', and what it is given;
///                    not empty, and without 0 bytes.
/// @param environment what it finds in its environment beside, or in place of, this process's own.
/// @return 0, or the system's error.
int StartClean(const std::vector<std::string>& arguments,
               const std::map<std::string, std::string>& environment, pid_t& process);

}  // namespace k4suite

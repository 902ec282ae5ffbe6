#pragma once

#include <string>

namespace workbench {

/// A sequence that belongs to a sign: the one that it plays, where that is a file of the store,
/// else the first one by name in the libraries of its sign type, on the first server that has one.
/// @return its path; empty if there is none, or the sign can't be asked.
std::string SequenceOfSign(const std::string& service, const std::string& sign);

}  // namespace workbench

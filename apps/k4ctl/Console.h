#pragma once

#include <iosfwd>
#include <string>

#include "apps/k4ctl/Answer.h"

namespace k4ctl {

/// Writes words of a failure: a line "k4ctl: WORDS", fit for a terminal.
void WriteError(const std::string& words, std::ostream& err);

/// Writes an answer: for people its text, for machines one JSON document, on `out`; what failed on
/// `err`. An answer that can't be written is a failure of its own, and a silent one where the
/// reader went away.
/// @return how the program ends.
ExitCode WriteAnswer(const Answer& answer, bool json, std::ostream& out, std::ostream& err);

}  // namespace k4ctl

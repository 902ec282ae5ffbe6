#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "apps/k4ctl/Command.h"

namespace k4ctl {

/// What a command line asks for.
struct Invocation {
    std::unique_ptr<Command> command;  ///< null: all is said, and `code` tells how to end
    bool json = false;                 ///< the answer is for machines
    ExitCode code = ExitCode::Done;
};

/// Understands a command line. Help and version go to `out`; what can't be understood is told on
/// `err`, with code Usage. Opens nothing, so that a mistyped line has no effect.
/// @param arguments what stands behind the program's name.
/// @param further   commands beside those on signs, behind which they are listed.
Invocation ParseCommandLine(std::vector<std::string> arguments, std::ostream& out,
                            std::ostream& err, std::vector<std::unique_ptr<Command>> further = {});

}  // namespace k4ctl

#pragma once

#include <iosfwd>

namespace k4ctl {

/// Where a command asks a person, and shows how far it is. The streams must outlive the commands.
struct Terminal {
    std::istream& in;            ///< answers, a line each
    std::ostream& err;           ///< questions and progress
    bool canAsk = false;         ///< a person sits there
    bool showsProgress = false;  ///< what is written there can be written over
    int input = -1;              ///< the descriptor of `in`; -1 where reading never waits

    /// This process's own standard input and standard error.
    static Terminal OfProcess();
};

}  // namespace k4ctl

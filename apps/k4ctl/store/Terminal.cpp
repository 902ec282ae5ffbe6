#include "apps/k4ctl/store/Terminal.h"

#include <unistd.h>

#include <iostream>

namespace k4ctl {

Terminal Terminal::OfProcess() {
    const bool showsProgress = isatty(STDERR_FILENO) == 1;
    return {std::cin, std::cerr, showsProgress && isatty(STDIN_FILENO) == 1, showsProgress,
            STDIN_FILENO};
}

}  // namespace k4ctl

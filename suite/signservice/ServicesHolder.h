#pragma once

#include <string>

namespace k4suite {

/// The process that runs the services of a data home.
struct ServicesHolder {
    long pid = 0;         ///< 0: nobody, or it can't be told
    std::string program;  ///< the name that it gave
};

}  // namespace k4suite

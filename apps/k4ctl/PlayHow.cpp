#include "apps/k4ctl/PlayHow.h"

#include <CLI/CLI.hpp>
#include <limits>

#include "apps/k4ctl/Arguments.h"

namespace k4ctl {

void PlayHow::AddTo(CLI::App& app) {
    app.add_option_function<std::string>(
           "--mode",
           [this](const std::string& text) {
               std::string problem;
               if (!ParseMode(text, mode, problem)) {
                   throw CLI::ValidationError("--mode", problem);
               }
               given = true;
           },
           "A play mode's name, as num-times, or number, 0 to 12; without it Continuous")
        ->type_name("MODE");
    app.add_option_function<std::string>(
           "--param",
           [this](const std::string& text) {
               std::string problem;
               std::int64_t number = 0;
               if (!ParseNumber(text, 0, std::numeric_limits<std::uint32_t>::max(), number,
                                problem)) {
                   throw CLI::ValidationError("--param", problem);
               }
               param = static_cast<std::uint32_t>(number);
               given = true;
           },
           "The number that goes with the mode; without it 0")
        ->type_name("N");
}

}  // namespace k4ctl

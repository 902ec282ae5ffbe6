#include "apps/k4ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>
#include <utility>

#include "apps/k4ctl/Console.h"
#include "apps/k4ctl/PlayCommands.h"
#include "apps/k4ctl/QueueCommand.h"
#include "apps/k4ctl/ReadCommands.h"
#include "apps/k4ctl/SetupCommands.h"
#include "apps/k4ctl/SignsCommand.h"

namespace k4ctl {
namespace {

constexpr const char* kExitCodes =
    "Exit codes:\n"
    "  0  done\n"
    "  1  the service refused or failed\n"
    "  2  the command line can't be understood\n"
    "  3  the service is unavailable\n";

constexpr const char* kOverview =
    "Examples:\n"
    "  k4ctl signs                         all signs of all services\n"
    "  k4ctl status Ticker                 what a sign of this machine does\n"
    "  k4ctl dim Ticker manual 200         sets its dimming\n"
    "  k4ctl play Ticker 'A:\\Goal.SQ4' --mode num-times --param 3\n"
    "  k4ctl windows -s \"North Tower\" Weather --json\n"
    "\n"
    "k4ctl COMMAND --help tells a command's arguments, with examples. A name that begins with a\n"
    "hyphen goes behind --. K4_HOME names the data home; without it, it is k4400 in the user's\n"
    "data folder, made with sample signs when there is none.\n"
    "\n";

std::vector<std::unique_ptr<Command>> AllCommands() {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<SignsCommand>());
    commands.push_back(std::make_unique<StatusCommand>());
    commands.push_back(std::make_unique<ConfigCommand>());
    commands.push_back(std::make_unique<WindowsCommand>());
    commands.push_back(std::make_unique<QueueCommand>());
    commands.push_back(std::make_unique<PlayCommand>());
    commands.push_back(std::make_unique<StopCommand>());
    commands.push_back(std::make_unique<BlankCommand>());
    commands.push_back(std::make_unique<DimCommand>());
    commands.push_back(std::make_unique<WindowCommand>());
    commands.push_back(std::make_unique<DefaultCommand>());
    return commands;
}

void AddCommand(CLI::App& app, Command& command, bool& json) {
    const CommandText text = command.Text();
    CLI::App& own = *app.add_subcommand(text.name, text.summary);
    command.AddArguments(own);
    own.add_flag("--json", json, "Answer with one JSON document on standard output");
    own.group("Commands");
    own.footer(std::string("Examples:\n") + text.examples + "\n" + kExitCodes);
}

/// What is wrong with a line. Where no command was recognised, the toolkit's words don't say why.
std::string UsageWords(const CLI::App& app, const CLI::Error& error) {
    if (!app.get_subcommands().empty()) {
        return error.what();
    }
    const std::vector<std::string> rest = app.remaining();
    if (rest.empty()) {
        return "a command is required";
    }
    return "\"" + rest.front() + "\" is no " +
           (rest.front().starts_with("-") ? "option of the program" : "command");
}

}  // namespace

Invocation ParseCommandLine(std::vector<std::string> arguments, std::ostream& out,
                            std::ostream& err) {
    Invocation invocation;
    std::vector<std::unique_ptr<Command>> commands = AllCommands();

    CLI::App app("Shows and controls the signs of this machine's data home.", "k4ctl");
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("--version", std::string("k4ctl ") + K4CTL_VERSION,
                         "Show the version and exit");
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->label("TEXT", "");
    app.get_formatter()->label("REQUIRED", "");
    app.get_formatter()->column_width(24);
    app.footer(std::string(kOverview) + kExitCodes);
    for (const auto& command : commands) {
        AddCommand(app, *command, invocation.json);
    }

    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::Success& wanted) {
        app.exit(wanted, out, err);
        return invocation;
    } catch (const CLI::Error& error) {
        WriteError(UsageWords(app, error), err);
        const auto chosen = app.get_subcommands();
        WriteError(
            "see k4ctl " + (chosen.empty() ? "" : chosen.front()->get_name() + " ") + "--help",
            err);
        invocation.code = ExitCode::Usage;
        return invocation;
    }

    const std::string name = app.get_subcommands().front()->get_name();
    const auto chosen = std::find_if(commands.begin(), commands.end(), [&](const auto& command) {
        return command->Text().name == name;
    });
    invocation.command = std::move(*chosen);
    return invocation;
}

}  // namespace k4ctl

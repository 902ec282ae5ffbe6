#include "apps/k4ctl/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
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
    "  1  refused, or failed\n"
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

std::vector<std::unique_ptr<Command>> SignCommands() {
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

/// The group of commands that aren't on one file.
constexpr const char* kStore = "store";

/// What stands before the options of every command in its help.
constexpr const char* kGroup = "Commands";

/// The name of a command in two parts: of the group that it belongs to, empty where there is none,
/// and its own.
std::pair<std::string, std::string> NameParts(const std::string& name) {
    const std::size_t blank = name.find(' ');
    if (blank == std::string::npos) {
        return {{}, name};
    }
    return {name.substr(0, blank), name.substr(blank + 1)};
}

/// The group of a name, which is made if it isn't there.
CLI::App& GroupOf(CLI::App& app, const std::string& name) {
    const auto present =
        app.get_subcommands([&](const CLI::App* each) { return each->get_name() == name; });
    if (!present.empty()) {
        return *app.get_subcommand(name);
    }
    CLI::App& group = *app.add_subcommand(name, name == kStore ? "Commands on the sign file store"
                                                               : "Commands on a " + name + " file");
    group.require_subcommand(1);
    group.group(kGroup);
    group.footer("k4ctl " + name + " COMMAND --help tells a command's arguments, with examples.\n");
    return group;
}

/// @return what the command line knows the command by.
CLI::App* AddCommand(CLI::App& app, Command& command, bool& json) {
    const CommandText text = command.Text();
    const auto [group, name] = NameParts(text.name);
    CLI::App& own = *(group.empty() ? app : GroupOf(app, group)).add_subcommand(name, text.summary);
    command.AddArguments(own);
    own.add_flag("--json", json, "Answer with one JSON document on standard output");
    own.group(kGroup);
    own.footer(std::string("Examples:\n") + text.examples + "\n" +
               (text.exitCodes ? std::string("Exit codes:\n") + text.exitCodes : kExitCodes));
    return &own;
}

/// The innermost command or group that a line names; the program itself where it names none.
const CLI::App& Innermost(const CLI::App& app) {
    const CLI::App* innermost = &app;
    while (!innermost->get_subcommands().empty()) {
        innermost = innermost->get_subcommands().front();
    }
    return *innermost;
}

/// What a line has to be to call a command: "k4ctl ", and the names of group and command.
std::string CallOf(const CLI::App& app) {
    return (app.get_parent() ? CallOf(*app.get_parent()) : std::string()) + app.get_name() + " ";
}

/// What is wrong with a line. Where no command was recognised, the toolkit's words don't say why.
std::string UsageWords(const CLI::App& app, const CLI::Error& error) {
    const CLI::App& named = Innermost(app);
    if (named.get_subcommands([](const CLI::App*) { return true; }).empty()) {
        return error.what();
    }
    const std::vector<std::string> rest = app.remaining(true);
    if (rest.empty()) {
        return "a command is required";
    }
    const std::string owner = named.get_parent() ? "of " + named.get_name() : "of the program";
    return "\"" + rest.front() + "\" is no " +
           (rest.front().starts_with("-") ? "option " + owner
            : named.get_parent()          ? "command " + owner
                                          : "command");
}

}  // namespace

Invocation ParseCommandLine(std::vector<std::string> arguments, std::ostream& out,
                            std::ostream& err, std::vector<std::unique_ptr<Command>> further) {
    Invocation invocation;
    std::vector<std::unique_ptr<Command>> commands = SignCommands();
    std::move(further.begin(), further.end(), std::back_inserter(commands));

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
    std::vector<CLI::App*> known;
    for (const auto& command : commands) {
        known.push_back(AddCommand(app, *command, invocation.json));
    }

    try {
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::Success& wanted) {
        app.exit(wanted, out, err);
        return invocation;
    } catch (const CLI::Error& error) {
        WriteError(UsageWords(app, error), err);
        WriteError("see " + CallOf(Innermost(app)) + "--help", err);
        invocation.code = ExitCode::Usage;
        return invocation;
    }

    const auto chosen = std::find_if(known.begin(), known.end(),
                                     [](const CLI::App* each) { return each->parsed(); });
    invocation.command = std::move(commands[static_cast<std::size_t>(chosen - known.begin())]);
    return invocation;
}

}  // namespace k4ctl

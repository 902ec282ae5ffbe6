#include "apps/k4ctl/sequence/SequenceCommands.h"

#include "apps/k4ctl/sequence/SequenceCheckCommand.h"
#include "apps/k4ctl/sequence/SequenceExportCommand.h"
#include "apps/k4ctl/sequence/SequenceMakeCommand.h"
#include "apps/k4ctl/sequence/SequenceShowCommand.h"

namespace k4ctl {

std::vector<std::unique_ptr<Command>> SequenceCommands(const FilePlaces& places) {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<SequenceMakeCommand>(places));
    commands.push_back(std::make_unique<SequenceShowCommand>(places));
    commands.push_back(std::make_unique<SequenceExportCommand>(places));
    commands.push_back(std::make_unique<SequenceCheckCommand>(places));
    return commands;
}

}  // namespace k4ctl

#include "apps/k4ctl/store/StoreCommands.h"

#include "apps/k4ctl/store/FindFilesCommand.h"
#include "apps/k4ctl/store/StoreListCommand.h"
#include "apps/k4ctl/store/StoreMakeLibraryCommand.h"
#include "apps/k4ctl/store/StoreMakeTypeCommand.h"
#include "apps/k4ctl/store/StorePasteCommand.h"
#include "apps/k4ctl/store/StoreRemoveCommand.h"
#include "apps/k4ctl/store/StoreRenameCommand.h"
#include "apps/k4ctl/store/StoreReportCommand.h"
#include "apps/k4ctl/store/StoreTreeCommand.h"

namespace k4ctl {

std::vector<std::unique_ptr<Command>> StoreCommands(const k4suite::DataHome& home,
                                                    const Terminal& terminal) {
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<StoreListCommand>(home, terminal));
    commands.push_back(std::make_unique<StoreTreeCommand>(home, terminal));
    commands.push_back(
        std::make_unique<StorePasteCommand>(home, terminal, StorePasteCommand::Way::Copy));
    commands.push_back(
        std::make_unique<StorePasteCommand>(home, terminal, StorePasteCommand::Way::Move));
    commands.push_back(std::make_unique<StoreRenameCommand>(home, terminal));
    commands.push_back(std::make_unique<StoreRemoveCommand>(home, terminal));
    commands.push_back(std::make_unique<StoreMakeLibraryCommand>(home, terminal));
    commands.push_back(std::make_unique<StoreMakeTypeCommand>(home, terminal));
    commands.push_back(std::make_unique<StoreReportCommand>(home, terminal));
    commands.push_back(std::make_unique<FindFilesCommand>(home, terminal));
    return commands;
}

}  // namespace k4ctl

#pragma once

#include <string>

#include "apps/k4ctl/store/StoreCommand.h"

namespace k4ctl {

/// `store rename FILE NEWNAME`: gives a file another name in its folder. What is there is never
/// replaced.
class StoreRenameCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;

    std::string m_file;
    std::string m_name;
};

}  // namespace k4ctl

#pragma once

#include <string>
#include <vector>

#include "apps/k4ctl/store/StoreCommand.h"

namespace k4ctl {

/// `store rm FILE...|LIBRARY`: moves files, or libraries with all in them, to the trash, after a
/// question.
class StoreRemoveCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;
    static void RemoveFiles(const std::vector<std::string>& paths, Answer& answer);

    std::vector<std::string> m_places;
};

}  // namespace k4ctl

#pragma once

#include <string>

#include "apps/k4ctl/store/StoreCommand.h"
#include "k4cmndlg/filesel/FileTree.h"

namespace k4ctl {

/// `store tree [PLACE] [--depth N] [--palettes]`: the tree of servers, sign types and libraries, as
/// the file selection dialog shows it with everything open.
class StoreTreeCommand final : public StoreCommand {
 public:
    static constexpr int kLevels = 3;

    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;

    std::string m_place;
    int m_depth = kLevels;
    bool m_palettes = false;
};

}  // namespace k4ctl

#pragma once

#include <string>

#include "apps/k4ctl/store/StoreCommand.h"

namespace k4ctl {

/// `store mklib SIGNTYPE NAME`: makes a library below a sign type.
class StoreMakeLibraryCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;

    std::string m_signType;
    std::string m_name;
};

}  // namespace k4ctl

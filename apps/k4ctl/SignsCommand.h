#pragma once

#include <string>
#include <vector>

#include "apps/k4ctl/Command.h"

namespace k4ctl {

/// `signs [SERVICE]`: every sign of a service, or of all configured services, with its size,
/// technologies and dimming.
///
/// A service that can't be reached, and a sign that doesn't tell its configuration, are told among
/// the words and, for machines, in "failures"; the others are listed all the same. The code is the
/// worst of them.
class SignsCommand final : public Command {
 public:
    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    Answer Run() const override;

 private:
    class Listing;

    std::string m_service;  ///< empty: all
    bool m_one = false;
};

}  // namespace k4ctl

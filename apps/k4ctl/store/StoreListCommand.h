#pragma once

#include <string>
#include <vector>

#include "apps/k4ctl/store/ListOptions.h"
#include "apps/k4ctl/store/StoreCommand.h"

namespace k4ctl {

/// `store ls [PLACE]`: what lies at a place: servers; the sign types of a server, with the local
/// signs that have them, and its scripts and download lists where their type is asked for; the
/// libraries of a sign type; the files of a library; or files themselves.
class StoreListCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;
    void ListServers(StoreSession& session) const;
    void ListServer(const StorePlace& place, Answer& answer) const;
    void ListSignType(const StorePlace& place, Answer& answer) const;
    void ListFiles(const std::vector<ListedFile>& files, const FileLocation& where,
                   Answer& answer) const;
    void ListNamedFiles(const std::vector<StorePlace>& places, Answer& answer) const;

    std::string m_place;
    ListOptions m_options;
    bool m_palettes = false;
};

}  // namespace k4ctl

#pragma once

#include <string>
#include <vector>

#include "apps/k4ctl/store/FindOptions.h"
#include "apps/k4ctl/store/StoreCommand.h"
#include "k4cmndlg/search/SearchPlace.h"

namespace k4ctl {

/// `find [PLACE]`: the files of the store that pass all criteria, as the search dialog finds them.
/// Ends with NotFound where there are none, and with Unavailable where what is to be searched isn't
/// there or can't be read.
class FindFilesCommand final : public StoreCommand {
 public:
    using StoreCommand::StoreCommand;

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    void Do(StoreSession& session) const override;
    ExitCode CodeOfFailure() const override { return ExitCode::Unavailable; }

    /// Where to search; none, with a failure in the answer, where that can't be told.
    std::vector<k4cmn::SearchPlace> Places(StoreSession& session) const;
    std::vector<k4cmn::SearchPlace> PlacesOnAllServers(StoreSession& session) const;
    /// Puts rows into the order that is asked for. @return for each place the row that comes there.
    std::vector<std::size_t> Order(k4cmn::FoundRows& rows) const;
    void Show(k4cmn::FoundRows& rows, Answer& answer) const;

    std::string m_place;
    std::string m_server;
    std::string m_signType;
    std::string m_library;
    FindOptions m_options;
};

}  // namespace k4ctl

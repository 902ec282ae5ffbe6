#pragma once

#include <string>
#include <vector>

#include "apps/k4ctl/store/StoreCommand.h"

namespace k4ctl {

/// `store cp SOURCE... TARGET` and `store mv SOURCE... TARGET`: files, libraries or whole sign
/// types to another place, by the rules of the dialog's clipboard, with its questions and messages.
class StorePasteCommand final : public StoreCommand {
 public:
    enum class Way { Copy, Move };

    StorePasteCommand(k4suite::DataHome home, const Terminal& terminal, Way way)
        : StoreCommand(std::move(home), terminal), m_way(way) {}

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;

 private:
    /// What is pasted at once: files of one folder and type, or one folder.
    using Batch = std::vector<StorePlace>;

    void Do(StoreSession& session) const override;
    static std::vector<Batch> Batches(const std::vector<StorePlace>& sources, Answer& answer);
    void Paste(const Batch& batch, const StorePlace& target, StoreSession& session) const;

    const Way m_way;
    std::vector<std::string> m_places;
};

}  // namespace k4ctl

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/SequenceMaker.h"
#include "apps/k4ctl/sequence/SequenceWords.h"

namespace k4ctl {

/// `sequence make OUT.SQ4 --size RxC --color NAME --pixel NAME IMAGE... [--include PATH]...`: makes
/// a sequence file out of images and references to other sequences, in the order of the line.
///
/// A sign type that there isn't is a mistake of the line, with the messages of the store's model. A
/// file that is there is replaced with --force alone. Whatever fails leaves no file, and the one
/// that was there as it was.
class SequenceMakeCommand final : public Command {
 public:
    explicit SequenceMakeCommand(FilePlaces places);

    CommandText Text() const override;
    void AddArguments(CLI::App& app) override;
    bool UsesServices() const override { return false; }
    Answer Run() const override;

 private:
    void AddLooks(CLI::App& app);
    void AddTexts(CLI::App& app);
    bool CheckOrder(SequenceOrder& order, Answer& answer) const;
    std::vector<SequencePart> Parts() const;

    const FilePlaces m_places;
    std::string m_out;
    std::vector<std::string> m_images;
    /// Each with the number of images before it on the line.
    std::vector<std::pair<std::size_t, std::string>> m_includes;
    SignSize m_size;
    std::string m_keywords;
    std::string m_notes;
    SequenceOrder m_order;
    bool m_force = false;
};

}  // namespace k4ctl

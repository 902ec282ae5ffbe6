#pragma once

#include <cstdint>
#include <string>

namespace k4suite {

/// What is wrong with a sequence file, and where.
struct SequenceDefect {
    std::uint64_t offset = 0;  ///< in the file
    std::string words;         ///< a sentence
};

/// The defect as one text: "WORDS (at offset N)".
inline std::string DefectText(const SequenceDefect& defect) {
    return defect.words + " (at offset " + std::to_string(defect.offset) + ")";
}

}  // namespace k4suite

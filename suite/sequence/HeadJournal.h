#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "suite/sequence/FileBytes.h"
#include "suite/sequence/SequenceHead.h"

namespace k4suite {

/// The new head of a file that is being saved, behind the form's end, as it lies in the file.
struct HeadJournal {
    char mark[8];
    std::uint32_t checksum;  ///< the head's CRC-32
    SequenceHead head;
};
static_assert(offsetof(HeadJournal, mark) == 0);
static_assert(offsetof(HeadJournal, checksum) == 8);
static_assert(offsetof(HeadJournal, head) == 12);
static_assert(sizeof(HeadJournal) == 2664);

/// What saving changes.
struct HeadValues {
    std::uint32_t compressionLevel = 0;
    std::uint16_t thumbnailFrame = 0;
    std::uint32_t runTime = 0;
    std::string keywords;  ///< fits its area
    std::string notes;     ///< fits its area
};

/// A journal for a head.
HeadJournal MakeJournal(const SequenceHead& head);

/// The head of a file that counts: that of a whole journal where there is one, else the file's own.
/// @return nothing if the file is too short for a head.
std::optional<SequenceHead> ReadCountingHead(ByteSource& bytes);

/// As ReadCountingHead(), while no other process saves the file.
std::optional<SequenceHead> ReadCountingHeadLocked(FileBytes& file);

/// Changes values of a file's head. Whatever happens, the file then has the old ones or the new
/// ones.
/// @param file open for writing.
/// @return the head that the file has now; nothing, with words in `problem`, where it has the old
///         one still.
std::optional<SequenceHead> SaveHead(FileBytes& file, const HeadValues& values,
                                     std::string& problem);

}  // namespace k4suite

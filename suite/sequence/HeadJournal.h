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

/// What saving changes. A value that isn't given stays as the file has it by then.
struct HeadChanges {
    std::optional<std::uint32_t> compressionLevel;
    std::optional<std::uint16_t> thumbnailFrame;
    std::optional<std::uint32_t> runTime;
    std::optional<std::string> keywords;  ///< fits its area
    std::optional<std::string> notes;     ///< fits its area
};

/// The values that differ, as `wanted` has them.
HeadChanges ChangesOf(const SequenceHead& wanted, const SequenceHead& former);

/// Copies all that saving can change from one head to another.
void CopyChangeable(const SequenceHead& from, SequenceHead& to);

/// A journal for a head.
HeadJournal MakeJournal(const SequenceHead& head);

/// The head of a file that counts: that of a journal that is whole and was made for this very file,
/// else the file's own.
/// @return nothing if the file is too short for a head.
std::optional<SequenceHead> ReadCountingHead(ByteSource& bytes);

/// As ReadCountingHead(), and never one that is half old and half new, though another process may
/// be saving the file. Waits for that one a little.
std::optional<SequenceHead> ReadSharedHead(FileBytes& file);

/// Changes values of a file's head. Whatever happens, the file then has the old ones or the new
/// ones.
/// @return the head that the file has now; nothing, with words in `problem`, where it has the old
///         one still.
std::optional<SequenceHead> SaveHead(ChangeableBytes& file, const HeadChanges& changes,
                                     std::string& problem);

/// As SaveHead(), while no other process saves the file.
/// @param file open for writing. One that lost its name isn't saved: nobody would find it again.
std::optional<SequenceHead> SaveSharedHead(FileBytes& file, const HeadChanges& changes,
                                           std::string& problem);

}  // namespace k4suite

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "suite/sequence/SequenceDefect.h"

namespace k4suite {

static_assert(std::endian::native == std::endian::little,
              "records are read and written as they lie in the file");

/// What stands before a chunk's content.
struct ChunkHead {
    std::uint32_t type = 0;
    std::uint32_t size = 0;

    /// The bytes from the content's start to the next chunk.
    std::uint64_t PaddedSize() const { return std::uint64_t{size} + size % 2; }
};
static_assert(offsetof(ChunkHead, type) == 0);
static_assert(offsetof(ChunkHead, size) == 4);
static_assert(sizeof(ChunkHead) == 8);

/// The bytes that keywords and notes each have in a file, the ending 0 counted.
inline constexpr std::size_t kTextArea = 1024;

/// The first bytes of every sequence file, as they lie in it.
struct SequenceHead {
    ChunkHead form;
    std::uint32_t formType;
    ChunkHead fileChunk;
    tag_K4_RIFF_FILE_DATA file;
    ChunkHead keywordsChunk;
    char keywords[kTextArea];
    ChunkHead notesChunk;
    char notes[kTextArea];
    ChunkHead startChunk;
    tag_K4_SOS_FRM start;

    /// Where the form ends, by what it says of itself.
    std::uint64_t FormEnd() const { return std::uint64_t{form.size} + sizeof(ChunkHead); }
};
static_assert(offsetof(SequenceHead, form) == 0);
static_assert(offsetof(SequenceHead, formType) == 8);
static_assert(offsetof(SequenceHead, fileChunk) == 12);
static_assert(offsetof(SequenceHead, file) == 20);
static_assert(offsetof(SequenceHead, keywordsChunk) == 540);
static_assert(offsetof(SequenceHead, keywords) == 548);
static_assert(offsetof(SequenceHead, notesChunk) == 1572);
static_assert(offsetof(SequenceHead, notes) == 1580);
static_assert(offsetof(SequenceHead, startChunk) == 2604);
static_assert(offsetof(SequenceHead, start) == 2612);
static_assert(sizeof(SequenceHead) == 2652);

/// A head with all types and sizes set, empty texts, and no frames.
SequenceHead MakeSequenceHead();

/// The first defect for which a head isn't taken, if there is one.
std::optional<SequenceDefect> FindHeadDefect(const SequenceHead& head);

/// The text in an area of the head.
std::string TextOfArea(const char (&area)[kTextArea]);
/// Whether a text fits an area: no 0 byte, and 1023 bytes at most.
bool FitsArea(const std::string& text);
/// Fills an area with a text that fits.
void FillArea(const std::string& text, char (&area)[kTextArea]);

}  // namespace k4suite

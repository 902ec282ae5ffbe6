#pragma once

#include <array>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"

namespace k4cmn {

/// One entry of a list "File Compression".
struct CompressionLevel {
    tag_K4_COMPRESS_TYPE level;
    const char* name;
};

/// The entries, in the order of the lists.
inline constexpr std::array<CompressionLevel, 3> kCompressionLevels{{
    {K4_COMPRESS_NONE, "None"},
    {K4_COMPRESS_LOW, "Low"},
    {K4_COMPRESS_MEDIUM, "Medium"},
}};

}  // namespace k4cmn

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "k4cmndlg/k4cmncore_export.h"

/// The facts and texts of one sequence file, as the sheet "Properties" shows and changes them: a
/// plain copy, without a link to the file.
///
/// Texts have limits. One that is longer isn't taken over when a record is filled or assigned, and
/// the former text stays.
///
/// A plain value. Threads: as any value.
class K4CMNCORE_EXPORT CK4CmnSeqFileProperties {
 public:
    static constexpr std::size_t kMaxText = 254;  ///< characters of keywords, and of notes
    static constexpr std::size_t kMaxPath = 259;  ///< characters of the path

    CK4CmnSeqFileProperties() = default;
    /// As an assignment to a new record: texts that are too long are empty.
    CK4CmnSeqFileProperties(const CK4CmnSeqFileProperties& other);
    /// Copies through SetFileProperties().
    CK4CmnSeqFileProperties& operator=(const CK4CmnSeqFileProperties& other);

    /// Stores all values.
    /// @param signRows, cols of the sign. @param previewOnlySequence not 0: the sequence can only
    /// be previewed. @param count of the frames. @param thumbnail the frame that stands for the
    /// sequence, from 1; 0: none.
    /// @param keywordText, notesText taken over with 254 characters at most.
    /// @param path taken over with 259 characters at most.
    void SetFileProperties(std::uint32_t signRows, std::uint32_t cols, tag_K4_SIGN_COLOR signColor,
                           tag_K4_PIXEL_TECH pixelTech, tag_K4_COMPRESS_TYPE level,
                           int previewOnlySequence, int count, int thumbnail,
                           const std::string& keywordText, const std::string& notesText,
                           const std::string& path);

    /// Puts the keywords into the form that files carry: each one followed by "; ". They stay as
    /// they are if that has more than 254 characters. Without any keyword they become empty.
    void FormatKeyWords();

    std::uint32_t thumbnailFrame = 1;
    std::uint32_t frameCount = 0;
    std::uint32_t columns = 0;
    std::uint32_t rows = 0;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    tag_K4_COMPRESS_TYPE compression = K4_COMPRESS_NONE;
    int previewOnly = 0;
    std::string keywords;
    std::string notes;
    std::string filePath;
};

#include "k4cmndlg/filesel/properties/CK4CmnSeqFileProperties.h"

#include "k4cmndlg/filesel/properties/KeywordText.h"
#include "k4cmndlg/filestore/Characters.h"

namespace {

void CopyWithin(std::size_t most, const std::string& text, std::string& field) {
    if (k4cmn::CharacterCount(text) <= most)
        field = text;
}

}  // namespace

CK4CmnSeqFileProperties::CK4CmnSeqFileProperties(const CK4CmnSeqFileProperties& other) {
    *this = other;
}

CK4CmnSeqFileProperties& CK4CmnSeqFileProperties::operator=(const CK4CmnSeqFileProperties& other) {
    SetFileProperties(other.rows, other.columns, other.color, other.pixel, other.compression,
                      other.previewOnly, static_cast<int>(other.frameCount),
                      static_cast<int>(other.thumbnailFrame), other.keywords, other.notes,
                      other.filePath);
    return *this;
}

void CK4CmnSeqFileProperties::SetFileProperties(
    std::uint32_t signRows, std::uint32_t cols, tag_K4_SIGN_COLOR signColor,
    tag_K4_PIXEL_TECH pixelTech, tag_K4_COMPRESS_TYPE level, int previewOnlySequence, int count,
    int thumbnail, const std::string& keywordText, const std::string& notesText,
    const std::string& path) {
    rows = signRows;
    columns = cols;
    color = signColor;
    pixel = pixelTech;
    compression = level;
    previewOnly = previewOnlySequence;
    frameCount = static_cast<std::uint32_t>(count);
    thumbnailFrame = static_cast<std::uint32_t>(thumbnail);
    CopyWithin(kMaxText, keywordText, keywords);
    CopyWithin(kMaxText, notesText, notes);
    CopyWithin(kMaxPath, path, filePath);
}

void CK4CmnSeqFileProperties::FormatKeyWords() {
    CopyWithin(kMaxText, k4cmn::NormalisedKeywords(keywords), keywords);
}

#include "k4cmndlg/filesel/PreviewEdits.h"

#include <algorithm>

#include "k4cmndlg/filesel/properties/CompressionLevels.h"
#include "k4cmndlg/filesel/properties/KeywordText.h"
#include "k4cmndlg/filestore/Characters.h"

namespace k4cmn {

namespace {

constexpr int kLow = 1;
constexpr int kMedium = 2;
constexpr int kMaxFrame = 0xFFFF;

int IndexOfLevel(std::uint32_t level) {
    return level == K4_COMPRESS_NONE ? 0 : level == K4_COMPRESS_LOW ? kLow : kMedium;
}

std::uint32_t LevelOfIndex(int index) {
    const auto entry = static_cast<std::size_t>(std::clamp(index, 0, kMedium));
    return static_cast<std::uint32_t>(kCompressionLevels[entry].level);
}

/// As much of a field's text as is read: a 0 byte ends it.
std::string ReadText(const std::string& text) {
    return FirstCharacters(text.substr(0, text.find('\0')), kMaxSequenceText);
}

}  // namespace

PreviewEdits PreviewEdits::Of(CK4SequenceFile& file) {
    PreviewEdits edits;
    edits.keywords = file.GetPtrToKeywords();
    edits.notes = file.GetPtrToComments();
    const std::uint16_t frame = file.SosData()->thumbnailFrame;
    edits.thumbnailFrame = frame == 0 ? 1 : frame;
    edits.compression = IndexOfLevel(file.RiffHdr()->compressionLevel);
    return edits;
}

int PreviewEdits::SaveTo(CK4SequenceFile& file) {
    const std::string typed = ReadText(keywords);
    const std::string normalised = NormalisedKeywords(typed);
    if (!normalised.empty()) {
        file.SetKeywordsString(normalised);
        keywords = normalised;
    }
    if (!typed.empty()) {
        notes = ReadText(notes);
        file.SetCommentsString(notes);
    }
    thumbnailFrame = std::clamp(thumbnailFrame, 0, std::clamp(file.FrameCount(), 0, kMaxFrame));
    // A sequence that its owner has closed meanwhile has no records, and can't be saved either.
    if (tag_K4_SOS_FRM* start = file.SosData())
        start->thumbnailFrame = static_cast<std::uint16_t>(thumbnailFrame);
    if (tag_K4_RIFF_FILE_DATA* header = file.RiffHdr(); header && compressionChanged)
        header->compressionLevel = LevelOfIndex(compression);
    return file.Save();
}

}  // namespace k4cmn

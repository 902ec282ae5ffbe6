#include "k4cmndlg/filesel/PreviewFacts.h"

#include "k4cmndlg/filesel/properties/SequenceTexts.h"
#include "k4cmndlg/filestore/PathParts.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"

namespace k4cmn {

PreviewFacts PreviewFacts::Of(const tag_K4_SOS_FRM& start, int frameCount,
                              std::uint64_t milliseconds) {
    PreviewFacts facts;
    facts.frameSize = FrameSizeText(start.rows, start.columns);
    facts.pixelTech = PixelLongName(static_cast<tag_K4_PIXEL_TECH>(start.pixel));
    facts.colorTech = ColorShortName(static_cast<tag_K4_SIGN_COLOR>(start.color));
    facts.duration = DurationText(milliseconds);
    facts.frames = FrameCountText(static_cast<std::uint32_t>(frameCount));
    return facts;
}

std::string PreviewFileName(const std::string& path) {
    const PathParts parts = SplitPath(path);
    return parts.name + parts.extension;
}

std::string PreviewTitle(const std::string& path) {
    return Format("Properties for %s", PreviewFileName(path).c_str());
}

}  // namespace k4cmn

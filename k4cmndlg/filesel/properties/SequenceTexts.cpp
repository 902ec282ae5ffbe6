#include "k4cmndlg/filesel/properties/SequenceTexts.h"

#include "k4cmndlg/frame/Format.h"

namespace k4cmn {

std::string FrameSizeText(std::uint32_t rows, std::uint32_t columns) {
    return Format(" %d x %d", static_cast<std::int32_t>(rows), static_cast<std::int32_t>(columns));
}

std::string DurationText(std::uint64_t milliseconds) {
    return Format(" %4.2f Seconds", static_cast<double>(milliseconds) * 0.001);
}

std::string FrameCountText(std::uint32_t frames) {
    return Format(" %d", static_cast<std::int32_t>(frames));
}

}  // namespace k4cmn

#include "apps/preview/PlayerWords.h"

#include "apps/preview/PlayClock.h"
#include "k4cmndlg/filestore/PathParts.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"

namespace preview {

using k4cmn::Format;

std::string TimeText(milliseconds time) {
    const long long hundredths = time.count() / 10;
    const long long minutes = hundredths / 6000;
    const std::string rest = Format("%02lld.%02lld", hundredths / 100 % 60, hundredths % 100);
    if (minutes < 60)
        return Format("%lld:", minutes) + rest;
    return Format("%lld:%02lld:", minutes / 60, minutes % 60) + rest;
}

std::string SecondsText(milliseconds time) {
    std::string text = Format("%lld.%03lld", static_cast<long long>(time.count() / 1000),
                              static_cast<long long>(time.count() % 1000));
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text + " s";
}

std::string PlaceText(std::size_t index, std::size_t count, bool isComplete) {
    if (count == 0)
        return "No frame";
    return Format(isComplete ? "Frame %zu of %zu" : "Frame %zu of %zu and more", index + 1, count);
}

std::string MomentText(const TimeLine& line, std::size_t index) {
    if (line.IsEmpty())
        return {};
    const Moment& moment = line.At(index);
    std::string text = moment.dwell.count() > 0 ? SecondsText(moment.dwell) : "takes no time";
    if (moment.file != 0)
        text += Format(", frame %u of ", moment.frame) + NameOf(line.Files()[moment.file].path);
    return text;
}

std::string FactsText(const FileFacts& facts) {
    std::string_view color = k4cmn::ColorShortName(static_cast<tag_K4_SIGN_COLOR>(facts.color));
    std::string_view pixel = k4cmn::PixelLongName(static_cast<tag_K4_PIXEL_TECH>(facts.pixel));
    std::string text = Format("%u x %u   ", facts.rows, facts.columns);
    text += color.empty() ? Format("color %u", facts.color) : std::string(color);
    text += ", ";
    text += pixel.empty() ? Format("pixel %u", facts.pixel) : std::string(pixel);
    if (facts.isPreviewOnly)
        text += "   Preview Only Sequence";
    return text;
}

std::string SpeedText(std::size_t speed) {
    return Format("%gx", kSpeeds[speed] / 4.0);
}

std::string NameOf(const std::string& path) {
    const k4cmn::PathParts parts = k4cmn::SplitPath(path);
    return parts.name + parts.extension;
}

}  // namespace preview

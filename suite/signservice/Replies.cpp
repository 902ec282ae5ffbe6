#include "suite/signservice/Replies.h"

#include "k4cmndlg/frame/Format.h"

namespace k4suite {

namespace {

using k4cmn::Format;

const char* StateWord(PlayState state) {
    switch (state) {
        case PlayState::Playing:
            return "Playing";
        case PlayState::Stopped:
            return "Stopped";
        case PlayState::Step:
            return "Step";
        case PlayState::Blank:
            return "Blank";
    }
    return "";
}

}  // namespace

std::string StatusText(const Sign& sign, TimePoint now) {
    const Player& player = sign.Playing();
    const PlayPosition& position = player.Position();
    return Format("%s\t%s\t%u\t%d\t%u\t%u", StateWord(position.state),
                  position.order.sequence.c_str(), player.Frame(now) + 1, position.order.mode,
                  position.order.param, player.Frames().FrameCount());
}

std::string ConfigText(const Sign& sign) {
    const k4cmn::SignSettings& settings = sign.Settings();
    const Dimming& dimming = sign.Dimmer();
    return Format("%u\t%u\t%d\t%d\t%d\t%d\t%u\t%d\t%d", settings.rows, settings.columns,
                  settings.color, settings.pixel, settings.orientation, dimming.Mode(),
                  kControllerRevision, dimming.Level(), dimming.Offset());
}

std::string WindowsText(const Sign& sign) {
    std::string text;
    for (const SignWindow& window : sign.Windows().All())
        text += Format("%s\t%d\t%d\t%d\n", window.sign.c_str(), window.open ? 1 : 0, window.row,
                       window.column);
    return text;
}

}  // namespace k4suite

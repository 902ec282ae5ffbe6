#include <algorithm>
#include <limits>
#include <string_view>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/clients/CK4CmnSSFrame.h"
#include "k4cmndlg/frame/Format.h"

namespace {

/// What a file is played as.
enum class PlayTarget { Sequence, Schedule, Script, None };

struct FileKind {
    std::string_view ending;
    PlayTarget target;
};

constexpr FileKind kFileKinds[] = {
    {"SQ4", PlayTarget::Sequence},
    {"AVI", PlayTarget::Sequence},
    {"SD4", PlayTarget::Schedule},
    {"SC4", PlayTarget::Script},
};

PlayTarget TargetOf(std::string_view file) {
    for (const FileKind& kind : kFileKinds) {
        if (file.ends_with(kind.ending))
            return kind.target;
    }
    return PlayTarget::None;
}

/// A place that counts from 1, as one that counts from 0; the least number stays what it is.
std::int32_t ToZeroBased(std::int32_t place) {
    return place == std::numeric_limits<std::int32_t>::min() ? place : place - 1;
}

}  // namespace

// Plain overloads ---------------------------------------------------------------------------------

int CK4CmnSS::PlaySequence(const std::string& sign, const std::string& file,
                           tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return Told<&K4SSRpc::k4ssPlaySequence>("Could not play sequence", sign.c_str(), file.c_str(),
                                            mode, param);
}

int CK4CmnSS::PlaySchedule(const std::string& sign, const std::string& file) {
    return Told<&K4SSRpc::k4ssRunSchedule>("Could not run schedule", sign.c_str(), file.c_str(),
                                           0U);
}

int CK4CmnSS::PlayScript(const std::string& /*sign*/, const std::string& /*file*/) {
    m_strLastError.clear();
    return 1;
}

// A refused file leaves the words of the failure before as they are.
int CK4CmnSS::PlayFile(const std::string& sign, const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                       std::uint32_t param) {
    switch (TargetOf(file)) {
        case PlayTarget::Sequence:
            return PlaySequence(sign, file, mode, param);
        case PlayTarget::Schedule:
            return PlaySchedule(sign, file);
        case PlayTarget::Script:
            return PlayScript(sign, file);
        case PlayTarget::None:
            break;
    }
    return 0;
}

int CK4CmnSS::CheckSequence(const std::string& sign, const std::string& file,
                            tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return Told<&K4SSRpc::k4ssCheckSequence>("Sequence is not valid", sign.c_str(), file.c_str(),
                                             mode, param);
}

int CK4CmnSS::SetDefaultSequence(const std::string& sign, const std::string& file,
                                 tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return Told<&K4SSRpc::k4ssSetDefaultSequence>("Could not set default sequence", sign.c_str(),
                                                  file.c_str(), mode, param);
}

int CK4CmnSS::SelectFrame(const std::string& sign, std::uint32_t frame) {
    return Told<&K4SSRpc::k4ssSelectFrame>("Could not show selected frame", sign.c_str(), frame);
}

int CK4CmnSS::SingleStep(const std::string& sign, std::int32_t step) {
    return Told<&K4SSRpc::k4ssSingleStepFrame>("Could not single step", sign.c_str(), step);
}

int CK4CmnSS::QueueSequence(const std::string& sign, const std::string& file,
                            tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return Told<&K4SSRpc::k4ssQueueSequence>("Could not queue sequence", sign.c_str(), file.c_str(),
                                             mode, param);
}

int CK4CmnSS::StopSequence(const std::string& sign) {
    return Told<&K4SSRpc::k4ssStopSequence>("Could not stop sequence", sign.c_str());
}

int CK4CmnSS::BlankSign(const std::string& sign) {
    return Told<&K4SSRpc::k4ssBlankSign>("Could not blank sign", sign.c_str());
}

int CK4CmnSS::EndSchedule(const std::string& sign) {
    return Told<&K4SSRpc::k4ssEndSchedule>("Could not end schedule", sign.c_str());
}

int CK4CmnSS::EndScript(const std::string& /*sign*/) {
    m_strLastError.clear();
    return 1;
}

int CK4CmnSS::SetDimming(const std::string& sign, tag_K4_SIGN_DIM_MODE mode, std::int32_t value) {
    if (mode == K4_SIGN_DIM_MANUAL)
        value = std::clamp(value, K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX);
    else if (mode == K4_SIGN_DIM_PHOTOCELL)
        value = std::clamp(value, K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX);
    return Told<&K4SSRpc::k4ssSetDimming>("Could not set dimming mode", sign.c_str(), mode, value);
}

/// Opens or closes a window by one stub and moves it by another.
/// @param enableWords makes the words of a failed opening or closing, from the verb.
template <auto Enable, auto Move>
int CK4CmnSS::ChangeWindow(std::string (*enableWords)(const char* verb), const char* moveWords,
                           const std::string& sign, std::uint32_t window, std::int32_t open,
                           std::int32_t row, std::int32_t column) {
    if (!Told<Enable>("", sign.c_str(), window, open))
        return Bordered("", [&] { return Failed(enableWords(open ? "open" : "close").c_str()); });
    if (row == 0 || column == 0)
        return 1;
    return Told<Move>(moveWords, sign.c_str(), window, ToZeroBased(row), ToZeroBased(column));
}

int CK4CmnSS::SetWindowState(const std::string& sign, std::uint32_t window, std::int32_t open,
                             std::int32_t row, std::int32_t column, const std::string& /*name*/) {
    const auto words = [](const char* verb) { return k4cmn::Format("Could not %s window", verb); };
    return ChangeWindow<&K4SSRpc::k4ssWindowEnable, &K4SSRpc::k4ssWindowMove>(
        words, "Could not move window", sign, window, open, row, column);
}

int CK4CmnSS::QueueWindowState(const std::string& sign, std::uint32_t window, std::int32_t open,
                               std::int32_t row, std::int32_t column, const std::string& /*name*/) {
    const auto words = [](const char* verb) {
        return k4cmn::Format("Could not queue %s window", verb);
    };
    return ChangeWindow<&K4SSRpc::k4ssQueueWindowEnable, &K4SSRpc::k4ssQueueWindowMove>(
        words, "Could not queue window move", sign, window, open, row, column);
}

int CK4CmnSS::ClearQueue(const std::string& sign) {
    return Told<&K4SSRpc::k4ssClearQueue>("Could not clear queue", sign.c_str());
}

int CK4CmnSS::NextItem(const std::string& sign) {
    return Told<&K4SSRpc::k4ssNextItem>("Could not execute \"Next\" command", sign.c_str());
}

// Service overloads -------------------------------------------------------------------------------

int CK4CmnSS::PlaySequence(const std::string& service, const std::string& sign,
                           const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                           std::uint32_t param) {
    return OverService(service, [&] { return PlaySequence(sign, file, mode, param); });
}

int CK4CmnSS::PlaySchedule(const std::string& service, const std::string& sign,
                           const std::string& file) {
    return OverService(service, [&] { return PlaySchedule(sign, file); });
}

int CK4CmnSS::PlayScript(const std::string& service, const std::string& sign,
                         const std::string& file) {
    return OverService(service, [&] { return PlayScript(sign, file); });
}

// Connects also for a file that it will refuse; the target takes the lock and connects again.
int CK4CmnSS::PlayFile(const std::string& service, const std::string& sign, const std::string& file,
                       tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return OverService(service, [&] {
        switch (TargetOf(file)) {
            case PlayTarget::Sequence:
                return PlaySequence(service, sign, file, mode, param);
            case PlayTarget::Schedule:
                return PlaySchedule(service, sign, file);
            case PlayTarget::Script:
                return PlayScript(service, sign, file);
            case PlayTarget::None:
                break;
        }
        return 0;
    });
}

int CK4CmnSS::CheckSequence(const std::string& service, const std::string& sign,
                            const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                            std::uint32_t param) {
    return OverService(service, [&] { return CheckSequence(sign, file, mode, param); });
}

int CK4CmnSS::SetDefaultSequence(const std::string& service, const std::string& sign,
                                 const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                                 std::uint32_t param) {
    return OverService(service, [&] { return SetDefaultSequence(sign, file, mode, param); });
}

int CK4CmnSS::SelectFrame(const std::string& service, const std::string& sign,
                          std::uint32_t frame) {
    return OverService(service, [&] { return SelectFrame(sign, frame); });
}

int CK4CmnSS::SingleStep(const std::string& service, const std::string& sign, std::int32_t step) {
    return OverService(service, [&] { return SingleStep(sign, step); });
}

int CK4CmnSS::QueueSequence(const std::string& service, const std::string& sign,
                            const std::string& file, tag_K4_PLAY_SEQ_MODE mode,
                            std::uint32_t param) {
    return OverService(service, [&] { return QueueSequence(sign, file, mode, param); });
}

int CK4CmnSS::StopSequence(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return StopSequence(sign); });
}

int CK4CmnSS::BlankSign(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return BlankSign(sign); });
}

int CK4CmnSS::EndSchedule(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return EndSchedule(sign); });
}

int CK4CmnSS::EndScript(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return EndScript(sign); });
}

int CK4CmnSS::SetDimming(const std::string& service, const std::string& sign,
                         tag_K4_SIGN_DIM_MODE mode, std::int32_t value) {
    return OverService(service, [&] { return SetDimming(sign, mode, value); });
}

int CK4CmnSS::SetWindowState(const std::string& service, const std::string& sign,
                             std::uint32_t window, std::int32_t open, std::int32_t row,
                             std::int32_t column, const std::string& name) {
    return OverService(service,
                       [&] { return SetWindowState(sign, window, open, row, column, name); });
}

int CK4CmnSS::QueueWindowState(const std::string& service, const std::string& sign,
                               std::uint32_t window, std::int32_t open, std::int32_t row,
                               std::int32_t column, const std::string& name) {
    return OverService(service,
                       [&] { return QueueWindowState(sign, window, open, row, column, name); });
}

int CK4CmnSS::ClearQueue(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return ClearQueue(sign); });
}

int CK4CmnSS::NextItem(const std::string& service, const std::string& sign) {
    return OverService(service, [&] { return NextItem(sign); });
}

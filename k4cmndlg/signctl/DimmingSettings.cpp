#include "k4cmndlg/signctl/DimmingSettings.h"

namespace k4cmn {

namespace {

// The ways by the mode that a sign reports. A sign that was set to manual by other means than this
// may report 0 or 1.
struct ReadMode {
    tag_K4_SIGN_DIM_MODE mode;
    int radio;
};
constexpr ReadMode kReadModes[] = {
    {K4_SIGN_DIM_MANUAL_0, DimmingSettings::kManual},
    {K4_SIGN_DIM_MANUAL_1, DimmingSettings::kManual},
    {K4_SIGN_DIM_PHOTOCELL, DimmingSettings::kPhotocell},
    {K4_SIGN_DIM_REMOTE_PHOTOCELL, DimmingSettings::kRemotePhotocell},
    {K4_SIGN_DIM_SCHEDULED, DimmingSettings::kScheduled},
    {K4_SIGN_DIM_MANUAL, DimmingSettings::kManual},
};

// The modes that are sent, by the way chosen, and the slider whose position goes with them.
struct SentMode {
    int radio;
    tag_K4_SIGN_DIM_MODE mode;
    std::int32_t DimmingSettings::*value;
};
constexpr SentMode kSentModes[] = {
    {DimmingSettings::kManual, K4_SIGN_DIM_MANUAL, &DimmingSettings::level},
    {DimmingSettings::kPhotocell, K4_SIGN_DIM_PHOTOCELL, &DimmingSettings::offset},
    {DimmingSettings::kRemotePhotocell, K4_SIGN_DIM_REMOTE_PHOTOCELL, nullptr},
    {DimmingSettings::kScheduled, K4_SIGN_DIM_SCHEDULED, nullptr},
};

}  // namespace

DimmingSettings DimmingSettings::FromSign(tag_K4_SIGN_DIM_MODE mode, std::int32_t level,
                                          std::int32_t offset) {
    DimmingSettings settings{-1, level, offset};
    for (const ReadMode& row : kReadModes) {
        if (row.mode == mode)
            settings.radio = row.radio;
    }
    return settings;
}

std::optional<DimmingSettings::Command> DimmingSettings::ModeAndValue() const {
    // Compared without adding, so that no index overflows.
    if (radio < -1 || radio > 4)
        return std::nullopt;
    for (const SentMode& row : kSentModes) {
        if (row.radio == radio)
            return Command{row.mode, row.value ? this->*row.value : 0};
    }
    return Command{K4_SIGN_DIM_MANUAL_0, 0};
}

}  // namespace k4cmn

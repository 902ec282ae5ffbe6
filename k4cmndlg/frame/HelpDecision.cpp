#include "k4cmndlg/frame/HelpDecision.h"

namespace k4cmn {

namespace {

// The numbers of the help system's commands; the contract that carries them out knows a window and
// so belongs to the other library.
constexpr std::uint32_t kContext = 1;
constexpr std::uint32_t kFinder = 11;

bool IsStatic(std::uint32_t contextId) {
    return (contextId & 0xFFFF) == kStaticControl;
}

bool HasTopic(std::uint32_t contextId) {
    return contextId != 0 && !IsStatic(contextId);
}

HelpDecision OfDialog(std::uint32_t contextId) {
    return {HelpDecision::Kind::Dialog, contextId, false};
}

HelpDecision Popup(std::uint32_t contextId, bool onNext) {
    return {HelpDecision::Kind::Popup, contextId, onNext};
}

}  // namespace

HelpCommand DialogHelp(std::uint32_t dialogId) {
    const bool hasTopic = (dialogId & 0xFFFF) != 0 && !IsStatic(dialogId);
    return hasTopic ? HelpCommand{kContext, dialogId} : HelpCommand{kFinder, 0};
}

HelpDecision DecideHelpInfo(const HelpTarget& target, const FindNextControl& next) {
    if (target.isDialog || target.contextId == 0 || target.contextId == target.dialogId)
        return OfDialog(target.contextId);
    if (!IsStatic(target.contextId))
        return Popup(target.contextId, false);
    const NextControl following = next();
    if (!following.exists || following.isSame)
        return OfDialog(target.contextId);
    if (!HasTopic(following.contextId))
        return OfDialog(following.contextId);
    return Popup(following.contextId, false);
}

HelpDecision DecideContextMenu(bool enabled, const HelpTarget& target,
                               const FindNextControl& next) {
    if (!enabled)
        return {HelpDecision::Kind::Platform, target.contextId, false};
    if (target.isDialog || target.contextId == 0)
        return OfDialog(target.contextId);
    if (!IsStatic(target.contextId))
        return Popup(target.contextId, false);
    const NextControl following = next();
    if (!following.exists || !HasTopic(following.contextId))
        return OfDialog(target.contextId);
    return Popup(following.contextId, true);
}

}  // namespace k4cmn

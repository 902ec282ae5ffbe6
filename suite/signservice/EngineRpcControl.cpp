#include <string>

#include "suite/signservice/EngineRpc.h"
#include "suite/signservice/Sign.h"

namespace k4suite {

namespace {

std::string TextOf(const char* text) {
    return text ? text : std::string();
}

PlayOrder OrderOf(const char* file, tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return {TextOf(file), mode, param};
}

}  // namespace

std::int32_t EngineRpc::k4ssPlaySequence(const char* sign, const char* file,
                                         tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return OnSign("k4ssPlaySequence", sign, [&](Machine&, Sign& at, TimePoint now) {
        return at.PlaySequence(OrderOf(file, mode, param), now);
    });
}

std::int32_t EngineRpc::k4ssRunSchedule(const char* sign, const char* file, std::uint32_t) {
    return OnSign("k4ssRunSchedule", sign, [&](Machine&, Sign& at, TimePoint now) {
        return at.RunSchedule(TextOf(file), now);
    });
}

std::int32_t EngineRpc::k4ssCheckSequence(const char* sign, const char* file,
                                          tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return OnSign("k4ssCheckSequence", sign, [&](Machine&, Sign& at, TimePoint) {
        return at.CanPlay(OrderOf(file, mode, param));
    });
}

std::int32_t EngineRpc::k4ssSetDefaultSequence(const char* sign, const char* file,
                                               tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return OnSign("k4ssSetDefaultSequence", sign, [&](Machine&, Sign& at, TimePoint now) {
        return at.SetDefaultSequence(OrderOf(file, mode, param), now);
    });
}

std::int32_t EngineRpc::k4ssSelectFrame(const char* sign, std::uint32_t frame) {
    return OnSign("k4ssSelectFrame", sign,
                  [&](Machine&, Sign& at, TimePoint) { return at.SelectFrame(frame); });
}

std::int32_t EngineRpc::k4ssSingleStepFrame(const char* sign, std::int32_t step) {
    return OnSign("k4ssSingleStepFrame", sign, [&](Machine&, Sign& at, TimePoint now) {
        at.SingleStep(step, now);
        return true;
    });
}

std::int32_t EngineRpc::k4ssQueueSequence(const char* sign, const char* file,
                                          tag_K4_PLAY_SEQ_MODE mode, std::uint32_t param) {
    return OnSign("k4ssQueueSequence", sign, [&](Machine&, Sign& at, TimePoint) {
        return at.QueueSequence(OrderOf(file, mode, param));
    });
}

std::int32_t EngineRpc::k4ssStopSequence(const char* sign) {
    return OnSign("k4ssStopSequence", sign, [&](Machine&, Sign& at, TimePoint now) {
        at.StopSequence(now);
        return true;
    });
}

std::int32_t EngineRpc::k4ssBlankSign(const char* sign) {
    return OnSign("k4ssBlankSign", sign, [&](Machine&, Sign& at, TimePoint now) {
        at.BlankSign(now);
        return true;
    });
}

std::int32_t EngineRpc::k4ssEndSchedule(const char* sign) {
    return OnSign("k4ssEndSchedule", sign, [&](Machine&, Sign& at, TimePoint) {
        at.EndSchedule();
        return true;
    });
}

std::int32_t EngineRpc::k4ssSetDimming(const char* sign, tag_K4_SIGN_DIM_MODE mode,
                                       std::int32_t value) {
    return OnSign("k4ssSetDimming", sign,
                  [&](Machine&, Sign& at, TimePoint) { return at.SetDimming(mode, value); });
}

std::int32_t EngineRpc::k4ssWindowEnable(const char* sign, std::uint32_t window,
                                         std::int32_t open) {
    return OnSign("k4ssWindowEnable", sign, [&](Machine&, Sign& at, TimePoint) {
        return at.EnableWindow(window, open != 0);
    });
}

std::int32_t EngineRpc::k4ssWindowMove(const char* sign, std::uint32_t window, std::int32_t row,
                                       std::int32_t column) {
    return OnSign("k4ssWindowMove", sign, [&](Machine&, Sign& at, TimePoint) {
        return at.MoveWindow(window, row, column);
    });
}

std::int32_t EngineRpc::k4ssQueueWindowEnable(const char* sign, std::uint32_t window,
                                              std::int32_t open) {
    return OnSign("k4ssQueueWindowEnable", sign,
                  [&](Machine&, Sign& at, TimePoint) { return at.QueueEnable(window, open != 0); });
}

std::int32_t EngineRpc::k4ssQueueWindowMove(const char* sign, std::uint32_t window,
                                            std::int32_t row, std::int32_t column) {
    return OnSign("k4ssQueueWindowMove", sign,
                  [&](Machine&, Sign& at, TimePoint) { return at.QueueMove(window, row, column); });
}

std::int32_t EngineRpc::k4ssClearQueue(const char* sign) {
    return OnSign("k4ssClearQueue", sign, [&](Machine&, Sign& at, TimePoint) {
        at.ClearQueue();
        return true;
    });
}

std::int32_t EngineRpc::k4ssNextItem(const char* sign) {
    return OnSign("k4ssNextItem", sign,
                  [&](Machine&, Sign& at, TimePoint now) { return at.NextItem(now); });
}

}  // namespace k4suite

#include "k4cmndlg/clients/contracts/K4SSRpc.h"

K4SSRpc::~K4SSRpc() = default;

namespace {

// No service: nothing connects, and every other stub fails.
constexpr std::int32_t kNo = 0;
constexpr std::int32_t kFailed = 1;

class AbsentK4SSRpc final : public K4SSRpc {
    using Sign = const char*;
    using File = const char*;
    using Word = std::uint32_t;
    using Mode = tag_K4_PLAY_SEQ_MODE;
    using Result = std::int32_t;

 public:
    Result k4ssConnectSignAsUser(const char*, const char*, const char*, const char*) override {
        return kFailed;
    }
    Result k4ssDisconnectSign() override { return kFailed; }
    Result k4ssIsServer(const char*) override { return kNo; }
    Result k4ssPing() override { return kFailed; }
    Result k4ssListSigns(char*, Word, Word*) override { return kFailed; }

    Result k4ssGetChangeFlag(Sign, Word*) override { return kFailed; }
    Result k4ssGetSchedChangeFlag(Sign, Word*) override { return kFailed; }
    Result k4ssGetPhotocell(Sign, Word*) override { return kFailed; }
    Result k4ssGetTemperatureFreq(Word, Word*) override { return kFailed; }
    Result k4ssGetStatus(Sign, char*, Word, Word*) override { return kFailed; }
    Result k4ssGetSchedSeqStatus(Sign, char*, Word*, char*, Word*, Word*) override {
        return kFailed;
    }
    Result k4ssGetFrameStatus(Sign, char*, Word*, Word*, Mode*, Word*, Word*, Word*) override {
        return kFailed;
    }
    Result k4ssGetEffectStatus(Sign, Word*, std::uint8_t*, Word*) override { return kFailed; }
    Result k4ssGetSchedule(Sign, Word*, std::uint8_t*, Word*) override { return kFailed; }
    Result k4ssGetConfig(Sign, char*, Word, Word*) override { return kFailed; }
    Result k4ssGetDIB(Sign, char*, Word, Word*) override { return kFailed; }
    Result k4ssGetBulb(Sign, std::uint8_t*, Word, Word*, Word*) override { return kFailed; }
    Result k4ssListWindows(Sign, char*, Word, Word*) override { return kFailed; }
    Result k4ssGetQueue(Sign, char*, Word, Word*) override { return kFailed; }
    Result k4ssGetDefaultSequence(Sign, char*, Word*, Mode*, Word*) override { return kFailed; }
    Result k4ssGetDefaultSeqFlag(Sign, Word*) override { return kFailed; }

    Result k4ssPlaySequence(Sign, File, Mode, Word) override { return kFailed; }
    Result k4ssRunSchedule(Sign, File, Word) override { return kFailed; }
    Result k4ssCheckSequence(Sign, File, Mode, Word) override { return kFailed; }
    Result k4ssSetDefaultSequence(Sign, File, Mode, Word) override { return kFailed; }
    Result k4ssSelectFrame(Sign, Word) override { return kFailed; }
    Result k4ssSingleStepFrame(Sign, std::int32_t) override { return kFailed; }
    Result k4ssQueueSequence(Sign, File, Mode, Word) override { return kFailed; }
    Result k4ssStopSequence(Sign) override { return kFailed; }
    Result k4ssBlankSign(Sign) override { return kFailed; }
    Result k4ssEndSchedule(Sign) override { return kFailed; }
    Result k4ssSetDimming(Sign, tag_K4_SIGN_DIM_MODE, std::int32_t) override { return kFailed; }
    Result k4ssWindowEnable(Sign, Word, std::int32_t) override { return kFailed; }
    Result k4ssWindowMove(Sign, Word, std::int32_t, std::int32_t) override { return kFailed; }
    Result k4ssQueueWindowEnable(Sign, Word, std::int32_t) override { return kFailed; }
    Result k4ssQueueWindowMove(Sign, Word, std::int32_t, std::int32_t) override { return kFailed; }
    Result k4ssClearQueue(Sign) override { return kFailed; }
    Result k4ssNextItem(Sign) override { return kFailed; }
};

}  // namespace

K4_DEFINE_PROVIDED(K4SSRpc, AbsentK4SSRpc)

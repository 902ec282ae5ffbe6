#pragma once

#include <algorithm>
#include <string_view>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"

namespace k4test {

/// A sign service that does next to nothing and takes no memory: it is connected to every service,
/// each stub succeeds, words that come out are 7, and text replies are `text`. For measuring what a
/// client adds.
class TrivialSSRpc : public K4SSRpc {
 protected:
    using Word = std::uint32_t;
    using Mode = tag_K4_PLAY_SEQ_MODE;
    using Result = std::int32_t;
    using Sign = const char*;
    using File = const char*;

 public:
    std::string_view text;

    Result k4ssConnectSignAsUser(const char*, const char*, const char*, const char*) override {
        return 0;
    }
    Result k4ssDisconnectSign() override { return 0; }
    Result k4ssIsServer(const char*) override { return 1; }
    Result k4ssPing() override { return 0; }
    Result k4ssListSigns(char* buffer, Word capacity, Word* length) override {
        return Text(buffer, capacity, length);
    }

    Result k4ssGetChangeFlag(Sign, Word* flag) override { return Number(flag); }
    Result k4ssGetSchedChangeFlag(Sign, Word* flag) override { return Number(flag); }
    Result k4ssGetPhotocell(Sign, Word* status) override { return Number(status); }
    Result k4ssGetTemperatureFreq(Word, Word* frequency) override { return Number(frequency); }
    Result k4ssGetStatus(Sign, char* buffer, Word capacity, Word* length) override {
        return Text(buffer, capacity, length);
    }
    Result k4ssGetSchedSeqStatus(Sign, char*, Word*, char*, Word*, Word* word) override {
        return Number(word);
    }
    Result k4ssGetFrameStatus(Sign, char*, Word* word, Word*, Mode*, Word*, Word*, Word*) override {
        return Number(word);
    }
    Result k4ssGetEffectStatus(Sign, Word* word, std::uint8_t*, Word*) override {
        return Number(word);
    }
    Result k4ssGetSchedule(Sign, Word* word, std::uint8_t*, Word*) override { return Number(word); }
    Result k4ssGetConfig(Sign, char* buffer, Word capacity, Word* length) override {
        return Text(buffer, capacity, length);
    }
    Result k4ssGetDIB(Sign, char*, Word, Word* length) override { return Number(length); }
    Result k4ssGetBulb(Sign, std::uint8_t*, Word, Word* word, Word*) override {
        return Number(word);
    }
    Result k4ssListWindows(Sign, char* buffer, Word capacity, Word* length) override {
        return Text(buffer, capacity, length);
    }
    Result k4ssGetQueue(Sign, char* buffer, Word capacity, Word* length) override {
        return Text(buffer, capacity, length);
    }
    Result k4ssGetDefaultSequence(Sign, char*, Word*, Mode*, Word* param) override {
        return Number(param);
    }
    Result k4ssGetDefaultSeqFlag(Sign, Word* flag) override { return Number(flag); }

    Result k4ssPlaySequence(Sign, File, Mode, Word) override { return 0; }
    Result k4ssRunSchedule(Sign, File, Word) override { return 0; }
    Result k4ssCheckSequence(Sign, File, Mode, Word) override { return 0; }
    Result k4ssSetDefaultSequence(Sign, File, Mode, Word) override { return 0; }
    Result k4ssSelectFrame(Sign, Word) override { return 0; }
    Result k4ssSingleStepFrame(Sign, std::int32_t) override { return 0; }
    Result k4ssQueueSequence(Sign, File, Mode, Word) override { return 0; }
    Result k4ssStopSequence(Sign) override { return 0; }
    Result k4ssBlankSign(Sign) override { return 0; }
    Result k4ssEndSchedule(Sign) override { return 0; }
    Result k4ssSetDimming(Sign, tag_K4_SIGN_DIM_MODE, std::int32_t) override { return 0; }
    Result k4ssWindowEnable(Sign, Word, std::int32_t) override { return 0; }
    Result k4ssWindowMove(Sign, Word, std::int32_t, std::int32_t) override { return 0; }
    Result k4ssQueueWindowEnable(Sign, Word, std::int32_t) override { return 0; }
    Result k4ssQueueWindowMove(Sign, Word, std::int32_t, std::int32_t) override { return 0; }
    Result k4ssClearQueue(Sign) override { return 0; }
    Result k4ssNextItem(Sign) override { return 0; }

 private:
    static Result Number(Word* out) {
        if (out)
            *out = 7;
        return 0;
    }
    Result Text(char* buffer, Word capacity, Word* length) const {
        const std::size_t count = text.copy(buffer, capacity - 1);
        buffer[count] = '\0';
        *length = static_cast<Word>(count);
        return 0;
    }
};

}  // namespace k4test

#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"

namespace k4test {

/// A sign service of scripted answers that records every call, as "k4ssSetDimming(Main, 5, 200)":
/// the texts and numbers that go in, in order; a null text reads "null".
///
/// Without a script every stub succeeds and writes nothing, except that k4ssIsServer answers by the
/// connection that k4ssConnectSignAsUser and k4ssDisconnectSign leave behind.
class RecordingSSRpc final : public K4SSRpc {
    using Word = std::uint32_t;
    using Mode = tag_K4_PLAY_SEQ_MODE;
    using Result = std::int32_t;

 public:
    /// What a stub writes through its out pointers.
    struct Reply {
        std::string text;                  ///< into the first buffer, raw, up to its capacity
        std::string text2;                 ///< into the second buffer
        std::vector<std::uint32_t> words;  ///< through the pointers to words, in order
        std::int32_t mode = 0;             ///< through the pointer to a mode
        bool terminate = true;             ///< ends texts with a zero where there is room
    };

    std::vector<std::string> calls;
    std::map<std::string, std::int32_t> results;  ///< by stub; without an entry 0
    std::map<std::string, Reply> replies;         ///< by stub; without an entry nothing is written
    std::string connectedTo;                      ///< empty: not connected
    std::function<void(const std::string& stub)> onCall;  ///< runs inside each call

    /// The names of the stubs called, in order.
    std::vector<std::string> Names() const;
    /// How many times a stub was called.
    std::size_t Count(const std::string& stub) const;

    Result k4ssConnectSignAsUser(const char*, const char*, const char*, const char*) override;
    Result k4ssDisconnectSign() override;
    Result k4ssIsServer(const char*) override;
    Result k4ssPing() override;
    Result k4ssListSigns(char*, Word, Word*) override;

    Result k4ssGetChangeFlag(const char*, Word*) override;
    Result k4ssGetSchedChangeFlag(const char*, Word*) override;
    Result k4ssGetPhotocell(const char*, Word*) override;
    Result k4ssGetTemperatureFreq(Word, Word*) override;
    Result k4ssGetStatus(const char*, char*, Word, Word*) override;
    Result k4ssGetSchedSeqStatus(const char*, char*, Word*, char*, Word*, Word*) override;
    Result k4ssGetFrameStatus(const char*, char*, Word*, Word*, Mode*, Word*, Word*,
                              Word*) override;
    Result k4ssGetEffectStatus(const char*, Word*, std::uint8_t*, Word*) override;
    Result k4ssGetSchedule(const char*, Word*, std::uint8_t*, Word*) override;
    Result k4ssGetConfig(const char*, char*, Word, Word*) override;
    Result k4ssGetDIB(const char*, char*, Word, Word*) override;
    Result k4ssGetBulb(const char*, std::uint8_t*, Word, Word*, Word*) override;
    Result k4ssListWindows(const char*, char*, Word, Word*) override;
    Result k4ssGetQueue(const char*, char*, Word, Word*) override;
    Result k4ssGetDefaultSequence(const char*, char*, Word*, Mode*, Word*) override;
    Result k4ssGetDefaultSeqFlag(const char*, Word*) override;

    Result k4ssPlaySequence(const char*, const char*, Mode, Word) override;
    Result k4ssRunSchedule(const char*, const char*, Word) override;
    Result k4ssCheckSequence(const char*, const char*, Mode, Word) override;
    Result k4ssSetDefaultSequence(const char*, const char*, Mode, Word) override;
    Result k4ssSelectFrame(const char*, Word) override;
    Result k4ssSingleStepFrame(const char*, std::int32_t) override;
    Result k4ssQueueSequence(const char*, const char*, Mode, Word) override;
    Result k4ssStopSequence(const char*) override;
    Result k4ssBlankSign(const char*) override;
    Result k4ssEndSchedule(const char*) override;
    Result k4ssSetDimming(const char*, tag_K4_SIGN_DIM_MODE, std::int32_t) override;
    Result k4ssWindowEnable(const char*, Word, std::int32_t) override;
    Result k4ssWindowMove(const char*, Word, std::int32_t, std::int32_t) override;
    Result k4ssQueueWindowEnable(const char*, Word, std::int32_t) override;
    Result k4ssQueueWindowMove(const char*, Word, std::int32_t, std::int32_t) override;
    Result k4ssClearQueue(const char*) override;
    Result k4ssNextItem(const char*) override;

    /// Bytes that the last stub with a buffer was given room for.
    std::uint32_t lastCapacity = 0;
    /// What the last word of a length held when its stub was called; kNoWord where there was none.
    std::uint32_t lastLengthBefore = kNoWord;
    static constexpr std::uint32_t kNoWord = 0xFFFFFFFF;
    /// How many of its out pointers the last stub that has any got as null.
    std::size_t lastNullOutputs = 0;

 private:
    template <class... In>
    Result Called(const char* stub, const In&... in);
    const Reply* ReplyOf(const char* stub) const;
    template <class... Out>
    void CountNulls(const Out*... out);
    void FillText(const char* stub, char* buffer, Word capacity, Word* length);
    void FillWords(const char* stub, std::initializer_list<Word*> targets);
};

}  // namespace k4test

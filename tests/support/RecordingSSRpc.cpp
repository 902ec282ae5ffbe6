#include "tests/support/RecordingSSRpc.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace k4test {

namespace {

template <class Value>
std::string Shown(const Value& value) {
    if constexpr (std::is_convertible_v<Value, const char*>)
        return value ? std::string(value) : std::string("null");
    else
        return std::to_string(static_cast<std::int64_t>(value));
}

void CopyText(const std::string& text, bool terminate, char* buffer, std::uint32_t capacity) {
    if (!buffer)
        return;
    const std::size_t count = std::min<std::size_t>(text.size(), capacity);
    std::memcpy(buffer, text.data(), count);
    if (terminate && count < capacity)
        buffer[count] = '\0';
}

}  // namespace

std::vector<std::string> RecordingSSRpc::Names() const {
    std::vector<std::string> names;
    for (const std::string& call : calls)
        names.push_back(call.substr(0, call.find('(')));
    return names;
}

std::size_t RecordingSSRpc::Count(const std::string& stub) const {
    const std::vector<std::string> names = Names();
    return static_cast<std::size_t>(std::count(names.begin(), names.end(), stub));
}

template <class... In>
RecordingSSRpc::Result RecordingSSRpc::Called(const char* stub, const In&... in) {
    std::string call = std::string(stub) + "(";
    [[maybe_unused]] const char* separator = "";
    ((call += separator + Shown(in), separator = ", "), ...);
    calls.push_back(call + ")");
    if (onCall)
        onCall(stub);
    const auto found = results.find(stub);
    return found == results.end() ? 0 : found->second;
}

const RecordingSSRpc::Reply* RecordingSSRpc::ReplyOf(const char* stub) const {
    const auto found = replies.find(stub);
    return found == replies.end() ? nullptr : &found->second;
}

template <class... Out>
void RecordingSSRpc::CountNulls(const Out*... out) {
    lastNullOutputs = (std::size_t{0} + ... + (out ? 0 : 1));
}

void RecordingSSRpc::FillText(const char* stub, char* buffer, Word capacity, Word* length) {
    lastCapacity = capacity;
    lastLengthBefore = length ? *length : kNoWord;
    if (const Reply* reply = ReplyOf(stub)) {
        CopyText(reply->text, reply->terminate, buffer, capacity);
        if (length)
            *length = static_cast<Word>(reply->text.size());
    }
}

void RecordingSSRpc::FillWords(const char* stub, std::initializer_list<Word*> targets) {
    const Reply* reply = ReplyOf(stub);
    if (!reply)
        return;
    auto word = reply->words.begin();
    for (Word* target : targets) {
        if (word == reply->words.end())
            return;
        if (target)
            *target = *word;
        ++word;
    }
}

using R = std::int32_t;
using W = std::uint32_t;
using M = tag_K4_PLAY_SEQ_MODE;
using S = const char*;

R RecordingSSRpc::k4ssConnectSignAsUser(S service, S a, S b, S c) {
    const R result = Called("k4ssConnectSignAsUser", service, a, b, c);
    if (result == 0)
        connectedTo = service;
    return result;
}
R RecordingSSRpc::k4ssDisconnectSign() {
    connectedTo.clear();
    return Called("k4ssDisconnectSign");
}
R RecordingSSRpc::k4ssIsServer(S service) {
    Called("k4ssIsServer", service);
    const auto found = results.find("k4ssIsServer");
    if (found != results.end())
        return found->second;
    return !connectedTo.empty() && connectedTo == service;
}
R RecordingSSRpc::k4ssPing() {
    return Called("k4ssPing");
}
R RecordingSSRpc::k4ssListSigns(char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    FillText("k4ssListSigns", buffer, capacity, length);
    return Called("k4ssListSigns");
}

R RecordingSSRpc::k4ssGetChangeFlag(S sign, W* flag) {
    CountNulls(flag);
    FillWords("k4ssGetChangeFlag", {flag});
    return Called("k4ssGetChangeFlag", sign);
}
R RecordingSSRpc::k4ssGetSchedChangeFlag(S sign, W* flag) {
    CountNulls(flag);
    FillWords("k4ssGetSchedChangeFlag", {flag});
    return Called("k4ssGetSchedChangeFlag", sign);
}
R RecordingSSRpc::k4ssGetPhotocell(S sign, W* status) {
    CountNulls(status);
    FillWords("k4ssGetPhotocell", {status});
    return Called("k4ssGetPhotocell", sign);
}
R RecordingSSRpc::k4ssGetTemperatureFreq(W selector, W* frequency) {
    CountNulls(frequency);
    FillWords("k4ssGetTemperatureFreq", {frequency});
    return Called("k4ssGetTemperatureFreq", selector);
}
R RecordingSSRpc::k4ssGetStatus(S sign, char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    FillText("k4ssGetStatus", buffer, capacity, length);
    return Called("k4ssGetStatus", sign);
}
R RecordingSSRpc::k4ssGetSchedSeqStatus(S sign, char* schedule, W* scheduleCapacity, char* sequence,
                                        W* sequenceCapacity, W* word) {
    CountNulls(schedule, scheduleCapacity, sequence, sequenceCapacity, word);
    const char* stub = "k4ssGetSchedSeqStatus";
    lastCapacity = *scheduleCapacity;
    if (const Reply* reply = ReplyOf(stub)) {
        CopyText(reply->text, reply->terminate, schedule, *scheduleCapacity);
        CopyText(reply->text2, reply->terminate, sequence, *sequenceCapacity);
    }
    lastLengthBefore = word ? *word : kNoWord;
    FillWords(stub, {word});
    return Called(stub, sign, *scheduleCapacity, *sequenceCapacity);
}
R RecordingSSRpc::k4ssGetFrameStatus(S sign, char* text, W* word1, W* word2, M* mode, W* word3,
                                     W* word4, W* word5) {
    CountNulls(text, word1, word2, mode, word3, word4, word5);
    const char* stub = "k4ssGetFrameStatus";
    FillText(stub, text, 1024, nullptr);
    FillWords(stub, {word1, word2, word3, word4, word5});
    if (const Reply* reply = ReplyOf(stub); reply && mode)
        *mode = static_cast<M>(reply->mode);
    return Called(stub, sign);
}
R RecordingSSRpc::k4ssGetEffectStatus(S sign, W* word, std::uint8_t* bytes, W* length) {
    CountNulls(word, bytes, length);
    const char* stub = "k4ssGetEffectStatus";
    if (const Reply* reply = ReplyOf(stub); reply && bytes)
        std::memcpy(bytes, reply->text.data(), reply->text.size());
    FillWords(stub, {word, length});
    return Called(stub, sign);
}
R RecordingSSRpc::k4ssGetSchedule(S sign, W* word, std::uint8_t* bytes, W* length) {
    CountNulls(word, bytes, length);
    const char* stub = "k4ssGetSchedule";
    if (const Reply* reply = ReplyOf(stub); reply && bytes)
        std::memcpy(bytes, reply->text.data(), reply->text.size());
    FillWords(stub, {word, length});
    return Called(stub, sign);
}
R RecordingSSRpc::k4ssGetConfig(S sign, char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    // A script may answer for one sign alone, under "k4ssGetConfig:NAME".
    const std::string own = std::string("k4ssGetConfig:") + sign;
    const char* stub = replies.count(own) ? own.c_str() : "k4ssGetConfig";
    FillText(stub, buffer, capacity, length);
    const R result = Called("k4ssGetConfig", sign);
    return results.count(own) ? results[own] : result;
}
R RecordingSSRpc::k4ssGetDIB(S sign, char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    FillText("k4ssGetDIB", buffer, capacity, length);
    return Called("k4ssGetDIB", sign, capacity);
}
R RecordingSSRpc::k4ssGetBulb(S sign, std::uint8_t* buffer, W capacity, W* word1, W* word2) {
    CountNulls(buffer, word1, word2);
    FillText("k4ssGetBulb", reinterpret_cast<char*>(buffer), capacity, nullptr);
    FillWords("k4ssGetBulb", {word1, word2});
    return Called("k4ssGetBulb", sign, capacity);
}
R RecordingSSRpc::k4ssListWindows(S sign, char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    FillText("k4ssListWindows", buffer, capacity, length);
    return Called("k4ssListWindows", sign);
}
R RecordingSSRpc::k4ssGetQueue(S sign, char* buffer, W capacity, W* length) {
    CountNulls(buffer, length);
    FillText("k4ssGetQueue", buffer, capacity, length);
    return Called("k4ssGetQueue", sign);
}
R RecordingSSRpc::k4ssGetDefaultSequence(S sign, char* buffer, W* capacity, M* mode, W* param) {
    CountNulls(buffer, capacity, mode, param);
    const char* stub = "k4ssGetDefaultSequence";
    lastCapacity = *capacity;
    if (const Reply* reply = ReplyOf(stub)) {
        CopyText(reply->text, reply->terminate, buffer, *capacity);
        if (mode)
            *mode = static_cast<M>(reply->mode);
    }
    FillWords(stub, {param});
    return Called(stub, sign, *capacity);
}
R RecordingSSRpc::k4ssGetDefaultSeqFlag(S sign, W* flag) {
    CountNulls(flag);
    FillWords("k4ssGetDefaultSeqFlag", {flag});
    return Called("k4ssGetDefaultSeqFlag", sign);
}

R RecordingSSRpc::k4ssPlaySequence(S sign, S file, M mode, W param) {
    return Called("k4ssPlaySequence", sign, file, mode, param);
}
R RecordingSSRpc::k4ssRunSchedule(S sign, S file, W reserved) {
    return Called("k4ssRunSchedule", sign, file, reserved);
}
R RecordingSSRpc::k4ssCheckSequence(S sign, S file, M mode, W param) {
    return Called("k4ssCheckSequence", sign, file, mode, param);
}
R RecordingSSRpc::k4ssSetDefaultSequence(S sign, S file, M mode, W param) {
    return Called("k4ssSetDefaultSequence", sign, file, mode, param);
}
R RecordingSSRpc::k4ssSelectFrame(S sign, W frame) {
    return Called("k4ssSelectFrame", sign, frame);
}
R RecordingSSRpc::k4ssSingleStepFrame(S sign, R step) {
    return Called("k4ssSingleStepFrame", sign, step);
}
R RecordingSSRpc::k4ssQueueSequence(S sign, S file, M mode, W param) {
    return Called("k4ssQueueSequence", sign, file, mode, param);
}
R RecordingSSRpc::k4ssStopSequence(S sign) {
    return Called("k4ssStopSequence", sign);
}
R RecordingSSRpc::k4ssBlankSign(S sign) {
    return Called("k4ssBlankSign", sign);
}
R RecordingSSRpc::k4ssEndSchedule(S sign) {
    return Called("k4ssEndSchedule", sign);
}
R RecordingSSRpc::k4ssSetDimming(S sign, tag_K4_SIGN_DIM_MODE mode, R value) {
    return Called("k4ssSetDimming", sign, mode, value);
}
R RecordingSSRpc::k4ssWindowEnable(S sign, W window, R open) {
    return Called("k4ssWindowEnable", sign, window, open);
}
R RecordingSSRpc::k4ssWindowMove(S sign, W window, R row, R column) {
    return Called("k4ssWindowMove", sign, window, row, column);
}
R RecordingSSRpc::k4ssQueueWindowEnable(S sign, W window, R open) {
    return Called("k4ssQueueWindowEnable", sign, window, open);
}
R RecordingSSRpc::k4ssQueueWindowMove(S sign, W window, R row, R column) {
    return Called("k4ssQueueWindowMove", sign, window, row, column);
}
R RecordingSSRpc::k4ssClearQueue(S sign) {
    return Called("k4ssClearQueue", sign);
}
R RecordingSSRpc::k4ssNextItem(S sign) {
    return Called("k4ssNextItem", sign);
}

}  // namespace k4test

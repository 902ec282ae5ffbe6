#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/clients/CK4CmnSSFrame.h"
#include "k4cmndlg/clients/QueueReply.h"
#include "k4cmndlg/clients/ReplyBuffer.h"
#include "k4cmndlg/clients/ReplyFields.h"
#include "k4cmndlg/clients/WindowReply.h"

using k4cmn::CallersText;
using k4cmn::ReplyFields;

namespace {

constexpr std::uint32_t kReplyCapacity = 1024;
constexpr std::uint32_t kFrameTextCapacity = 1024;
constexpr std::uint32_t kDefaultSequenceCapacity = 270;

}  // namespace

// Plain overloads that hand the caller's pointers through -----------------------------------------

int CK4CmnSS::GetChangeFlag(const std::string& sign, std::uint32_t* flag) {
    return Told<&K4SSRpc::k4ssGetChangeFlag>("Could not get change flag from service.",
                                             sign.c_str(), flag);
}

int CK4CmnSS::GetSchedChangeFlag(const std::string& sign, std::uint32_t* flag) {
    return Told<&K4SSRpc::k4ssGetSchedChangeFlag>(
        "Could not get schedule change flag from service.", sign.c_str(), flag);
}

int CK4CmnSS::GetPhotocellStatus(const std::string& sign, std::uint32_t* status) {
    return Told<&K4SSRpc::k4ssGetPhotocell>("Could not get photocell status from service.",
                                            sign.c_str(), status);
}

int CK4CmnSS::GetTemperatureFreq(std::uint32_t selector, std::uint32_t* frequency) {
    return Told<&K4SSRpc::k4ssGetTemperatureFreq>(
        "Could not get temerature frequency from service.", selector, frequency);
}

int CK4CmnSS::GetEffectStatus(const std::string& sign, std::uint32_t* word, std::uint8_t* bytes,
                              std::uint32_t* length) {
    return Told<&K4SSRpc::k4ssGetEffectStatus>("Could not get effect status from service.",
                                               sign.c_str(), word, bytes, length);
}

int CK4CmnSS::GetSchedule(const std::string& sign, std::uint32_t* word, std::uint8_t* bytes,
                          std::uint32_t* length) {
    return Told<&K4SSRpc::k4ssGetSchedule>("Could not get schedule from service.", sign.c_str(),
                                           word, bytes, length);
}

int CK4CmnSS::GetDIB(const std::string& sign, char* buffer, std::uint32_t capacity,
                     std::uint32_t* length) {
    return Told<&K4SSRpc::k4ssGetDIB>("Could not get DIB from sign service", sign.c_str(), buffer,
                                      capacity, length);
}

int CK4CmnSS::GetBulb(const std::string& sign, std::uint8_t* buffer, std::uint32_t capacity,
                      std::uint32_t* word1, std::uint32_t* word2) {
    return Told<&K4SSRpc::k4ssGetBulb>("Could not get bulb data from sign service", sign.c_str(),
                                       buffer, capacity, word1, word2);
}

int CK4CmnSS::GetDefaultSeqFlag(const std::string& sign, std::uint32_t* flag) {
    return Told<&K4SSRpc::k4ssGetDefaultSeqFlag>(
        "Could not get default sequence flag from sign service", sign.c_str(), flag);
}

// Plain overloads whose texts are the caller's ----------------------------------------------------

int CK4CmnSS::GetSignSchedSeq(const std::string& sign, std::string* schedule, std::string* sequence,
                              std::uint32_t* word) {
    constexpr const char* words = "Could not get sequence/schedule status from service";
    return Bordered(words, [&] {
        CallersText<K4_SEQUENCE_NAME_ROOM> first(schedule);
        CallersText<K4_SEQUENCE_NAME_ROOM> second(sequence);
        std::uint32_t firstCapacity = first.Size();
        std::uint32_t secondCapacity = second.Size();
        std::uint32_t outWord = 0;
        const int result =
            Told<&K4SSRpc::k4ssGetSchedSeqStatus>(words, sign.c_str(), first.Data(), &firstCapacity,
                                                  second.Data(), &secondCapacity, &outWord);
        first.TakeOver();
        second.TakeOver();
        if (word)
            *word = outWord;
        return result;
    });
}

int CK4CmnSS::GetFrameStatus(const std::string& sign, std::string* text, std::uint32_t* word1,
                             std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* word3,
                             std::uint32_t* word4, std::uint32_t* word5) {
    constexpr const char* words = "Could not get frame status from service.";
    return Bordered(words, [&] {
        CallersText<kFrameTextCapacity> room(text);
        const int result =
            Told<&K4SSRpc::k4ssGetFrameStatus>(words, sign.c_str(), text ? room.Data() : nullptr,
                                               word1, word2, mode, word3, word4, word5);
        room.TakeOver();
        return result;
    });
}

int CK4CmnSS::GetDefaultSequence(const std::string& sign, std::string* sequence,
                                 tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* param) {
    constexpr const char* words = "Could not get default sequence from sign service";
    return Bordered(words, [&] {
        CallersText<kDefaultSequenceCapacity> room(sequence);
        std::uint32_t capacity = room.Size();
        const int result = Told<&K4SSRpc::k4ssGetDefaultSequence>(words, sign.c_str(), room.Data(),
                                                                  &capacity, mode, param);
        room.TakeOver();
        return result;
    });
}

// Plain overloads that take a reply apart ---------------------------------------------------------

int CK4CmnSS::GetSignStatus(const std::string& sign, std::string* text1, std::string* text2,
                            std::uint32_t* word1, tag_K4_PLAY_SEQ_MODE* mode, std::uint32_t* word2,
                            std::uint32_t* word3) {
    const auto parse = [&](std::string_view reply) {
        m_strParseBuf = reply;
        ReplyFields fields(m_strParseBuf);
        fields.Text(text1);
        fields.Text(text2);
        fields.Number(word1);
        fields.Replaced(mode, 0, K4_PLAY_SEQ_LAST, K4_PLAY_SEQ_CONTINUOUS);
        fields.Number(word2);
        fields.Number(word3);
        return 1;
    };
    return Replied<&K4SSRpc::k4ssGetStatus, kReplyCapacity>(
        "Could not get sign status from service.", parse, sign.c_str());
}

int CK4CmnSS::GetSignConfig(const std::string& sign, std::uint32_t* rows, std::uint32_t* columns,
                            tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel,
                            tag_K4_SIGN_DIM_MODE* dimMode, std::int32_t* dimLevel,
                            std::int32_t* photocellOffset) {
    const auto parse = [&](std::string_view reply) {
        m_strParseBuf = reply;
        ReplyFields fields(m_strParseBuf);
        fields.Number(rows);
        fields.Number(columns);
        fields.Replaced(color, 0, 15, K4_SIGN_COLOR_MONO1);
        fields.Replaced(pixel, K4_PIXEL_TECH_INCAND, K4_PIXEL_TECH_LED, K4_PIXEL_TECH_INCAND);
        fields.Dropped();
        fields.Replaced(dimMode, K4_SIGN_DIM_MANUAL_0, K4_SIGN_DIM_MANUAL, K4_SIGN_DIM_MANUAL_0);
        fields.Dropped();
        fields.Clamped(dimLevel, K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX);
        fields.Clamped(photocellOffset, K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX);
        return 1;
    };
    return Replied<&K4SSRpc::k4ssGetConfig, kReplyCapacity>(
        "Could not get sign configuration from service", parse, sign.c_str());
}

int CK4CmnSS::GetWindowState(const std::string& sign, std::uint32_t window, std::int32_t* open,
                             std::int32_t* row, std::int32_t* column, std::string* name) {
    const auto parse = [&](std::string_view reply) {
        std::string_view line;
        const bool found = k4cmn::FindWindowLine(reply, window, line);
        return found && k4cmn::StoreWindowLine(line, open, row, column, name) ? 1 : 0;
    };
    return Replied<&K4SSRpc::k4ssListWindows, kReplyCapacity>("Could not get window state", parse,
                                                              sign.c_str());
}

int CK4CmnSS::GetQueue(const std::string& sign, K4_DISPLAY_QUEUE* entries, std::uint32_t capacity) {
    const auto parse = [&](std::string_view reply) {
        return k4cmn::ReadQueueReply(reply, entries, entries ? capacity : 0);
    };
    return Replied<&K4SSRpc::k4ssGetQueue, kReplyCapacity>("Could not get queue from service",
                                                           parse, sign.c_str());
}

// Service overloads -------------------------------------------------------------------------------

int CK4CmnSS::GetChangeFlag(const std::string& service, const std::string& sign,
                            std::uint32_t* flag, std::uint32_t dwLockTimeout) {
    return OverTestedLock(service, dwLockTimeout, [&] { return GetChangeFlag(sign, flag); });
}

int CK4CmnSS::GetSchedChangeFlag(const std::string& service, const std::string& sign,
                                 std::uint32_t* flag) {
    return OverService(service, [&] { return GetSchedChangeFlag(sign, flag); });
}

int CK4CmnSS::GetPhotocellStatus(const std::string& service, const std::string& sign,
                                 std::uint32_t* status) {
    return OverService(service, [&] { return GetPhotocellStatus(sign, status); });
}

int CK4CmnSS::GetTemperatureFreq(const std::string& service, std::uint32_t selector,
                                 std::uint32_t* frequency) {
    return OverService(service, [&] { return GetTemperatureFreq(selector, frequency); });
}

int CK4CmnSS::GetSignStatus(const std::string& service, const std::string& sign, std::string* text1,
                            std::string* text2, std::uint32_t* word1, tag_K4_PLAY_SEQ_MODE* mode,
                            std::uint32_t* word2, std::uint32_t* word3) {
    return OverService(
        service, [&] { return GetSignStatus(sign, text1, text2, word1, mode, word2, word3); });
}

int CK4CmnSS::GetSignSchedSeq(const std::string& service, const std::string& sign,
                              std::string* schedule, std::string* sequence, std::uint32_t* word) {
    return OverService(service, [&] { return GetSignSchedSeq(sign, schedule, sequence, word); });
}

int CK4CmnSS::GetFrameStatus(const std::string& service, const std::string& sign, std::string* text,
                             std::uint32_t* word1, std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode,
                             std::uint32_t* word3, std::uint32_t* word4, std::uint32_t* word5) {
    return OverService(service, [&] {
        return GetFrameStatus(sign, text, word1, word2, mode, word3, word4, word5);
    });
}

int CK4CmnSS::GetEffectStatus(const std::string& service, const std::string& sign,
                              std::uint32_t* word, std::uint8_t* bytes, std::uint32_t* length) {
    return OverService(service, [&] { return GetEffectStatus(sign, word, bytes, length); });
}

int CK4CmnSS::GetSchedule(const std::string& service, const std::string& sign, std::uint32_t* word,
                          std::uint8_t* bytes, std::uint32_t* length) {
    return OverService(service, [&] { return GetSchedule(sign, word, bytes, length); });
}

int CK4CmnSS::GetSignConfig(const std::string& service, const std::string& sign,
                            std::uint32_t* rows, std::uint32_t* columns, tag_K4_SIGN_COLOR* color,
                            tag_K4_PIXEL_TECH* pixel, tag_K4_SIGN_DIM_MODE* dimMode,
                            std::int32_t* dimLevel, std::int32_t* photocellOffset) {
    return OverService(service, [&] {
        return GetSignConfig(sign, rows, columns, color, pixel, dimMode, dimLevel, photocellOffset);
    });
}

int CK4CmnSS::GetDIB(const std::string& service, const std::string& sign, char* buffer,
                     std::uint32_t capacity, std::uint32_t* length) {
    return OverService(service, [&] { return GetDIB(sign, buffer, capacity, length); });
}

int CK4CmnSS::GetBulb(const std::string& service, const std::string& sign, std::uint8_t* buffer,
                      std::uint32_t capacity, std::uint32_t* word1, std::uint32_t* word2) {
    return OverService(service, [&] { return GetBulb(sign, buffer, capacity, word1, word2); });
}

int CK4CmnSS::GetWindowState(const std::string& service, const std::string& sign,
                             std::uint32_t window, std::int32_t* open, std::int32_t* row,
                             std::int32_t* column, std::string* name) {
    return OverService(service,
                       [&] { return GetWindowState(sign, window, open, row, column, name); });
}

int CK4CmnSS::GetQueue(const std::string& service, const std::string& sign,
                       K4_DISPLAY_QUEUE* entries, std::uint32_t capacity) {
    return OverService(service, [&] { return GetQueue(sign, entries, capacity); });
}

int CK4CmnSS::GetDefaultSequence(const std::string& service, const std::string& sign,
                                 std::string* sequence, tag_K4_PLAY_SEQ_MODE* mode,
                                 std::uint32_t* param) {
    return OverService(service, [&] { return GetDefaultSequence(sign, sequence, mode, param); });
}

int CK4CmnSS::GetDefaultSeqFlag(const std::string& service, const std::string& sign,
                                std::uint32_t* flag) {
    return OverService(service, [&] { return GetDefaultSeqFlag(sign, flag); });
}

#include <algorithm>
#include <span>

#include "suite/bulbcv/BulbEncoder.h"
#include "suite/signservice/DibEncoder.h"
#include "suite/signservice/EngineRpc.h"
#include "suite/signservice/Machine.h"
#include "suite/signservice/PictureComposer.h"
#include "suite/signservice/Replies.h"
#include "suite/signservice/ReplyText.h"

namespace k4suite {

namespace {

/// The frame status has room for this text at least, and no capacity of its own.
constexpr std::uint32_t kFrameTextCapacity = 1024;
/// A queue reply carries no more, however large the buffer is.
constexpr std::uint32_t kQueueReplyBytes = 1024;

/// Puts a text into a buffer whose capacity comes by pointer; the word comes back as the length.
void PutTextByWord(const std::string& text, char* buffer, std::uint32_t* capacity) {
    PutText(text, buffer, capacity ? *capacity : 0, capacity);
}

/// Copies bytes if they fit; the word gets the bytes that they take in any case.
bool PutBytes(std::span<const std::uint8_t> bytes, std::uint8_t* buffer, std::uint32_t capacity,
              std::uint32_t* length) {
    PutNumber(length, bytes.size());
    if (bytes.empty())
        return true;
    if (!buffer || bytes.size() > capacity)
        return false;
    std::copy(bytes.begin(), bytes.end(), buffer);
    return true;
}

}  // namespace

std::int32_t EngineRpc::k4ssGetChangeFlag(const char* sign, std::uint32_t* flag) {
    return OnSign("k4ssGetChangeFlag", sign, [&](Machine& machine, Sign& at, TimePoint now) {
        PutNumber(flag, machine.ChangeFlag(at, now));
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetSchedChangeFlag(const char* sign, std::uint32_t* flag) {
    return OnSign("k4ssGetSchedChangeFlag", sign, [&](Machine& machine, Sign& at, TimePoint) {
        PutNumber(flag, machine.ScheduleChangeFlag(at));
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetPhotocell(const char* sign, std::uint32_t* status) {
    return OnSign("k4ssGetPhotocell", sign, [&](Machine& machine, Sign& at, TimePoint now) {
        PutNumber(status, PictureComposer(machine, now).PhotocellOf(at));
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetTemperatureFreq(std::uint32_t selector, std::uint32_t* frequency) {
    return OnMachine("k4ssGetTemperatureFreq", [&](Machine&, TimePoint now) {
        if (selector >= kTemperatureSensors)
            return false;
        PutNumber(frequency, TemperatureFrequency(selector, MinuteOfDay(now)));
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetStatus(const char* sign, char* buffer, std::uint32_t capacity,
                                      std::uint32_t* length) {
    return OnSign("k4ssGetStatus", sign, [&](Machine&, Sign& at, TimePoint now) {
        PutText(StatusText(at, now), buffer, capacity, length);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetSchedSeqStatus(const char* sign, char* schedule,
                                              std::uint32_t* scheduleCapacity, char* sequence,
                                              std::uint32_t* sequenceCapacity,
                                              std::uint32_t* word) {
    return OnSign("k4ssGetSchedSeqStatus", sign, [&](Machine&, Sign& at, TimePoint) {
        const PlayPosition& position = at.Playing().Position();
        PutTextByWord(at.Schedule() ? at.Schedule()->file : std::string(), schedule,
                      scheduleCapacity);
        PutTextByWord(position.state == PlayState::Blank ? std::string() : position.order.sequence,
                      sequence, sequenceCapacity);
        PutNumber(word, at.Schedule() ? 1 : 0);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetFrameStatus(const char* sign, char* text, std::uint32_t* word1,
                                           std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode,
                                           std::uint32_t* word3, std::uint32_t* word4,
                                           std::uint32_t* word5) {
    return OnSign("k4ssGetFrameStatus", sign, [&](Machine&, Sign& at, TimePoint now) {
        const Player& player = at.Playing();
        const PlayOrder& order = player.Position().order;
        const std::uint32_t frame = player.Frame(now);
        PutText(order.sequence, text, kFrameTextCapacity, nullptr);
        PutNumber(word1, frame + 1);
        PutNumber(word2, player.Frames().FrameCount());
        PutNumber(mode, order.mode);
        PutNumber(word3, order.param);
        PutNumber(word4, player.Frames().Dwell(frame).count());
        PutNumber(word5, player.TimesPlayed(now));
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetEffectStatus(const char* sign, std::uint32_t* word, std::uint8_t*,
                                            std::uint32_t* length) {
    return OnSign("k4ssGetEffectStatus", sign, [&](Machine&, Sign&, TimePoint) {
        PutNumber(word, 0);
        PutNumber(length, 0);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetSchedule(const char* sign, std::uint32_t* word, std::uint8_t* bytes,
                                        std::uint32_t* length) {
    return OnSign("k4ssGetSchedule", sign, [&](Machine& machine, Sign& at, TimePoint) {
        PutNumber(word, machine.ScheduleChangeFlag(at));
        const std::span<const std::uint8_t> content =
            at.Schedule() ? std::span(at.Schedule()->bytes) : std::span<const std::uint8_t>();
        return PutBytes(content, bytes, length ? *length : 0, length);
    });
}

std::int32_t EngineRpc::k4ssGetConfig(const char* sign, char* buffer, std::uint32_t capacity,
                                      std::uint32_t* length) {
    return OnSign("k4ssGetConfig", sign, [&](Machine&, Sign& at, TimePoint) {
        PutText(ConfigText(at), buffer, capacity, length);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetDIB(const char* sign, char* buffer, std::uint32_t capacity,
                                   std::uint32_t* length) {
    return OnSign("k4ssGetDIB", sign, [&](Machine& machine, Sign& at, TimePoint now) {
        const std::size_t size = DibBytes(at.Settings().rows, at.Settings().columns);
        PutNumber(length, size);
        if (!buffer || size > capacity)
            return false;
        PictureComposer(machine, now).DibOf(at, {reinterpret_cast<std::uint8_t*>(buffer), size});
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetBulb(const char* sign, std::uint8_t* buffer, std::uint32_t capacity,
                                    std::uint32_t* word1, std::uint32_t* word2) {
    return OnSign("k4ssGetBulb", sign, [&](Machine& machine, Sign& at, TimePoint now) {
        const LampTechnology technology = TechnologyOf(at.Settings().color);
        const std::size_t size = BulbBytes(at.Settings().rows, at.Settings().columns, technology);
        PutNumber(word1, size);
        PutNumber(word2, technology.planes);
        if (size > capacity || (size > 0 && !buffer))
            return false;
        PictureComposer(machine, now).BulbsOf(at, {buffer, size});
        return true;
    });
}

std::int32_t EngineRpc::k4ssListWindows(const char* sign, char* buffer, std::uint32_t capacity,
                                        std::uint32_t* length) {
    return OnSign("k4ssListWindows", sign, [&](Machine&, Sign& at, TimePoint) {
        PutLines(WindowsText(at), buffer, capacity, length);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetQueue(const char* sign, char* buffer, std::uint32_t capacity,
                                     std::uint32_t* length) {
    return OnSign("k4ssGetQueue", sign, [&](Machine&, Sign& at, TimePoint) {
        PutLines(at.Queue().Text(), buffer, std::min(capacity, kQueueReplyBytes), length);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetDefaultSequence(const char* sign, char* buffer,
                                               std::uint32_t* capacity, tag_K4_PLAY_SEQ_MODE* mode,
                                               std::uint32_t* param) {
    return OnSign("k4ssGetDefaultSequence", sign, [&](Machine&, Sign& at, TimePoint) {
        const PlayOrder& order = at.DefaultOrder();
        PutTextByWord(order.sequence, buffer, capacity);
        PutNumber(mode, order.mode);
        PutNumber(param, order.param);
        return true;
    });
}

std::int32_t EngineRpc::k4ssGetDefaultSeqFlag(const char* sign, std::uint32_t* flag) {
    return OnSign("k4ssGetDefaultSeqFlag", sign, [&](Machine&, Sign& at, TimePoint) {
        PutNumber(flag, at.Playing().Position().isDefault ? 1 : 0);
        return true;
    });
}

}  // namespace k4suite

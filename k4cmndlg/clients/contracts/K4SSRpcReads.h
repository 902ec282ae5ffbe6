#pragma once

#include <cstdint>

#include "k4cmndlg/clients/SignServiceTypes.h"

/// The stubs of the sign service that read: change flags, status, configuration, picture, windows
/// and queue. The rules that all stubs keep stand at K4SSRpc.
class K4SSRpcReads {
 public:
    virtual ~K4SSRpcReads() = default;

    /// A word that moves with every change of the sign.
    virtual std::int32_t k4ssGetChangeFlag(const char* sign, std::uint32_t* flag) = 0;
    /// A word that moves with every change of the sign's schedule.
    virtual std::int32_t k4ssGetSchedChangeFlag(const char* sign, std::uint32_t* flag) = 0;
    /// The state of the sign's photocell.
    virtual std::int32_t k4ssGetPhotocell(const char* sign, std::uint32_t* status) = 0;
    /// A temperature sensor's frequency, by the sensor's number.
    virtual std::int32_t k4ssGetTemperatureFreq(std::uint32_t selector,
                                                std::uint32_t* frequency) = 0;
    /// One line of six fields, separated by tabs: two texts, a number, the play mode, two numbers.
    virtual std::int32_t k4ssGetStatus(const char* sign, char* buffer, std::uint32_t capacity,
                                       std::uint32_t* length) = 0;
    /// The schedule and the sequence that run. Capacities are bytes, by pointer.
    virtual std::int32_t k4ssGetSchedSeqStatus(const char* sign, char* schedule,
                                               std::uint32_t* scheduleCapacity, char* sequence,
                                               std::uint32_t* sequenceCapacity,
                                               std::uint32_t* word) = 0;
    /// Where the sign is in its sequence. The text buffer holds at least 1024 bytes.
    virtual std::int32_t k4ssGetFrameStatus(const char* sign, char* text, std::uint32_t* word1,
                                            std::uint32_t* word2, tag_K4_PLAY_SEQ_MODE* mode,
                                            std::uint32_t* word3, std::uint32_t* word4,
                                            std::uint32_t* word5) = 0;
    /// The state of the running effect: a word and bytes.
    /// @param length in: room of `bytes`; out: how many.
    virtual std::int32_t k4ssGetEffectStatus(const char* sign, std::uint32_t* word,
                                             std::uint8_t* bytes, std::uint32_t* length) = 0;
    /// The running schedule: a word and its bytes.
    /// @param length in: room of `bytes`; out: how many.
    virtual std::int32_t k4ssGetSchedule(const char* sign, std::uint32_t* word, std::uint8_t* bytes,
                                         std::uint32_t* length) = 0;
    /// One line of nine fields, separated by tabs: rows, columns, color, pixel technology, a field
    /// of the service's own, dimming mode, another such field, dimming level, photocell offset.
    virtual std::int32_t k4ssGetConfig(const char* sign, char* buffer, std::uint32_t capacity,
                                       std::uint32_t* length) = 0;
    /// What the sign shows, as a device-independent bitmap.
    virtual std::int32_t k4ssGetDIB(const char* sign, char* buffer, std::uint32_t capacity,
                                    std::uint32_t* length) = 0;
    /// What the sign shows, as bulb data.
    virtual std::int32_t k4ssGetBulb(const char* sign, std::uint8_t* buffer, std::uint32_t capacity,
                                     std::uint32_t* word1, std::uint32_t* word2) = 0;
    /// One line a window, in window order, each ended by a newline: sign, open flag, row and
    /// column, separated by tabs; row and column count from 0.
    virtual std::int32_t k4ssListWindows(const char* sign, char* buffer, std::uint32_t capacity,
                                         std::uint32_t* length) = 0;
    /// The display queue: entries of a tag and its fields, all separated by tabs and newlines.
    virtual std::int32_t k4ssGetQueue(const char* sign, char* buffer, std::uint32_t capacity,
                                      std::uint32_t* length) = 0;
    /// The sequence that plays when nothing else does. The capacity is in bytes, by pointer.
    virtual std::int32_t k4ssGetDefaultSequence(const char* sign, char* buffer,
                                                std::uint32_t* capacity, tag_K4_PLAY_SEQ_MODE* mode,
                                                std::uint32_t* param) = 0;
    /// Whether the default sequence plays.
    virtual std::int32_t k4ssGetDefaultSeqFlag(const char* sign, std::uint32_t* flag) = 0;
};

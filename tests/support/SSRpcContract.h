#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "tests/support/GuardedBytes.h"

/// What every implementation of K4SSRpc keeps.
///
/// To run it against an implementation, include this header in one source file of a test and name a
/// maker there:
///
///     k4test::SSRpcFixture Make() { ... }
///     INSTANTIATE_TEST_SUITE_P(Embedded, SSRpcContract, ::testing::Values(&Make));
///
/// Each test makes a fixture of its own. In it nothing is connected, `sign` is idle (it plays
/// nothing, its queue is empty), time stands still unless the test calls something, and both
/// services can be reached.
namespace k4test {

struct SSRpcFixture {
    std::shared_ptr<void> owner;  ///< keeps alive whatever `rpc` lives in; goes last
    K4SSRpc* rpc = nullptr;       ///< the implementation, fresh
    std::string service;          ///< a service that can be reached
    std::string otherService;     ///< another one
    std::string unreachable;      ///< a service that can't
    std::string sign;             ///< a sign of `service`, with at least two windows
    std::string file;             ///< a sequence that `sign` can play, without tabs or newlines
};

using SSRpcMaker = SSRpcFixture (*)();

class SSRpcContract : public ::testing::TestWithParam<SSRpcMaker> {
 protected:
    SSRpcContract() : m_fixture(GetParam()()), m_rpc(*m_fixture.rpc) {}

    using TextStub = std::function<std::int32_t(char*, std::uint32_t, std::uint32_t*)>;
    struct NamedTextStub {
        const char* name;
        TextStub call;
    };

    void Connect() {
        ASSERT_EQ(m_rpc.k4ssConnectSignAsUser(Service(), nullptr, nullptr, nullptr), 0);
    }
    const char* Service() const { return m_fixture.service.c_str(); }
    const char* Other() const { return m_fixture.otherService.c_str(); }
    const char* Sign() const { return m_fixture.sign.c_str(); }
    const char* File() const { return m_fixture.file.c_str(); }

    /// The stubs that fill a text buffer of a capacity by value.
    std::vector<NamedTextStub> TextStubs() {
        return {
            {"k4ssListSigns", [this](auto... out) { return m_rpc.k4ssListSigns(out...); }},
            {"k4ssGetStatus", [this](auto... out) { return m_rpc.k4ssGetStatus(Sign(), out...); }},
            {"k4ssGetConfig", [this](auto... out) { return m_rpc.k4ssGetConfig(Sign(), out...); }},
            {"k4ssListWindows",
             [this](auto... out) { return m_rpc.k4ssListWindows(Sign(), out...); }},
            {"k4ssGetQueue", [this](auto... out) { return m_rpc.k4ssGetQueue(Sign(), out...); }},
        };
    }

    /// The reply of a stub that has room enough.
    std::string Reply(const TextStub& stub) {
        std::string buffer(1025, '\0');
        std::uint32_t length = 0;
        EXPECT_EQ(stub(buffer.data(), 1024, &length), 0);
        const std::size_t end = buffer.find('\0');
        EXPECT_LT(end, 1024U) << "no zero within the capacity";
        return buffer.substr(0, end);
    }
    std::string Windows() {
        return Reply([this](auto... out) { return m_rpc.k4ssListWindows(Sign(), out...); });
    }
    std::vector<std::string> WindowFields(std::size_t window) {
        const std::vector<std::string> lines = Split(Windows(), "\n");
        return window <= lines.size() ? Split(lines[window - 1], "\t") : std::vector<std::string>();
    }
    std::vector<std::string> Queue() {
        return Split(Reply([this](auto... out) { return m_rpc.k4ssGetQueue(Sign(), out...); }),
                     "\t\n");
    }
    /// The nine fields of the configuration. An empty field counts.
    std::vector<std::string> Config() {
        return Fields(Reply([this](auto... out) { return m_rpc.k4ssGetConfig(Sign(), out...); }));
    }
    std::uint32_t ChangeFlag() {
        std::uint32_t flag = 0;
        EXPECT_EQ(m_rpc.k4ssGetChangeFlag(Sign(), &flag), 0);
        return flag;
    }

    static std::vector<std::string> Split(const std::string& text, const char* separators) {
        std::vector<std::string> parts;
        for (std::size_t at = text.find_first_not_of(separators); at != std::string::npos;) {
            const std::size_t end = text.find_first_of(separators, at);
            parts.push_back(text.substr(at, end - at));
            at = text.find_first_not_of(separators, end);
        }
        return parts;
    }
    static std::vector<std::string> Fields(std::string text) {
        if (!text.empty() && text.back() == '\n')
            text.pop_back();
        std::vector<std::string> fields(1);
        for (const char byte : text) {
            if (byte == '\t')
                fields.emplace_back();
            else
                fields.back() += byte;
        }
        return fields;
    }

    SSRpcFixture m_fixture;
    K4SSRpc& m_rpc;
};

// One table for "fails without a connection" and "fails for an unknown sign": every stub that takes
// a sign.
struct SSRpcSignStub {
    const char* name;
    std::function<std::int32_t(K4SSRpc&, const char* sign, const char* file)> call;
};

inline std::vector<SSRpcSignStub> SSRpcSignStubs() {
    using Rpc = K4SSRpc;
    using Text = const char*;
    static std::uint32_t word, length;
    static std::string room(1 << 20, '\0');
    static std::uint8_t* const bytes = reinterpret_cast<std::uint8_t*>(room.data());
    constexpr std::uint32_t capacity = 1 << 20;
    constexpr auto once = K4_PLAY_SEQ_NUM_TIMES;
    return {
        {"ChangeFlag", [](Rpc& r, Text s, Text) { return r.k4ssGetChangeFlag(s, &word); }},
        {"SchedChange", [](Rpc& r, Text s, Text) { return r.k4ssGetSchedChangeFlag(s, &word); }},
        {"Photocell", [](Rpc& r, Text s, Text) { return r.k4ssGetPhotocell(s, &word); }},
        {"Status",
         [](Rpc& r, Text s, Text) { return r.k4ssGetStatus(s, room.data(), 1024, &length); }},
        {"SchedSeqStatus",
         [](Rpc& r, Text s, Text) {
             std::uint32_t first = 261;
             std::uint32_t second = 261;
             return r.k4ssGetSchedSeqStatus(s, room.data(), &first, room.data() + 512, &second,
                                            &word);
         }},
        {"FrameStatus",
         [](Rpc& r, Text s, Text) {
             return r.k4ssGetFrameStatus(s, room.data(), nullptr, nullptr, nullptr, nullptr,
                                         nullptr, nullptr);
         }},
        {"EffectStatus",
         [](Rpc& r, Text s, Text) { return r.k4ssGetEffectStatus(s, &word, bytes, &length); }},
        {"Schedule",
         [](Rpc& r, Text s, Text) { return r.k4ssGetSchedule(s, &word, bytes, &length); }},
        {"Config",
         [](Rpc& r, Text s, Text) { return r.k4ssGetConfig(s, room.data(), 1024, &length); }},
        {"DIB",
         [](Rpc& r, Text s, Text) { return r.k4ssGetDIB(s, room.data(), capacity, &length); }},
        {"Bulb",
         [](Rpc& r, Text s, Text) { return r.k4ssGetBulb(s, bytes, capacity, &word, &length); }},
        {"ListWindows",
         [](Rpc& r, Text s, Text) { return r.k4ssListWindows(s, room.data(), 1024, &length); }},
        {"GetQueue",
         [](Rpc& r, Text s, Text) { return r.k4ssGetQueue(s, room.data(), 1024, &length); }},
        {"GetDefaultSequence",
         [](Rpc& r, Text s, Text) {
             std::uint32_t size = 270;
             return r.k4ssGetDefaultSequence(s, room.data(), &size, nullptr, nullptr);
         }},
        {"DefaultSeqFlag", [](Rpc& r, Text s, Text) { return r.k4ssGetDefaultSeqFlag(s, &word); }},
        {"PlaySequence", [](Rpc& r, Text s, Text f) { return r.k4ssPlaySequence(s, f, once, 1); }},
        {"RunSchedule", [](Rpc& r, Text s, Text f) { return r.k4ssRunSchedule(s, f, 0); }},
        {"CheckSequence",
         [](Rpc& r, Text s, Text f) { return r.k4ssCheckSequence(s, f, once, 1); }},
        {"SetDefaultSequence",
         [](Rpc& r, Text s, Text f) { return r.k4ssSetDefaultSequence(s, f, once, 1); }},
        {"SelectFrame", [](Rpc& r, Text s, Text) { return r.k4ssSelectFrame(s, 1); }},
        {"SingleStep", [](Rpc& r, Text s, Text) { return r.k4ssSingleStepFrame(s, 1); }},
        {"QueueSequence",
         [](Rpc& r, Text s, Text f) { return r.k4ssQueueSequence(s, f, once, 1); }},
        {"StopSequence", [](Rpc& r, Text s, Text) { return r.k4ssStopSequence(s); }},
        {"BlankSign", [](Rpc& r, Text s, Text) { return r.k4ssBlankSign(s); }},
        {"EndSchedule", [](Rpc& r, Text s, Text) { return r.k4ssEndSchedule(s); }},
        {"SetDimming",
         [](Rpc& r, Text s, Text) { return r.k4ssSetDimming(s, K4_SIGN_DIM_MANUAL, 1); }},
        {"WindowEnable", [](Rpc& r, Text s, Text) { return r.k4ssWindowEnable(s, 1, 1); }},
        {"WindowMove", [](Rpc& r, Text s, Text) { return r.k4ssWindowMove(s, 1, 0, 0); }},
        {"QueueWindowEnable",
         [](Rpc& r, Text s, Text) { return r.k4ssQueueWindowEnable(s, 1, 1); }},
        {"QueueWindowMove", [](Rpc& r, Text s, Text) { return r.k4ssQueueWindowMove(s, 1, 0, 0); }},
        {"ClearQueue", [](Rpc& r, Text s, Text) { return r.k4ssClearQueue(s); }},
        {"NextItem", [](Rpc& r, Text s, Text) { return r.k4ssNextItem(s); }},
    };
}

}  // namespace k4test

using k4test::SSRpcContract;

#include "tests/support/SSRpcContractConnection.h"
#include "tests/support/SSRpcContractSigns.h"
#include "tests/support/SSRpcContractTexts.h"

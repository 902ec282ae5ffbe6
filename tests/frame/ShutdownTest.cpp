#include "k4cmndlg/frame/Shutdown.h"

#include <gmock/gmock.h>

#include <new>
#include <string>
#include <vector>

#include "tests/support/RecordingPower.h"

using k4cmn::Message;
using k4cmn::MessageAnswer;
using k4cmn::PowerControl;
using k4cmn::ScopedProvider;
using k4cmn::ShutdownSystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Keeps the questions and gives one answer to all.
class Asked final : public k4cmn::Prompt {
 public:
    std::vector<Message> messages;
    MessageAnswer answer = MessageAnswer::Yes;

    MessageAnswer Ask(const Message& message) override {
        messages.push_back(message);
        return answer;
    }
};

class Shutdown : public testing::Test {
 protected:
    k4test::RecordingPower m_power;
    ScopedProvider<PowerControl> m_installed{m_power};
    Asked m_asked;
};

}  // namespace

TEST_F(Shutdown, StepsComeInTheirOrder) {
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), 1);
    EXPECT_THAT(m_power.calls,
                ElementsAre("open", "look up SeShutdownPrivilege", "enable", "exit 1", "disable"));
    EXPECT_THAT(m_asked.messages, IsEmpty());
}

TEST_F(Shutdown, AnyRebootFlagButZeroReboots) {
    for (const int reboot : {1, 2, 5, -1}) {
        m_power.calls.clear();
        EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, reboot), 1);
        EXPECT_EQ(m_power.calls.at(3), "exit 2") << reboot;
    }
}

TEST_F(Shutdown, QuestionHasYesAndNo) {
    EXPECT_EQ(ShutdownSystem(m_asked, "Shut down?", 0), 1);
    EXPECT_THAT(m_asked.messages,
                ElementsAre(Message{"Shut down?", "", k4cmn::MessageButtons::YesNo,
                                    k4cmn::MessageIcon::Question}));
    EXPECT_EQ(m_power.calls.size(), 5u);
}

TEST_F(Shutdown, NoEndsItWithNothingElseDone) {
    m_asked.answer = MessageAnswer::No;
    EXPECT_EQ(ShutdownSystem(m_asked, "Shut down?", 1), 0);
    EXPECT_THAT(m_power.calls, IsEmpty());
}

TEST_F(Shutdown, EmptyQuestionIsAsked) {
    m_asked.answer = MessageAnswer::No;
    EXPECT_EQ(ShutdownSystem(m_asked, "", 0), 0);
    EXPECT_EQ(m_asked.messages.size(), 1u);
}

TEST_F(Shutdown, TokenThatDoesNotOpenEndsIt) {
    m_power.tokenOpens = 0;
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), 0);
    EXPECT_THAT(m_power.calls, ElementsAre("open"));
}

TEST_F(Shutdown, UnknownPrivilegeEndsIt) {
    m_power.privilegeKnown = 0;
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), 0);
    EXPECT_THAT(m_power.calls, ElementsAre("open", "look up SeShutdownPrivilege"));
}

TEST_F(Shutdown, ErrorBehindEnablingEndsIt) {
    m_power.enableError = 1300;
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), 0);
    EXPECT_THAT(m_power.calls, ElementsAre("open", "look up SeShutdownPrivilege", "enable"));
}

TEST_F(Shutdown, RefusedExitStillGivesThePrivilegeBack) {
    m_power.exits = 0;
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), 0);
    EXPECT_EQ(m_power.calls.back(), "disable");
}

namespace {

struct ThrowingStep {
    const char* name;
    const char* step;
    std::vector<std::string> calls;
    int result;
};

const ThrowingStep kThrowingSteps[] = {
    {"Open", "open", {"open"}, 0},
    {"LookUp", "look up SeShutdownPrivilege", {"open", "look up SeShutdownPrivilege"}, 0},
    {"Enable", "enable", {"open", "look up SeShutdownPrivilege", "enable"}, 0},
    {"Exit", "exit 1", {"open", "look up SeShutdownPrivilege", "enable", "exit 1", "disable"}, 0},
    // The end of the system is on its way by then.
    {"Disable",
     "disable",
     {"open", "look up SeShutdownPrivilege", "enable", "exit 1", "disable"},
     1},
};

class ThrowingPower : public Shutdown, public testing::WithParamInterface<ThrowingStep> {};

/// A prompt that can't show its question.
class ThrowingPrompt final : public k4cmn::Prompt {
 public:
    MessageAnswer Ask(const Message&) override { throw std::bad_alloc(); }
};

}  // namespace

TEST_P(ThrowingPower, EndsItWithThePrivilegeGivenBack) {
    m_power.throwsAt = GetParam().step;
    EXPECT_EQ(ShutdownSystem(m_asked, std::nullopt, 0), GetParam().result);
    EXPECT_EQ(m_power.calls, GetParam().calls);
}

INSTANTIATE_TEST_SUITE_P(Steps, ThrowingPower, testing::ValuesIn(kThrowingSteps),
                         [](const auto& row) { return row.param.name; });

TEST_F(Shutdown, QuestionThatCantBeShownEndsIt) {
    ThrowingPrompt prompt;
    EXPECT_EQ(ShutdownSystem(prompt, "Shut down?", 0), 0);
    EXPECT_THAT(m_power.calls, IsEmpty());
}

TEST(ShutdownAlone, WithoutAPowerControlNothingIsStarted) {
    Asked asked;
    EXPECT_EQ(ShutdownSystem(asked, std::nullopt, 0), 0);
}

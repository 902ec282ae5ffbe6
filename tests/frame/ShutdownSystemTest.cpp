#include "k4cmndlg/frame/ShutdownSystem.h"

#include <gmock/gmock.h>

#include "k4cmndlg/frame/StringTable.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/RecordingPower.h"

using k4cmn::Message;
using k4cmn::MessageAnswer;
using k4cmn::MessageButtons;
using k4cmn::MessageIcon;
using k4cmn::PowerControl;
using k4cmn::ScopedProvider;
using k4test::MessageQueue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr k4cmn::StringRow kQuestions[] = {{500, "Shut the sign computer down?"}};

Message Question(const char* text) {
    return {text, "", MessageButtons::YesNo, MessageIcon::Question};
}

class ShutdownSystem : public testing::Test {
 protected:
    ShutdownSystem() { k4cmn::SetApplicationStrings(kQuestions); }
    ~ShutdownSystem() override { k4cmn::SetApplicationStrings({}); }

    MessageQueue m_messages;
    k4test::RecordingPower m_power;
    ScopedProvider<PowerControl> m_installed{m_power};
};

}  // namespace

TEST_F(ShutdownSystem, WithoutAPromptItGoesOnAtOnce) {
    EXPECT_EQ(k4cmnShutdownSystem(nullptr, 0), 1);
    EXPECT_THAT(m_power.calls,
                ElementsAre("open", "look up SeShutdownPrivilege", "enable", "exit 1", "disable"));
}

TEST_F(ShutdownSystem, IdOfZeroMeansNoPrompt) {
    EXPECT_EQ(k4cmnShutdownSystem(0, 0), 1);
    EXPECT_EQ(k4cmnShutdownSystem(0u, 0), 1);
    EXPECT_EQ(m_power.calls.size(), 10u);
}

TEST_F(ShutdownSystem, PromptAnsweredYesGoesOn) {
    m_messages.Expect(Question("Sure?"), MessageAnswer::Yes);
    EXPECT_EQ(k4cmnShutdownSystem("Sure?", 5), 1);
    EXPECT_EQ(m_power.calls.at(3), "exit 2");
}

TEST_F(ShutdownSystem, PromptAnsweredNoDoesNothingElse) {
    m_messages.Expect(Question("Sure?"), MessageAnswer::No);
    EXPECT_EQ(k4cmnShutdownSystem("Sure?", 0), 0);
    EXPECT_THAT(m_power.calls, IsEmpty());
}

TEST_F(ShutdownSystem, IdNamesTheTextOfTheQuestion) {
    m_messages.Expect(Question("Shut the sign computer down?"), MessageAnswer::No);
    EXPECT_EQ(k4cmnShutdownSystem(500, 0), 0);
    m_messages.Expect(Question("Shut the sign computer down?"), MessageAnswer::Yes);
    EXPECT_EQ(k4cmnShutdownSystem(500u, 0), 1);
}

TEST_F(ShutdownSystem, UnknownIdAsksAnEmptyQuestion) {
    m_messages.Expect(Question(""), MessageAnswer::No);
    EXPECT_EQ(k4cmnShutdownSystem(501, 0), 0);
}

TEST_F(ShutdownSystem, RefusedExitIsTold) {
    m_power.exits = 0;
    EXPECT_EQ(k4cmnShutdownSystem(nullptr, 0), 0);
}

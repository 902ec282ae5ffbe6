#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <string>
#include <utility>

#include "k4cmndlg/frame/Prompt.h"

namespace k4test {

/// A person with an answer ready for each message, in order. A message that wasn't announced fails
/// the test, and so does one that doesn't come.
class ScriptedPrompt final : public k4cmn::Prompt {
 public:
    ~ScriptedPrompt() override { EXPECT_TRUE(m_expected.empty()) << m_expected.front().first.text; }

    void Expect(k4cmn::Message message, k4cmn::MessageAnswer answer = k4cmn::MessageAnswer::Ok) {
        m_expected.emplace_back(std::move(message), answer);
    }
    void Expect(const std::string& text) { Expect(k4cmn::PlainMessage(text)); }
    void ExpectQuestion(const std::string& text, k4cmn::MessageButtons buttons,
                        k4cmn::MessageAnswer answer) {
        Expect({text, {}, buttons, k4cmn::MessageIcon::Question}, answer);
    }
    std::size_t Pending() const { return m_expected.size(); }

    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override {
        if (m_expected.empty()) {
            ADD_FAILURE() << "unexpected message: " << message.text;
            return k4cmn::CautiousAnswer(message.buttons);
        }
        const auto [expected, answer] = m_expected.front();
        m_expected.pop_front();
        EXPECT_EQ(message.text, expected.text);
        EXPECT_EQ(message.title, expected.title);
        EXPECT_EQ(message.buttons, expected.buttons);
        EXPECT_EQ(message.icon, expected.icon);
        return answer;
    }

 private:
    std::deque<std::pair<k4cmn::Message, k4cmn::MessageAnswer>> m_expected;
};

}  // namespace k4test

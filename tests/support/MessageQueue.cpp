#include "tests/support/MessageQueue.h"

#include <gtest/gtest.h>

#include <utility>

namespace k4test {

using k4cmn::Message;
using k4cmn::MessageAnswer;
using k4cmn::MessagePresenter;
using k4cmn::Provided;

MessageQueue::MessageQueue() : m_previous(Provided<MessagePresenter>::Install(this)) {}

MessageQueue::~MessageQueue() {
    Provided<MessagePresenter>::Install(m_previous);
    for (const Entry& entry : m_expected)
        ADD_FAILURE() << "this message didn't come: " << entry.message.text;
}

void MessageQueue::Expect(Message message, MessageAnswer answer, std::function<void()> meanwhile) {
    m_expected.push_back({std::move(message), answer, std::move(meanwhile)});
}

MessageAnswer MessageQueue::Show(QWidget*, const Message& message) {
    if (m_expected.empty()) {
        ADD_FAILURE() << "unannounced message: " << message.text;
        return k4cmn::CautiousAnswer(message.buttons);
    }
    const Entry entry = std::move(m_expected.front());
    m_expected.pop_front();
    EXPECT_EQ(message.text, entry.message.text);
    EXPECT_EQ(message.title, entry.message.title) << message.text;
    EXPECT_EQ(message.buttons, entry.message.buttons) << message.text;
    EXPECT_EQ(message.icon, entry.message.icon) << message.text;
    if (entry.meanwhile)
        entry.meanwhile();
    return entry.answer;
}

}  // namespace k4test

#pragma once

#include <deque>
#include <functional>
#include <string>

#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace k4test {

/// A presenter that knows which messages will come: they are announced in order, each with its
/// answer. A message that wasn't announced, or differs in text, title, buttons or icon, fails the
/// test, and so does an announced one that hasn't come when the object goes.
/// Installed for the life of the object.
class MessageQueue final : public k4cmn::MessagePresenter {
 public:
    MessageQueue();
    ~MessageQueue() override;

    /// Announces a message, and what happens while it is shown, before it is answered.
    void Expect(k4cmn::Message message, k4cmn::MessageAnswer answer = k4cmn::MessageAnswer::Ok,
                std::function<void()> meanwhile = {});
    /// Announces a plain message.
    void Expect(const std::string& text) { Expect(k4cmn::PlainMessage(text)); }
    /// How many announced messages are still to come.
    std::size_t Pending() const { return m_expected.size(); }

    k4cmn::MessageAnswer Show(QWidget* parent, const k4cmn::Message& message) override;

 private:
    struct Entry {
        k4cmn::Message message;
        k4cmn::MessageAnswer answer;
        std::function<void()> meanwhile;
    };
    std::deque<Entry> m_expected;
    k4cmn::MessagePresenter* m_previous;
};

}  // namespace k4test

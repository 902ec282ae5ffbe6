#pragma once

#include <functional>
#include <vector>

#include "k4cmndlg/frame/Prompt.h"

namespace k4test {

/// A person who reads each message, does something meanwhile, and answers it with what changes
/// least.
class RecordingPrompt final : public k4cmn::Prompt {
 public:
    std::vector<k4cmn::Message> messages;
    std::function<void()> meanwhile;

    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override {
        messages.push_back(message);
        if (meanwhile)
            meanwhile();
        return k4cmn::CautiousAnswer(message.buttons);
    }
};

}  // namespace k4test

#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace k4cmn {

/// The buttons of a message. The first one named is the default.
enum class MessageButtons : std::uint8_t { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };

/// The picture of a message.
enum class MessageIcon : std::uint8_t { None, Information, Exclamation, Question, Stop };

/// What a person answered. Closing a message answers Cancel where there is such a button, No where
/// there is none but that, and Ok where there is only that.
enum class MessageAnswer : std::uint8_t { Ok, Cancel, Yes, No, Retry };

/// One message to a person.
struct Message {
    std::string text;
    std::string title;  ///< empty: the application's name
    MessageButtons buttons = MessageButtons::Ok;
    MessageIcon icon = MessageIcon::Exclamation;

    bool operator==(const Message&) const = default;
};

/// The plain message box: the application's name as title, one OK button, an exclamation mark.
inline Message PlainMessage(std::string text) {
    return Message{std::move(text), {}, MessageButtons::Ok, MessageIcon::Exclamation};
}

/// The answer that changes least, given where nobody can be asked.
constexpr MessageAnswer CautiousAnswer(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return MessageAnswer::Ok;
        case MessageButtons::YesNo:
            return MessageAnswer::No;
        default:
            return MessageAnswer::Cancel;
    }
}

/// How logic without a window asks a person. A dialog passes one that is bound to its window.
/// Synchronous: Ask() returns with the answer. Called on the thread that called the logic.
class Prompt {
 public:
    virtual ~Prompt() = default;
    virtual MessageAnswer Ask(const Message& message) = 0;
};

}  // namespace k4cmn

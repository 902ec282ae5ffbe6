#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace k4cmn {

MessagePresenter::~MessagePresenter() = default;

MessageAnswer WindowPrompt::Ask(const Message& message) {
    if (m_hasWindow && !m_window)
        return CautiousAnswer(message.buttons);
    return Provided<MessagePresenter>::Current().Show(m_window, message);
}

namespace {

class AbsentMessagePresenter final : public MessagePresenter {
 public:
    MessageAnswer Show(QWidget*, const Message& message) override {
        return CautiousAnswer(message.buttons);
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(MessagePresenter, AbsentMessagePresenter)

#pragma once

#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace k4suite {

/// Shows messages in message boxes of the toolkit.
///
/// The text is shown as it is: no character in it means anything. An empty title is the
/// application's display name. The first button named is the default one; Escape and closing the
/// box give the cautious answer, and so does a parent window that goes while the box is open. A box
/// with a parent blocks that window and those above it, one without blocks the application.
/// Threads: the user interface thread.
class MessageBoxPresenter final : public k4cmn::MessagePresenter {
 public:
    k4cmn::MessageAnswer Show(QWidget* parent, const k4cmn::Message& message) override;
};

}  // namespace k4suite

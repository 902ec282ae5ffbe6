#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "suite/ui/HelpTopics.h"

namespace k4suite {

class HelpWindow;

/// The help of the suite: one window for topics and contents, and popups at controls. An id without
/// a topic gives the contents or, for a popup, a word that there is nothing.
///
/// The window lives as long as the viewer, which must go before the application object. It can be
/// used beside the modal dialog that asked for it, and stays when that dialog closes.
/// Threads: the user interface thread.
class HelpViewer final : public k4cmn::HelpSystem {
 public:
    /// @param indexFile the help's index, a path or a resource.
    explicit HelpViewer(std::string indexFile = ":/k4help/index.txt");
    ~HelpViewer() override;

    std::string HelpFilePath() override { return m_indexFile; }
    /// There is one help: `file` isn't looked at.
    void WinHelp(QWidget* window, const std::string& file, std::uint32_t command,
                 std::uint32_t data) override;

 private:
    void Popup(QWidget* control, std::uint32_t helpId) const;
    HelpWindow& Open(QWidget* window);

    std::string m_indexFile;
    HelpTopics m_topics;
    std::unique_ptr<HelpWindow> m_window;
};

}  // namespace k4suite

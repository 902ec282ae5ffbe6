#include "suite/ui/HelpViewer.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>
#include <utility>

#include "k4cmndlg/frame/Text.h"
#include "suite/ui/HelpPopup.h"
#include "suite/ui/HelpWindow.h"

namespace k4suite {

HelpViewer::HelpViewer(std::string indexFile)
    : m_indexFile(std::move(indexFile)), m_topics(m_indexFile) {}

HelpViewer::~HelpViewer() = default;

void HelpViewer::WinHelp(QWidget* window, const std::string&, std::uint32_t command,
                         std::uint32_t data) {
    if (command == k4cmn::HELP_CONTEXTPOPUP) {
        Popup(window, data);
        return;
    }
    if (command != k4cmn::HELP_CONTEXT && command != k4cmn::HELP_FINDER)
        return;
    const HelpTopic* const topic = command == k4cmn::HELP_CONTEXT ? m_topics.Find(data) : nullptr;
    HelpWindow& help = Open(window);
    if (topic)
        help.ShowTopic(*topic);
    else
        help.ShowContents();
}

void HelpViewer::Popup(QWidget* control, std::uint32_t helpId) const {
    const HelpTopic* const topic = m_topics.Find(helpId);
    HelpPopup::ShowAt(control, topic ? k4cmn::ToQt(topic->FirstParagraph())
                                     : QCoreApplication::translate("k4suite::HelpViewer",
                                                                   "No help for this control."));
}

HelpWindow& HelpViewer::Open(QWidget* window) {
    if (!m_window)
        m_window = std::make_unique<HelpWindow>(m_topics);
    m_window->winId();  // makes the native window, which the next lines are about
    // A modal dialog keeps people out of all windows but those that belong to it. Belonging is as
    // far as it goes: the dialog doesn't own the window.
    m_window->windowHandle()->setTransientParent(window ? window->window()->windowHandle()
                                                        : nullptr);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    return *m_window;
}

}  // namespace k4suite

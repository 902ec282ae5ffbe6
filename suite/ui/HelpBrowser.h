#pragma once

#include <QTextBrowser>

namespace k4suite {

class HelpTopics;

/// Shows pages of the help, by links "help:page#section". Links that lead elsewhere do nothing.
class HelpBrowser final : public QTextBrowser {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HelpBrowser)

 public:
    /// @param topics must outlive the browser.
    explicit HelpBrowser(const HelpTopics& topics, QWidget* parent = nullptr);

    QVariant loadResource(int type, const QUrl& name) override;

 protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
    void NameHeadings();

    const HelpTopics& m_topics;
};

}  // namespace k4suite

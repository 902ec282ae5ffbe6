#pragma once

#include <QWidget>
#include <cstdint>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace k4suite {

class HelpBrowser;
class HelpTopics;
struct HelpTopic;

/// The window of the help: on the left all topics with a field that narrows them to those with a
/// text in them, on the right the page.
class HelpWindow final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HelpWindow)

 public:
    /// @param topics must outlive the window.
    explicit HelpWindow(const HelpTopics& topics);
    ~HelpWindow() override;

    /// Shows a topic.
    void ShowTopic(const HelpTopic& topic);
    /// Shows the contents, ready to type what is looked for.
    void ShowContents();

 private:
    void BuildTree();
    void Filter(const QString& wanted);
    void OpenItem(QTreeWidgetItem* item);
    /// The first topic with the text in its title or, without one, the first with it in its text.
    void OpenFirstMatch();

    const HelpTopics& m_topics;
    QLineEdit* m_filter;
    QTreeWidget* m_tree;
    QLabel* m_nothing;
    HelpBrowser* m_browser;
};

}  // namespace k4suite

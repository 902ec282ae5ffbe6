#include "suite/ui/HelpBrowser.h"

#include <QTextBlock>
#include <QTextCursor>

#include "k4cmndlg/frame/Text.h"
#include "suite/ui/HelpTopics.h"

namespace k4suite {

HelpBrowser::HelpBrowser(const HelpTopics& topics, QWidget* parent)
    : QTextBrowser(parent), m_topics(topics) {
    setAccessibleName(tr("Help text"));
    document()->setDocumentMargin(10);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::MarkdownResource)
        return {};
    return k4cmn::ToQt(m_topics.PageText(k4cmn::FromQt(name.path())));
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType) {
    if (name.scheme() != QLatin1String("help") ||
        m_topics.PageText(k4cmn::FromQt(name.path())).empty())
        return;
    QTextBrowser::doSetSource(name, QTextDocument::MarkdownResource);
    NameHeadings();
    if (name.hasFragment())
        scrollToAnchor(name.fragment());
}

void HelpBrowser::NameHeadings() {
    // The toolkit's Markdown reader gives headings no names that a link could lead to.
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0)
            continue;
        QTextCharFormat named;
        named.setAnchor(true);
        named.setAnchorNames({k4cmn::ToQt(AnchorOf(k4cmn::FromQt(block.text())))});
        QTextCursor heading(block);
        heading.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        heading.mergeCharFormat(named);
    }
}

}  // namespace k4suite

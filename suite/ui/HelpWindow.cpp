#include "suite/ui/HelpWindow.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <QVBoxLayout>

#include "k4cmndlg/frame/Text.h"
#include "suite/ui/HelpBrowser.h"
#include "suite/ui/HelpTopics.h"

namespace k4suite {

namespace {

constexpr int kTopicRole = Qt::UserRole;  // the place of an item's topic among all

bool Contains(const std::string& text, const QString& wanted) {
    return k4cmn::ToQt(text).contains(wanted, Qt::CaseInsensitive);
}

QPushButton* MakeButton(const QString& text, const char* name, QWidget* parent) {
    auto* const button = new QPushButton(text, parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

}  // namespace

HelpWindow::HelpWindow(const HelpTopics& topics)
    : m_topics(topics),
      m_filter(new QLineEdit),
      m_tree(new QTreeWidget),
      m_nothing(new QLabel(tr("No topic has this in it."))),
      m_browser(new HelpBrowser(topics)) {
    setWindowTitle(tr("Help"));
    setAttribute(Qt::WA_QuitOnClose, false);  // help left open doesn't keep a program running
    resize(760, 520);

    auto* const label = new QLabel(tr("&Find:"));
    label->setBuddy(m_filter);
    m_filter->setObjectName(QStringLiteral("filter"));
    m_filter->setAccessibleName(tr("Find topics"));
    m_filter->setClearButtonEnabled(true);
    m_nothing->setObjectName(QStringLiteral("nothing"));
    m_nothing->setWordWrap(true);
    m_nothing->hide();
    m_tree->setObjectName(QStringLiteral("topics"));
    m_tree->setAccessibleName(tr("Topics"));
    m_tree->header()->hide();
    BuildTree();

    auto* const side = new QWidget;
    auto* const sideRows = new QVBoxLayout(side);
    sideRows->setContentsMargins(0, 0, 0, 0);
    sideRows->addWidget(label);
    sideRows->addWidget(m_filter);
    sideRows->addWidget(m_nothing);
    sideRows->addWidget(m_tree, 1);

    auto* const split = new QSplitter;
    split->addWidget(side);
    split->addWidget(m_browser);
    split->setSizes({240, 520});
    split->setChildrenCollapsible(false);

    auto* const contents = MakeButton(tr("C&ontents"), "contents", this);
    auto* const back = MakeButton(tr("&Back"), "back", this);
    auto* const close = MakeButton(tr("&Close"), "close", this);
    back->setEnabled(false);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(contents);
    buttons->addWidget(back);
    buttons->addStretch();
    buttons->addWidget(close);

    auto* const rows = new QVBoxLayout(this);
    rows->addWidget(split, 1);
    rows->addLayout(buttons);
    QWidget* const order[] = {m_filter, m_tree, m_browser, contents, back, close};
    for (std::size_t at = 1; at < std::size(order); ++at)
        setTabOrder(order[at - 1], order[at]);

    connect(m_filter, &QLineEdit::textChanged, this, &HelpWindow::Filter);
    connect(m_filter, &QLineEdit::returnPressed, this, &HelpWindow::OpenFirstMatch);
    connect(m_tree, &QTreeWidget::itemClicked, this, &HelpWindow::OpenItem);
    connect(m_tree, &QTreeWidget::itemActivated, this, &HelpWindow::OpenItem);
    connect(contents, &QPushButton::clicked, this, &HelpWindow::ShowContents);
    connect(back, &QPushButton::clicked, m_browser, &HelpBrowser::backward);
    connect(m_browser, &HelpBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::BuildTree() {
    QTreeWidgetItem* page = nullptr;
    int at = 0;
    for (const HelpTopic& topic : m_topics.All()) {
        const bool isPage = topic.anchor.empty();
        auto* const item =
            isPage || !page ? new QTreeWidgetItem(m_tree) : new QTreeWidgetItem(page);
        item->setText(0, k4cmn::ToQt(topic.title));
        item->setData(0, kTopicRole, at++);
        if (isPage)
            page = item;
    }
    m_tree->expandAll();
}

void HelpWindow::ShowTopic(const HelpTopic& topic) {
    m_browser->setSource(QUrl(k4cmn::ToQt(HelpTopics::LinkTo(topic))));
}

void HelpWindow::ShowContents() {
    m_filter->clear();
    m_browser->setSource(QUrl(QStringLiteral("help:") + QLatin1String(HelpTopics::ContentsPage())));
    m_filter->setFocus();
}

void HelpWindow::Filter(const QString& wanted) {
    bool isAny = false;
    for (QTreeWidgetItemIterator at(m_tree); *at; ++at)
        (*at)->setHidden(true);
    for (QTreeWidgetItemIterator at(m_tree); *at; ++at) {
        const auto index = static_cast<std::size_t>((*at)->data(0, kTopicRole).toInt());
        const HelpTopic& topic = m_topics.All()[index];
        if (!Contains(topic.title + "\n" + topic.markdown, wanted.trimmed()))
            continue;
        isAny = true;
        (*at)->setHidden(false);
        if ((*at)->parent())
            (*at)->parent()->setHidden(false);
    }
    m_nothing->setVisible(!isAny);
}

void HelpWindow::OpenItem(QTreeWidgetItem* item) {
    ShowTopic(m_topics.All()[static_cast<std::size_t>(item->data(0, kTopicRole).toInt())]);
}

void HelpWindow::OpenFirstMatch() {
    const QString wanted = m_filter->text().trimmed();
    const HelpTopic* match = nullptr;
    for (const HelpTopic& topic : m_topics.All()) {
        if (Contains(topic.title, wanted)) {
            match = &topic;
            break;
        }
        if (!match && Contains(topic.markdown, wanted))
            match = &topic;
    }
    if (match)
        ShowTopic(*match);
}

}  // namespace k4suite

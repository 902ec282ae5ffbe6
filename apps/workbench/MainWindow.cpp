#include "apps/workbench/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

#include "apps/parts/SignView.h"
#include "apps/workbench/FaultMenu.h"
#include "apps/workbench/FileDialogs.h"
#include "apps/workbench/PhoneMenu.h"
#include "apps/workbench/SignWords.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "suite/EmbeddedSuite.h"

namespace workbench {

using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

constexpr int kServiceRole = Qt::UserRole;
constexpr int kSignRole = Qt::UserRole + 1;

}  // namespace

MainWindow::MainWindow(k4suite::EmbeddedSuite& suite) : m_suite(suite), m_tree(new QTreeWidget) {
    setWindowTitle(tr("K4400 Workbench"));
    resize(1080, 620);

    m_tree->setObjectName(QStringLiteral("signs"));
    m_tree->setAccessibleName(tr("Machines and signs"));
    m_tree->setHeaderLabels({tr("Machine / sign"), tr("Size"), tr("Technology")});
    m_tree->setUniformRowHeights(true);

    auto* splitter = new QSplitter;
    splitter->addWidget(m_tree);
    splitter->addWidget(BuildSignPage());
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({340, 740});
    setCentralWidget(splitter);

    m_holder = new QLabel;
    statusBar()->addPermanentWidget(m_holder);

    BuildMenus();
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this, &MainWindow::SelectionChanged);

    m_watcher = std::make_unique<SignWatcher>();
    connect(m_watcher.get(), &SignWatcher::Looked, this, &MainWindow::ShowLook);
    connect(m_watcher.get(), &SignWatcher::Failed, this, &MainWindow::ShowFailure);

    RefreshSigns();
    ShowHolder();
}

MainWindow::~MainWindow() = default;

QWidget* MainWindow::BuildSignPage() {
    auto* page = new QWidget;
    m_title = new QLabel;
    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.3);
    font.setBold(true);
    m_title->setFont(font);
    m_view = new parts::SignView;
    m_view->setObjectName(QStringLiteral("picture"));
    m_facts = new QLabel;
    m_facts->setObjectName(QStringLiteral("facts"));
    m_facts->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_state = new QLabel;
    m_state->setObjectName(QStringLiteral("state"));
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* layout = new QVBoxLayout(page);
    layout->addWidget(m_title);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_facts);
    layout->addWidget(m_state);
    return page;
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* refresh = file->addAction(tr("&Refresh"), this, &MainWindow::RefreshSigns);
    refresh->setShortcut(QKeySequence::Refresh);
    file->addSeparator();
    QAction* quit = file->addAction(tr("E&xit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    AddDialogs(*menuBar()->addMenu(tr("&Dialogs")), Dialogs(), QStringLiteral("Ctrl+%1"));
    AddDialogs(*menuBar()->addMenu(tr("F&iles")), FileDialogs(), QStringLiteral("Alt+%1"));
    BuildServiceMenus();

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&Contents"), this, [this] {
        auto& system = k4cmn::Provided<k4cmn::HelpSystem>::Current();
        system.WinHelp(this, system.HelpFilePath(), k4cmn::HELP_FINDER, 0);
    });
}

void MainWindow::AddDialogs(QMenu& menu, const std::vector<DialogEntry>& entries,
                            const QString& shortcut) {
    int number = 1;
    for (const DialogEntry& entry : entries) {
        QAction* action = menu.addAction(ToQt(entry.text));
        action->setObjectName(QLatin1String(entry.name));
        if (number < 10)
            action->setShortcut(QKeySequence(shortcut.arg(number++)));
        if (entry.needsSign)
            m_signActions.push_back(action);
        connect(action, &QAction::triggered, this,
                [this, run = entry.run] { run(m_service, m_sign, this); });
    }
}

void MainWindow::BuildServiceMenus() {
    if (k4suite::RemoteEngine* remote = m_suite.Remote())
        AddPhoneMenu(*menuBar(), *remote);
    if (k4suite::SignEngine* engine = m_suite.Engine())
        AddFaultMenu(
            *menuBar(), *engine, [this] { return m_service; }, [this] { RefreshSigns(); });
}

void MainWindow::RefreshSigns() {
    const std::string service = m_service;
    const std::string sign = m_sign;
    const k4cmn::WaitCursor wait;
    m_tree->clear();
    std::vector<std::string> services;
    CK4Registry::GetRegistryServices(services);
    for (const std::string& name : services)
        AddService(name);
    m_tree->expandAll();
    for (int column = 0; column < m_tree->columnCount(); ++column)
        m_tree->resizeColumnToContents(column);
    SelectAgain(service, sign);
    SelectionChanged();
}

void MainWindow::SelectAgain(const std::string& service, const std::string& sign) {
    if (!service.empty()) {
        // A chosen sign that can't be listed now isn't exchanged for another one behind a person's
        // back: its machine is chosen instead.
        if (!SelectSign(service, sign))
            SelectSign(service, {});
        return;
    }
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if (!(*it)->data(0, kSignRole).toString().isEmpty()) {
            m_tree->setCurrentItem(*it);
            return;
        }
    }
}

void MainWindow::AddService(const std::string& service) {
    auto* machine = new QTreeWidgetItem(m_tree, {ToQt(service)});
    machine->setData(0, kServiceRole, ToQt(service));

    const k4cmn::CriticalSectionLock lock(CK4CmnSS::m_cs);
    CK4CmnSS client;
    std::vector<std::string> signs;
    if (!client.ConnectService(service) || !client.GetSignList(signs)) {
        auto* words = new QTreeWidgetItem(machine, {ToQt(client.GetLastError())});
        words->setFlags(Qt::NoItemFlags);
        words->setFirstColumnSpanned(true);
        return;
    }
    for (const std::string& sign : signs) {
        SignLook look;
        const int known = client.GetSignConfig(sign, &look.rows, &look.columns, &look.color,
                                               &look.pixel, nullptr, nullptr, nullptr);
        auto* item = new QTreeWidgetItem(machine, {ToQt(sign)});
        item->setData(0, kServiceRole, ToQt(service));
        item->setData(0, kSignRole, ToQt(sign));
        item->setText(1, known ? SizeWords(look) : tr("unknown"));
        item->setText(2, known ? ColorWords(look) : QString());
    }
}

int MainWindow::SelectSign(const std::string& service, const std::string& sign) {
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if (FromQt((*it)->data(0, kSignRole).toString()) == sign &&
            FromQt((*it)->data(0, kServiceRole).toString()) == service) {
            m_tree->setCurrentItem(*it);
            return 1;
        }
    }
    return 0;
}

void MainWindow::SelectionChanged() {
    const QList<QTreeWidgetItem*> chosen = m_tree->selectedItems();
    std::string service;
    std::string sign;
    if (!chosen.isEmpty()) {
        service = FromQt(chosen.first()->data(0, kServiceRole).toString());
        sign = FromQt(chosen.first()->data(0, kSignRole).toString());
    }
    const bool same = service == m_service && sign == m_sign;
    if (same && !m_view->IsEmpty())
        return;
    m_service = service;
    m_sign = sign;
    m_look = {};
    UpdateActions();
    m_title->setText(sign.empty() ? ToQt(service) : ToQt(service + " \\ " + sign));
    m_facts->clear();
    m_state->clear();
    m_view->SetWords(sign.empty() ? tr("Choose a sign.") : tr("Reading the sign…"));
    m_watcher->Watch(service, sign);
}

void MainWindow::ShowLook(const QString& service, const QString& sign, const SignLook& look) {
    if (FromQt(service) != m_service || FromQt(sign) != m_sign)
        return;  // a look at a sign that has been left meanwhile
    m_look = look;
    ++m_picturesShown;
    m_view->SetPicture(look.picture);
    m_facts->setText(FactWords(look));
    m_state->setText(StateWords(look));
}

void MainWindow::ShowFailure(const QString& service, const QString& sign, const QString& words) {
    if (FromQt(service) != m_service || FromQt(sign) != m_sign)
        return;
    m_look = {};
    m_view->SetWords(words);
    m_facts->clear();
    m_state->setText(words);
}

void MainWindow::ShowHolder() {
    if (m_suite.RunsServices()) {
        m_holder->setText(tr("Services: this process"));
        return;
    }
    const k4suite::ServicesHolder holder = m_suite.Holder();
    m_holder->setText(tr("The services of this data home run in %1 (process %2)")
                          .arg(ToQt(holder.program))
                          .arg(holder.pid));
}

void MainWindow::UpdateActions() {
    for (QAction* action : m_signActions)
        action->setEnabled(!m_sign.empty());
}

QAction* MainWindow::DialogAction(const char* name) const {
    return findChild<QAction*>(QLatin1String(name));
}

}  // namespace workbench

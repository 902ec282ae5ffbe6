#pragma once

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "apps/workbench/DialogMenu.h"
#include "apps/workbench/SignWatcher.h"

class QAction;
class QLabel;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

namespace k4suite {
class EmbeddedSuite;
}

namespace parts {
class SignView;
}

namespace workbench {

/// The window of the workbench: the machines and their signs on the left, the chosen sign live on
/// the right, with its facts and its state below, and every dialog of the library in a menu.
class MainWindow final : public QMainWindow {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MainWindow)

 public:
    explicit MainWindow(k4suite::EmbeddedSuite& suite);
    ~MainWindow() override;

    /// Reads machines and signs anew.
    void RefreshSigns();
    /// Chooses a sign, or with an empty sign a machine. @return 1, or 0 if the list doesn't hold
    /// it.
    int SelectSign(const std::string& service, const std::string& sign);
    /// The chosen sign; empty texts if none is.
    const std::string& Service() const { return m_service; }
    const std::string& Sign() const { return m_sign; }
    /// The menu entry of a dialog, by the name of its class; null if there is none.
    QAction* DialogAction(const char* name) const;
    /// How many times the picture was drawn anew.
    std::uint32_t PicturesShown() const { return m_picturesShown; }
    /// What is shown of the chosen sign; an empty look while nothing is.
    const SignLook& LastLook() const { return m_look; }

 private:
    void BuildMenus();
    void BuildServiceMenus();
    void AddDialogs(QMenu& menu, const std::vector<DialogEntry>& entries, const QString& shortcut);
    QWidget* BuildSignPage();
    void AddService(const std::string& service);
    void SelectAgain(const std::string& service, const std::string& sign);
    void SelectionChanged();
    void ShowLook(const QString& service, const QString& sign, const SignLook& look);
    void ShowFailure(const QString& service, const QString& sign, const QString& words);
    void ShowHolder();
    void UpdateActions();

    k4suite::EmbeddedSuite& m_suite;
    QTreeWidget* m_tree;
    parts::SignView* m_view = nullptr;
    QLabel* m_title = nullptr;
    QLabel* m_facts = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_holder = nullptr;
    std::vector<QAction*> m_signActions;  ///< those that need a chosen sign
    std::string m_service;
    std::string m_sign;
    SignLook m_look;
    std::uint32_t m_picturesShown = 0;
    std::unique_ptr<SignWatcher> m_watcher;
};

}  // namespace workbench

#include "apps/workbench/TellChoice.h"

#include <QMainWindow>
#include <QStatusBar>

#include "k4cmndlg/frame/Text.h"

namespace workbench {

void TellChoice(QWidget* window, const std::string& choice) {
    if (auto* main = qobject_cast<QMainWindow*>(window))
        main->statusBar()->showMessage(choice.empty()
                                           ? QStringLiteral("Nothing was chosen")
                                           : QStringLiteral("Chosen: %1").arg(k4cmn::ToQt(choice)));
}

}  // namespace workbench

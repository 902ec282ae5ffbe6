#include "apps/workbench/FaultMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <chrono>
#include <vector>

#include "suite/signservice/SignEngine.h"

namespace workbench {

namespace {

struct FaultEntry {
    const char* text;
    k4suite::Fault (*make)();
};

constexpr FaultEntry kFaults[] = {
    {"Make &Unreachable", [] { return k4suite::Fault::Unreachable(); }},
    {"Make &Slow (half a second a call)",
     [] { return k4suite::Fault::Slow(std::chrono::milliseconds(500)); }},
    {"Fail to Set &Dimming", [] { return k4suite::Fault::FailingStub("k4ssSetDimming"); }},
    {"Fail to Read the &Configuration",
     [] { return k4suite::Fault::FailingStub("k4ssGetConfig"); }},
    {"Fail to Move &Windows", [] { return k4suite::Fault::FailingStub("k4ssWindowMove"); }},
};

QString Tr(const char* text) {
    return QCoreApplication::translate("workbench", text);
}

}  // namespace

void AddFaultMenu(QMenuBar& bar, k4suite::SignEngine& engine,
                  std::function<std::string()> chosenService, std::function<void()> repaired) {
    QMenu* menu = bar.addMenu(Tr("&Machine"));
    menu->setObjectName(QStringLiteral("machine"));
    std::vector<QAction*> entries;
    for (const FaultEntry& entry : kFaults) {
        entries.push_back(
            menu->addAction(Tr(entry.text), menu, [&engine, chosenService, make = entry.make] {
                engine.SetFault(chosenService(), make());
            }));
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu, [entries, chosenService] {
        const bool chosen = !chosenService().empty();
        for (QAction* entry : entries)
            entry->setEnabled(chosen);
    });
    menu->addSeparator();
    menu->addAction(Tr("&Repair All Machines"), menu, [&engine, repaired] {
        engine.ClearFaults();
        repaired();
    });
}

}  // namespace workbench

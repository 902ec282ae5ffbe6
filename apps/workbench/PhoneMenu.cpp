#include "apps/workbench/PhoneMenu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "k4cmndlg/frame/Text.h"
#include "suite/remoteservice/RemoteEngine.h"

namespace workbench {

namespace {

using Phase = k4suite::DialState::Phase;

QString Tr(const char* text) {
    return QCoreApplication::translate("workbench", text);
}

QString FaultWords(k4suite::LineFault fault) {
    switch (fault) {
        case k4suite::LineFault::NoDialTone:
            return Tr("no dial tone");
        case k4suite::LineFault::Busy:
            return Tr("busy");
        case k4suite::LineFault::NoAnswer:
            return Tr("no answer");
        default:
            return Tr("the line went down");
    }
}

QString StateWords(const k4suite::DialState& state) {
    switch (state.phase) {
        case Phase::Dialing:
            return Tr(" (dialing…)");
        case Phase::Up:
            return Tr(" (connected)");
        case Phase::Failed:
            return Tr(" (%1)").arg(FaultWords(state.fault));
        default:
            return {};
    }
}

/// Dials an entry, or hangs up where it is being dialled or up.
void Toggle(k4suite::RemoteEngine& engine, std::size_t index) {
    const k4suite::PhoneLine line = engine.Lines().at(index);
    if (line.state.phase == Phase::Dialing || line.state.phase == Phase::Up)
        engine.HangUp(line.handle);
    else
        engine.Dial(line.entry);
}

}  // namespace

void AddPhoneMenu(QMenuBar& bar, k4suite::RemoteEngine& engine) {
    if (engine.PhoneBook().empty())
        return;
    QMenu* menu = bar.addMenu(Tr("&Phone"));
    menu->setObjectName(QStringLiteral("phone"));
    std::vector<QAction*> entries;
    for (std::size_t index = 0; index < engine.PhoneBook().size(); ++index) {
        entries.push_back(menu->addAction(k4cmn::ToQt(engine.PhoneBook()[index].name), menu,
                                          [&engine, index] { Toggle(engine, index); }));
        entries.back()->setCheckable(true);
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu, [entries, &engine] {
        const std::vector<k4suite::PhoneLine> lines = engine.Lines();
        for (std::size_t index = 0; index < entries.size(); ++index) {
            const k4suite::PhoneLine& line = lines.at(index);
            entries[index]->setChecked(line.state.phase == Phase::Up);
            entries[index]->setText(k4cmn::ToQt(line.entry) + StateWords(line.state));
        }
    });
}

}  // namespace workbench

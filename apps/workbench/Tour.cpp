#include "apps/workbench/Tour.h"

#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QSlider>
#include <QTest>
#include <QTreeWidget>
#include <utility>

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/PictureFacts.h"
#include "apps/workbench/SearchTour.h"
#include "apps/workbench/SequenceTour.h"
#include "apps/workbench/SmallDialogTour.h"
#include "apps/workbench/StoreTour.h"
#include "apps/workbench/TourHands.h"
#include "apps/workbench/TourRecord.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/frame/CDialog.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/EmbeddedSuite.h"
#include "suite/signservice/SignEngine.h"

namespace workbench {

using k4cmn::Format;
using k4cmn::FromQt;

namespace {

constexpr const char* kService = "Local";
constexpr const char* kSign = "Main Board";

// Control ids of the two dialogs.
constexpr int kManual = 1111;
constexpr int kLevel = 1115;
constexpr int kApply = 3;
constexpr int kEnable1 = 1015;
constexpr int kRow1 = 1031;
constexpr int kColumn1 = 1039;

}  // namespace

Tour::Tour(k4suite::EmbeddedSuite& suite, MainWindow& window, TourRecord& record,
           std::string folder)
    : m_suite(suite), m_window(window), m_record(record), m_folder(std::move(folder)) {}

int Tour::Run() {
    if (m_record.Step(m_suite.RunsServices(), "this process runs the services of the data home")) {
        SeeSigns();
        SeeMotion();
        Dim();
        SequenceTour(m_window, m_record, m_folder).Run();
        StoreTour(m_suite, m_window, m_record, m_folder).Run();
        SearchTour(m_window, m_record, m_folder).Run();
        SmallDialogTour(m_window, m_record).Run();
        PlaceWindow();
        SeeOtherMachine();
        MeetUnreachableMachine();
    }
    m_record.Step(m_suite.Problems().empty(), "the suite reports no problem");
    return m_record.Failures() ? 1 : 0;
}

bool Tour::InDialog(const char* name, const std::function<void(QWidget&)>& drive) {
    QAction* action = m_window.DialogAction(name);
    if (!m_record.Step(action && action->isEnabled(), Format("the menu offers %s", name)))
        return false;
    return m_record.Step(TriggerAndDrive(*action, drive), Format("%s opened and closed", name));
}

void Tour::SeeSigns() {
    auto* tree = m_window.findChild<QTreeWidget*>(QStringLiteral("signs"));
    m_record.Step(tree->topLevelItemCount() >= 3, "three machines or more are listed");
    bool allHaveSigns = true;
    for (int machine = 0; machine < tree->topLevelItemCount(); ++machine)
        allHaveSigns &= tree->topLevelItem(machine)->childCount() >= 2;
    m_record.Step(allHaveSigns, "each machine lists its signs");
    m_record.Step(m_window.SelectSign(kService, kSign),
                  Format("%s \\ %s is chosen", kService, kSign));
    m_record.Step(Until([&] { return !m_window.LastLook().picture.isNull(); }),
                  "the sign's picture is shown");
    m_record.Picture(m_window, "workbench");
}

void Tour::SeeMotion() {
    const std::uint32_t flag = m_window.LastLook().changeFlag;
    const std::uint32_t shown = m_window.PicturesShown();
    m_record.Step(Until([&] {
                      return m_window.LastLook().changeFlag != flag &&
                             m_window.PicturesShown() > shown + 3;
                  }),
                  "the picture moves with the change flag");
    HoldPicture();
    const std::uint32_t standing = m_window.PicturesShown();
    QTest::qWait(300);
    m_record.Step(m_window.PicturesShown() == standing, "a standing picture isn't drawn again");
}

void Tour::Dim() {
    const double before = MeanBrightness(m_window.LastLook().picture);
    InDialog("CK4CmnDlgDimmingCtrl", [&](QWidget& dialog) {
        Click(dialog, kManual);
        auto* level = qobject_cast<QSlider*>(Control(dialog, kLevel));
        if (m_record.Step(level && level->isEnabled(), "the manual level can be moved")) {
            level->setFocus();
            QTest::keyClick(level, Qt::Key_Home);
            for (int page = 0; page < 2; ++page)
                QTest::keyClick(level, Qt::Key_PageUp);
            m_record.Picture(dialog, "dimming");
            m_record.Step(level->value() > 0 && level->value() < 128,
                          Format("the level stands at %d", level->value()));
        }
        QWidget* apply = Control(dialog, kApply);
        m_record.Step(apply && apply->isEnabled(), "the change can be applied");
        Click(dialog, kApply);
        m_record.Step(apply && !apply->isEnabled(), "it is applied");
        Click(dialog, IDOK);
    });
    tag_K4_SIGN_DIM_MODE mode = K4_SIGN_DIM_SCHEDULED;
    std::int32_t level = -1;
    CK4CmnSS client;
    const int read = client.GetSignConfig(kService, kSign, nullptr, nullptr, nullptr, nullptr,
                                          &mode, &level, nullptr);
    m_record.Step(read && mode == K4_SIGN_DIM_MANUAL && level > 0 && level < 128,
                  Format("the sign reports mode %d, level %d", mode, level));
    m_record.Step(Until([&] { return m_window.LastLook().dimLevel == level; }),
                  "the window shows the new level");
    const double after = MeanBrightness(m_window.LastLook().picture);
    m_record.Step(after < before * 0.8,
                  Format("the sign is darker: mean brightness %.1f, before %.1f", after, before));
    m_record.Picture(m_window, "sign-dimmed");
    // Bright again, so that the next pictures show what they are about.
    m_record.Step(client.SetDimming(kService, kSign, K4_SIGN_DIM_MANUAL, 255),
                  "the sign is set to full brightness");
    m_record.Step(Until([&] { return m_window.LastLook().dimLevel == 255; }), "the window follows");
}

void Tour::HoldPicture() {
    CK4CmnSS client;
    m_record.Step(client.StopSequence(kService, kSign), "the sign is stopped");
    m_record.Step(Until([&] { return m_window.LastLook().state == "Stopped"; }),
                  "the window says that it stands");
}

void Tour::PlaceWindow() {
    HoldPicture();
    const QImage before = m_window.LastLook().picture;
    constexpr std::int32_t kRow = 9;
    constexpr std::int32_t kColumn = 33;
    InDialog("CK4CmnDlgWindowControl", [&](QWidget& dialog) {
        m_record.Picture(dialog, "window-control");
        Click(dialog, kEnable1);
        Type(dialog, kRow1, QString::number(kRow));
        Type(dialog, kColumn1, QString::number(kColumn + 1));
        auto* column = qobject_cast<QLineEdit*>(Control(dialog, kColumn1));
        m_record.Step(column && column->text().toInt() == kColumn,
                      "a column off the grid goes to the grid");
        m_record.Picture(dialog, "window-placed");
        Click(dialog, kApply);
        Click(dialog, IDOK);
    });
    std::int32_t open = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::string name;
    CK4CmnSS client;
    const int read = client.GetWindowState(kService, kSign, 1, &open, &row, &column, &name);
    m_record.Step(read && open == 1 && row == kRow && column == kColumn,
                  Format("the sign reports window 1 (%s) %s at row %d, column %d", name.c_str(),
                         open ? "open" : "closed", row, column));
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    m_record.Step(client.GetSignConfig(kService, name, &rows, &columns, nullptr, nullptr, nullptr,
                                       nullptr, nullptr),
                  "the window's sign reports its size");
    const QRect place(kColumn - 1, kRow - 1, static_cast<int>(columns), static_cast<int>(rows));
    m_record.Step(Until([&] {
                      return DifferentPixels(before, m_window.LastLook().picture, place).inside > 0;
                  }),
                  "the picture changes where the window was placed");
    m_record.Step(DifferentPixels(before, m_window.LastLook().picture, place).outside == 0,
                  "and nowhere else");
    m_record.Picture(m_window, "sign-with-window");
}

void Tour::SeeOtherMachine() {
    auto* tree = m_window.findChild<QTreeWidget*>(QStringLiteral("signs"));
    const QTreeWidgetItem* machine = tree->topLevelItem(1);
    const std::string service = FromQt(machine->text(0));
    const std::string sign = FromQt(machine->child(0)->text(0));
    m_record.Step(m_window.SelectSign(service, sign),
                  Format("%s \\ %s is chosen", service.c_str(), sign.c_str()));
    m_record.Step(Until([&] {
                      return m_window.LastLook().rows > 0 && m_window.Sign() == sign &&
                             m_window.LastLook().state == "Playing";
                  }),
                  "its picture is shown");
    m_record.Picture(m_window, "other-machine");
}

void Tour::MeetUnreachableMachine() {
    const std::string service = m_window.Service();
    m_suite.Engine()->SetFault(service, k4suite::Fault::Unreachable());
    QString words;
    const bool shown =
        TriggerAndDrive(*m_window.DialogAction("CK4CmnDlgWindowControl"), [&](QWidget& window) {
            if (auto* box = qobject_cast<QMessageBox*>(&window))
                words = box->text();
            m_record.Picture(window, "unreachable");
            QTest::keyClick(&window, Qt::Key_Return);
        });
    m_record.Step(shown && words == QStringLiteral("Sign service unavailable."),
                  "an unreachable machine is told: " + FromQt(words));
    m_suite.Engine()->ClearFaults();
    CK4CmnSS client;
    std::vector<std::string> signs;
    m_record.Step(client.GetSignList(service, signs) && !signs.empty(),
                  "it answers again when it is back");
}

}  // namespace workbench

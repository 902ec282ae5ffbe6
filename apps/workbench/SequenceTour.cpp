#include "apps/workbench/SequenceTour.h"

#include <QAction>
#include <QJsonObject>
#include <QPainter>
#include <QTest>

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/PictureFacts.h"
#include "apps/workbench/TourHands.h"
#include "apps/workbench/TourRecord.h"
#include "apps/workbench/TourTool.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace workbench {

using k4cmn::Format;
using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

constexpr int kFrames = 3;
constexpr int kDwell = 500;  // milliseconds

// Control ids of the properties sheet.
constexpr int kPageThumbnailFrame = 1241;
constexpr int kPageKeywords = 1222;
constexpr int kApply = 3;

/// A picture for a sign: a ball that rolls along under a word.
QImage Drawn(const QSize& size, int frame) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(0, 24, 64));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const int ground = size.height() * 3 / 4;
    painter.fillRect(0, ground, size.width(), size.height() - ground, QColor(0, 112, 32));
    painter.setBrush(QColor(255, 160, 0));
    painter.setPen(Qt::NoPen);
    const int diameter = size.height() / 3;
    painter.drawEllipse(size.width() * (frame + 1) / (kFrames + 1) - diameter / 2,
                        ground - diameter, diameter, diameter);
    QFont font = painter.font();
    font.setPixelSize(size.height() * 2 / 5);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(image.rect().adjusted(0, 2, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
                     QStringLiteral("KICK OFF"));
    return image;
}

}  // namespace

SequenceTour::SequenceTour(MainWindow& window, TourRecord& record, std::string folder)
    : m_window(window), m_record(record), m_folder(std::move(folder)) {}

void SequenceTour::Run() {
    Make();
    Play();
    Preview();
    ChangeProperties();
}

void SequenceTour::DrawPictures() {
    const SignLook& look = m_window.LastLook();
    const QSize size(static_cast<int>(look.columns), static_cast<int>(look.rows));
    for (int frame = 0; frame < kFrames; ++frame)
        m_pictures.push_back(Drawn(size, frame));
}

void SequenceTour::Make() {
    const SignLook& look = m_window.LastLook();
    const std::string size = Format("%ux%u", look.rows, look.columns);
    m_path = CK4Files().BuildPath("A:", look.rows, look.columns, look.color, look.pixel, "Default",
                                  "Kick Off", "SQ4");
    m_native = k4cmn::Provided<k4cmn::FilesProvider>::Current().NativePath(m_path);
    DrawPictures();
    QStringList arguments{QStringLiteral("sequence"),
                          QStringLiteral("make"),
                          ToQt(m_native),
                          QStringLiteral("--size"),
                          ToQt(size),
                          QStringLiteral("--color"),
                          ToQt(k4cmn::ColorShortName(look.color)),
                          QStringLiteral("--pixel"),
                          ToQt(k4cmn::PixelShortName(look.pixel)),
                          QStringLiteral("--dwell"),
                          QString::number(kDwell)};
    bool drawn = true;
    for (int frame = 0; frame < kFrames; ++frame) {
        const QString file = ToQt(m_folder + Format("/kick-off-%d.png", frame + 1));
        drawn &= m_pictures[static_cast<std::size_t>(frame)].save(file);
        arguments << file;
    }
    m_record.Step(drawn, Format("%d pictures are drawn", kFrames));
    RunTool(m_record, arguments, "k4ctl makes them a sequence of the chosen sign's type");
}

void SequenceTour::Play() {
    CK4CmnSS client;
    const int played =
        client.PlaySequence(m_window.Service(), m_window.Sign(), m_path, K4_PLAY_SEQ_CONTINUOUS, 0);
    m_record.Step(played, "it is played on " + m_window.Sign());
    m_record.Step(Until([&] { return m_window.LastLook().sequence == m_path; }),
                  "the window shows that the sign plays it");
    m_record.Step(client.SelectFrame(m_window.Service(), m_window.Sign(), 2),
                  "its second frame is selected");
    m_record.Step(Until([&] { return m_window.LastLook().frame == 2; }), "the window follows");
    const QImage shown = m_window.LastLook().picture;
    m_record.Step(DifferentPixels(m_pictures[1], shown, shown.rect()).inside == 0,
                  "every lamp shows what was drawn");
    m_record.Picture(m_window, "sequence-on-sign");
}

bool SequenceTour::InWindow(const char* name, const std::function<void(QWidget&)>& drive) {
    QAction* action = m_window.DialogAction(name);
    if (!m_record.Step(action && action->isEnabled(), Format("the menu offers %s", name)))
        return false;
    return m_record.Step(TriggerAndDrive(*action, drive), Format("%s opened and closed", name));
}

void SequenceTour::Preview() {
    using Pane = CK4CmnDlgFileSelPrev;
    QAction* action = m_window.DialogAction("CK4CmnDlgFileSelPrev");
    if (!m_record.Step(action && action->isEnabled(), "the menu offers CK4CmnDlgFileSelPrev"))
        return;
    action->trigger();
    auto* pane = m_window.findChild<Pane*>();
    if (!m_record.Step(pane && QTest::qWaitForWindowExposed(pane), "CK4CmnDlgFileSelPrev opened"))
        return;
    const auto text = [pane](int id) {
        const QWidget* control = pane->GetDlgItem(id);
        return control ? FromQt(control->property("text").toString()) : std::string();
    };
    m_record.Step(text(Pane::kFileName) == "Kick Off.SQ4" && text(Pane::kFrames) == " 3" &&
                      text(Pane::kDuration) == " 1.50 Seconds",
                  "it shows" + text(Pane::kFrames) + " frames," + text(Pane::kDuration));
    Type(*pane, Pane::kKeywords, QStringLiteral("football,kick  off"));
    Type(*pane, Pane::kThumbnailFrame, QStringLiteral("2"));
    if (QWidget* notes = pane->GetDlgItem(Pane::kNotes)) {
        notes->setFocus();
        QTest::keyClicks(notes, QStringLiteral("Before each match"));
    }
    m_record.Picture(*pane, "preview-pane");
    Click(*pane, IDOK);
    m_record.Step(!pane->isVisible(), "OK closes it");
    ReadBack("football; kick; off; ", "Before each match", 2);
}

void SequenceTour::ChangeProperties() {
    InWindow("CK4CmnDlgFileProp", [&](QWidget& window) {
        auto* sheet = qobject_cast<CK4CmnDlgFileProp*>(&window);
        if (!m_record.Step(sheet != nullptr, "it is the properties sheet")) {
            window.close();
            return;
        }
        m_record.Picture(*sheet, "properties-general");
        sheet->SetActivePage(CK4CmnPSProperties::THUMBNAIL_PAGE);
        QWidget* frame = sheet->GetDlgItem(kPageThumbnailFrame);
        m_record.Step(Until([&] { return frame && frame->property("text").toString() == u"2"; }),
                      "its page \"Thumbnail\" shows frame 2");
        Type(*sheet, kPageThumbnailFrame, QStringLiteral("3"));
        m_record.Picture(*sheet, "properties-thumbnail");
        sheet->SetActivePage(CK4CmnPSProperties::ADVANCED_PAGE);
        Type(*sheet, kPageKeywords, QStringLiteral("football; final"));
        Click(*sheet, kApply);
        m_record.Picture(*sheet, "properties-advanced");
        Click(*sheet, IDOK);
    });
    ReadBack("football; final; ", "Before each match", 3);
}

void SequenceTour::ReadBack(const std::string& keywords, const std::string& notes, int thumbnail) {
    const QJsonObject facts =
        RunTool(m_record, {QStringLiteral("sequence"), QStringLiteral("show"), ToQt(m_native)},
                "k4ctl shows it");
    m_record.Step(FromQt(facts.value(QLatin1String("keywords")).toString()) == keywords &&
                      FromQt(facts.value(QLatin1String("notes")).toString()) == notes &&
                      facts.value(QLatin1String("thumbnailFrame")).toInt() == thumbnail,
                  Format("and reads back the keywords \"%s\", the notes and the thumbnail %d",
                         keywords.c_str(), thumbnail));
}

}  // namespace workbench

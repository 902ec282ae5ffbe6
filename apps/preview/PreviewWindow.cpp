#include "apps/preview/PreviewWindow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>
#include <charconv>

#include "apps/parts/SignView.h"
#include "apps/preview/ControlBar.h"
#include "apps/preview/ElidedLabel.h"
#include "apps/preview/PictureArea.h"
#include "apps/preview/PlayActions.h"
#include "apps/preview/PlayerWords.h"
#include "apps/preview/ZoomSteps.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/Profile.h"

namespace preview {

using k4cmn::FromQt;
using k4cmn::ToQt;

namespace {

constexpr char kSection[] = "Preview";

k4cmn::Profile& TheProfile() {
    return k4cmn::Provided<k4cmn::Profile>::Current();
}

/// A slider that goes to where it is clicked.
class JumpStyle final : public QProxyStyle {
 public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_Slider_AbsoluteSetButtons)
            return Qt::LeftButton;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

}  // namespace

PreviewWindow::PreviewWindow(k4suite::IniRegistry& registry, const k4suite::DataHome& home)
    : m_registry(registry),
      m_requests(registry, home),
      m_area(new PictureArea),
      m_name(new ElidedLabel("name", ElidedLabel::Kind::Path)),
      m_facts(new ElidedLabel("facts")),
      m_slider(new QSlider(Qt::Horizontal)),
      m_place(new ElidedLabel("place")),
      m_time(new QLabel),
      m_notice(new ElidedLabel("notice")) {
    m_actions = new PlayActions(m_player, *m_area, *this);
    m_actions->AddTo(*menuBar());
    BuildSlider();
    setCentralWidget(BuildPage());
    resize(860, 560);
    ReadProfile();

    connect(&m_player, &Player::SeenChanged, this, &PreviewWindow::ShowSeen);
    connect(&m_player, &Player::StateChanged, this, &PreviewWindow::ShowState);
    connect(&m_requests, &RequestWatch::Requested, this, &PreviewWindow::Follow);
    ShowSeen();
    m_area->setFocus();
}

PreviewWindow::~PreviewWindow() = default;

void PreviewWindow::BuildSlider() {
    m_slider->setObjectName(QStringLiteral("frames"));
    m_slider->setAccessibleName(tr("Frame"));
    m_slider->setToolTip(tr("Frame (Left, Right, Home, End)"));
    auto* style = new JumpStyle;
    style->setParent(m_slider);
    m_slider->setStyle(style);
    connect(m_slider, &QSlider::valueChanged, this,
            [this](int value) { m_player.GoTo(static_cast<std::size_t>(value)); });
}

QWidget* PreviewWindow::BuildPage() {
    QFont bold = m_name->font();
    bold.setBold(true);
    m_name->setFont(bold);
    m_time->setObjectName(QStringLiteral("time"));
    m_time->setTextFormat(Qt::PlainText);
    m_notice->setVisible(false);
    QPalette warning = m_notice->palette();
    warning.setColor(QPalette::Window, QColor(255, 243, 205));
    warning.setColor(QPalette::WindowText, QColor(90, 62, 0));
    m_notice->setPalette(warning);
    m_notice->setAutoFillBackground(true);
    m_notice->setMargin(4);

    auto* place = new QHBoxLayout;
    place->addWidget(m_place, 1);
    place->addWidget(m_time);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->setSpacing(4);
    layout->addWidget(m_name);
    layout->addWidget(m_facts);
    layout->addWidget(m_area, 1);
    layout->addWidget(m_notice);
    layout->addWidget(m_slider);
    layout->addLayout(place);
    layout->addWidget(new ControlBar(*m_actions, m_player, *m_area));
    return page;
}

void PreviewWindow::ReadProfile() {
    m_player.SetLooping(TheProfile().GetString(kSection, "Repeat", "1") != "0");
    const std::string zoom = TheProfile().GetString(kSection, "Zoom");
    int number = kFit;
    std::from_chars(zoom.data(), zoom.data() + zoom.size(), number);
    if (std::find(kZooms.begin(), kZooms.end(), number) != kZooms.end())
        m_area->SetZoom(number);
    const std::string place = TheProfile().GetString(kSection, "Geometry");
    restoreGeometry(QByteArray::fromHex(QByteArray::fromStdString(place)));
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
    TheProfile().WriteString(kSection, "Geometry", saveGeometry().toHex().toStdString());
    TheProfile().WriteString(kSection, "Zoom", std::to_string(m_area->Zoom()));
    TheProfile().WriteString(kSection, "Repeat", m_player.IsLooping() ? "1" : "0");
    m_player.Pause();
    QMainWindow::closeEvent(event);
}

void PreviewWindow::ShowRequest() {
    const k4suite::PreviewRequest& request = m_requests.Last();
    Open(request.sequence, request.StartsPlaying());
}

void PreviewWindow::Follow(const k4suite::PreviewRequest& request) {
    Open(request.sequence, request.StartsPlaying());
    if (isMinimized())
        showNormal();
    raise();
    QApplication::alert(this);
}

void PreviewWindow::Open(const std::string& path, bool play) {
    const std::string name = NameOf(path);
    setWindowTitle(name.empty() ? tr("Preview") : tr("Preview - %1").arg(ToQt(name)));
    m_name->SetWords(ToQt(path));
    m_player.Open(path, play);
}

void PreviewWindow::BringToFront() {
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void PreviewWindow::ShowSeen() {
    const FrameLoader::Seen& seen = m_player.Seen();
    if (seen.picture.isNull())
        m_area->SetWords(ToQt(seen.words));
    else
        m_area->SetPicture(seen.picture);
    ShowState();
}

void PreviewWindow::ShowState() {
    const TimeLine& line = m_player.Line();
    const std::size_t index = m_player.Index();
    const bool isComplete = m_player.IsComplete();
    const QSignalBlocker quiet(m_slider);
    m_slider->setEnabled(line.Count() > 1);
    m_slider->setRange(0, static_cast<int>(std::max<std::size_t>(line.Count(), 1)) - 1);
    m_slider->setPageStep(std::max(1, m_slider->maximum() / 10));
    if (!m_slider->isSliderDown())
        m_slider->setValue(static_cast<int>(index));

    QString facts;
    QString place;
    QString time;
    if (!line.IsEmpty()) {
        const Moment& moment = line.At(index);
        facts = ToQt(FactsText(line.Files()[moment.file]));
        if (const std::string& keywords = line.Files().front().keywords; !keywords.empty())
            facts += tr("   Keywords: %1").arg(ToQt(keywords).simplified());
        place = ToQt(PlaceText(index, line.Count(), isComplete) + "   " + MomentText(line, index));
        time = tr("%1 of %2%3")
                   .arg(ToQt(TimeText(moment.start)), ToQt(TimeText(line.Duration())),
                        isComplete ? QString() : QStringLiteral("…"));
    }
    m_facts->SetWords(facts);
    m_place->SetWords(place);
    m_time->setText(time);

    const std::vector<std::string> problems = m_registry.Problems();
    const std::string notice = problems.empty() ? m_player.Notice() : problems.back();
    m_notice->SetWords(ToQt(notice));
    m_notice->setVisible(!notice.empty());
}

}  // namespace preview

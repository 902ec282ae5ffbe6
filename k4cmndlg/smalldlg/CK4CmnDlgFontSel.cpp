#include "k4cmndlg/smalldlg/CK4CmnDlgFontSel.h"

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QFontInfo>
#include <QLabel>
#include <QLayout>
#include <QPixmap>
#include <QPointer>
#include <QShowEvent>

#include "k4cmndlg/smalldlg/FontConversion.h"
#include "k4cmndlg/smalldlg/StandardColors.h"

namespace {

constexpr int kColorLabel = 1091;
constexpr int kColor = 1139;

QColor ToQtColor(std::uint32_t color) {
    const auto part = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
    return {part(0), part(8), part(16)};
}

}  // namespace

CK4CmnDlgFontSel::CK4CmnDlgFontSel(LOGFONT* font, std::uint32_t flags, CDC*, QWidget* parent)
    : QFontDialog(parent), m_font(font) {
    // The system's own dialog, where the toolkit has one, takes no controls.
    setOption(DontUseNativeDialog);
    setOption(MonospacedFonts, flags & CF_FIXEDPITCHONLY);
    setOption(ScalableFonts, flags & CF_SCALABLEONLY);
    // Strikeout and underline are the toolkit's only check boxes here, in a group of their own.
    QWidget* const effects = findChild<QCheckBox*>()->parentWidget();
    AddColor(effects);
    effects->setVisible(flags & CF_EFFECTS);
    Show({});
}

CK4CmnDlgFontSel::~CK4CmnDlgFontSel() = default;

void CK4CmnDlgFontSel::AddColor(QWidget* effects) {
    auto* const label = new QLabel(tr("&Color:"), effects);
    label->setProperty("controlId", kColorLabel);
    m_colorLabel = label;
    m_color = new QComboBox(effects);
    m_color->setProperty("controlId", kColor);
    m_color->setAccessibleName(tr("Color"));
    label->setBuddy(m_color);
    QPixmap swatch(m_color->iconSize());
    for (const k4cmn::NamedColor& color : k4cmn::kStandardColors) {
        swatch.fill(ToQtColor(color.value));
        m_color->addItem(swatch, QLatin1String(color.name), color.value);
    }
    effects->layout()->addWidget(label);
    effects->layout()->addWidget(m_color);
}

void CK4CmnDlgFontSel::Show(const LOGFONT& font) {
    QFont shown = k4cmn::ToQtFont(font);
    // The list has the faces of the machine: of a name for several of them, the one that is meant.
    shown.setFamily(QFontInfo(shown).family());
    setCurrentFont(shown);
}

int CK4CmnDlgFontSel::DoModal() {
    if (m_font)
        Show(*m_font);
    const QPointer<CK4CmnDlgFontSel> self(this);
    const bool isAccepted = exec() == Accepted;
    if (!self || !isAccepted)
        return IDCANCEL;
    if (m_font)
        k4cmn::PutFont(selectedFont(), logicalDpiY(), *m_font);
    return IDOK;
}

std::uint32_t CK4CmnDlgFontSel::GetColor() const {
    return m_color->currentData().toUInt();
}

void CK4CmnDlgFontSel::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        m_colorLabel->setVisible(m_bShowColor != 0);
        m_color->setVisible(m_bShowColor != 0);
    }
    QFontDialog::showEvent(event);
}

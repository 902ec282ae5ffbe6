#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <memory>
#include <set>

#include "k4cmndlg/smalldlg/CK4CmnDlgFontSel.h"
#include "k4cmndlg/smalldlg/FontConversion.h"
#include "k4cmndlg/smalldlg/StandardColors.h"
#include "tests/support/FontScale.h"

namespace k4test {
namespace {

using k4cmn::PutFont;
using k4cmn::ToQtFont;

constexpr int kColorLabel = 1091;
constexpr int kColor = 1139;

QWidget* Control(const QWidget& dialog, int id) {
    for (QWidget* control : dialog.findChildren<QWidget*>()) {
        if (control->property("controlId").toInt() == id)
            return control;
    }
    return nullptr;
}

QComboBox* Colors(const QWidget& dialog) {
    return qobject_cast<QComboBox*>(Control(dialog, kColor));
}

/// Runs the dialog and the steps in it, which end it; one that stays open fails the test.
template <class Steps>
int RunDialog(CK4CmnDlgFontSel& dialog, Steps steps) {
    QTimer whenShown;
    QObject::connect(&whenShown, &QTimer::timeout, &whenShown, [&] {
        if (!dialog.isVisible())
            return;
        whenShown.stop();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        steps();
    });
    QTimer tooLong;
    tooLong.setSingleShot(true);
    QObject::connect(&tooLong, &QTimer::timeout, &tooLong, [&] {
        ADD_FAILURE() << "the dialog stayed open";
        dialog.reject();
    });
    whenShown.start(std::chrono::milliseconds(0));
    tooLong.start(std::chrono::seconds(10));
    return dialog.DoModal();
}

void Press(const CK4CmnDlgFontSel& dialog, QDialogButtonBox::StandardButton button) {
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
}

/// A family of the machine that can be made bold and italic.
std::string Family() {
    for (const QString& family : QFontDatabase::families()) {
        if (QFontDatabase::isSmoothlyScalable(family) &&
            QFontDatabase::styles(family).contains(QStringLiteral("Bold")))
            return family.toStdString();
    }
    ADD_FAILURE() << "no family with a bold style";
    return {};
}

LOGFONT Example() {
    LOGFONT font;
    font.lfFaceName = Family();
    font.lfHeight = -24;
    font.lfWeight = 700;
    font.lfUnderline = 1;
    font.lfEscapement = 900;
    font.lfCharSet = 2;
    font.lfWidth = 9;
    return font;
}

// The flags --------------------------------------------------------------------------------------

TEST(FontDialog, ItsFlagsAreTheKnownNumbers) {
    EXPECT_EQ(CF_SCREENFONTS | CF_EFFECTS, 257u);
    EXPECT_EQ(CF_FIXEDPITCHONLY, 16384u);
    EXPECT_EQ(CF_SCALABLEONLY, 131072u);
}

TEST(FontDialog, ByDefaultHasNoFontNorParentAndItsEffects) {
    CK4CmnDlgFontSel dialog;
    EXPECT_EQ(dialog.parent(), nullptr);
    EXPECT_TRUE(dialog.testOption(QFontDialog::DontUseNativeDialog));
    EXPECT_FALSE(dialog.testOption(QFontDialog::MonospacedFonts));
    EXPECT_FALSE(dialog.testOption(QFontDialog::ScalableFonts));
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            EXPECT_TRUE(dialog.findChild<QCheckBox*>()->isVisible());
                            EXPECT_TRUE(Control(dialog, kColor)->isVisible());
                            EXPECT_EQ(dialog.currentFont().family(),
                                      QFontInfo(QApplication::font()).family());
                            EXPECT_EQ(dialog.currentFont().pointSize(),
                                      QFontInfo(QApplication::font()).pointSize());
                            Press(dialog, QDialogButtonBox::Ok);
                        }),
              IDOK);
}

TEST(FontDialog, FlagsConfineTheFaces) {
    const CK4CmnDlgFontSel fixed(nullptr, 257 | CF_FIXEDPITCHONLY, nullptr, nullptr);
    EXPECT_TRUE(fixed.testOption(QFontDialog::MonospacedFonts));
    EXPECT_FALSE(fixed.testOption(QFontDialog::ScalableFonts));
    const CK4CmnDlgFontSel scalable(nullptr, 257 | CF_SCALABLEONLY, nullptr, nullptr);
    EXPECT_FALSE(scalable.testOption(QFontDialog::MonospacedFonts));
    EXPECT_TRUE(scalable.testOption(QFontDialog::ScalableFonts));
}

TEST(FontDialog, UnknownFlagsMakeNoDifference) {
    LOGFONT font = Example();
    CK4CmnDlgFontSel dialog(&font, 0xFFFFFFFF & ~(CF_FIXEDPITCHONLY | CF_SCALABLEONLY), nullptr,
                            nullptr);
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            EXPECT_TRUE(Control(dialog, kColor)->isVisible());
                            Press(dialog, QDialogButtonBox::Cancel);
                        }),
              IDCANCEL);
}

TEST(FontDialog, WithoutEffectsThereAreNoneAndTheyStay) {
    LOGFONT font = Example();
    CK4CmnDlgFontSel dialog(&font, CF_SCREENFONTS, nullptr, nullptr);
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            for (const QCheckBox* effect : dialog.findChildren<QCheckBox*>())
                                EXPECT_FALSE(effect->isVisible());
                            EXPECT_FALSE(Control(dialog, kColor)->isVisible());
                            EXPECT_FALSE(Control(dialog, kColorLabel)->isVisible());
                            Press(dialog, QDialogButtonBox::Ok);
                        }),
              IDOK);
    EXPECT_EQ(font.lfUnderline, 1);
    EXPECT_EQ(font.lfStrikeOut, 0);
}

// The color --------------------------------------------------------------------------------------

TEST(FontDialog, TheColorIsChosenFromSixteen) {
    CK4CmnDlgFontSel dialog;
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            EXPECT_TRUE(Control(dialog, kColorLabel)->isVisible());
                            auto* const colors = Colors(dialog);
                            ASSERT_NE(colors, nullptr);
                            EXPECT_TRUE(colors->isVisible());
                            EXPECT_FALSE(colors->isEditable());
                            ASSERT_EQ(colors->count(), 16);
                            for (int at = 0; at < 16; ++at) {
                                const auto& color =
                                    k4cmn::kStandardColors[static_cast<std::size_t>(at)];
                                EXPECT_EQ(colors->itemText(at).toStdString(), color.name);
                                const QImage swatch =
                                    colors->itemIcon(at).pixmap(colors->iconSize()).toImage();
                                const QColor shown = swatch.pixelColor(swatch.rect().center());
                                EXPECT_EQ(static_cast<unsigned>(shown.red() | shown.green() << 8 |
                                                                shown.blue() << 16),
                                          color.value)
                                    << color.name;
                            }
                            EXPECT_EQ(dialog.GetColor(), 0u);
                            colors->setFocus();
                            QTest::keyClicks(colors, QStringLiteral("Red"));
                            EXPECT_EQ(dialog.GetColor(), 0x0000FFu);
                            Press(dialog, QDialogButtonBox::Ok);
                        }),
              IDOK);
    EXPECT_EQ(dialog.GetColor(), 0x0000FFu);
}

TEST(FontDialog, TheStandardColorsDiffer) {
    std::set<std::uint32_t> values;
    std::set<std::string> names;
    for (const k4cmn::NamedColor& color : k4cmn::kStandardColors) {
        values.insert(color.value);
        names.insert(color.name);
    }
    EXPECT_EQ(values.size(), 16u);
    EXPECT_EQ(names.size(), 16u);
}

TEST(FontDialog, ShowColorHidesItAndOnlyIt) {
    CK4CmnDlgFontSel dialog;
    for (const int show : {0, 1, 0, -1}) {
        dialog.ShowColor(show);
        RunDialog(dialog, [&] {
            EXPECT_EQ(Control(dialog, kColor)->isVisible(), show != 0) << show;
            EXPECT_EQ(Control(dialog, kColorLabel)->isVisible(), show != 0) << show;
            for (const QCheckBox* effect : dialog.findChildren<QCheckBox*>())
                EXPECT_TRUE(effect->isVisible());
            Press(dialog, QDialogButtonBox::Cancel);
        });
    }
}

TEST(FontDialog, TheLabelLeadsToTheColor) {
    CK4CmnDlgFontSel dialog;
    RunDialog(dialog, [&] {
        const auto* const label = qobject_cast<QLabel*>(Control(dialog, kColorLabel));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text().toStdString(), "&Color:");
        EXPECT_EQ(label->buddy(), Colors(dialog));
        EXPECT_EQ(Colors(dialog)->accessibleName().toStdString(), "Color");
        QTest::keyClick(&dialog, Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(Colors(dialog)->hasFocus());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

// The font ---------------------------------------------------------------------------------------

TEST(FontDialog, BeginsWithTheFontAndGivesItBack) {
    LOGFONT font = Example();
    LOGFONT expected = font;
    expected.lfWidth = 0;
    CK4CmnDlgFontSel dialog(&font, 257, nullptr, nullptr);
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            const QFont shown = dialog.currentFont();
                            EXPECT_EQ(shown.family().toStdString(), font.lfFaceName);
                            EXPECT_EQ(shown.weight(), QFont::Bold);
                            EXPECT_TRUE(shown.underline());
                            EXPECT_FALSE(shown.strikeOut());
                            Press(dialog, QDialogButtonBox::Ok);
                        }),
              IDOK);
    EXPECT_EQ(font, expected);
}

TEST(FontDialog, OnOkTheFontIsTheOneThatWasChosen) {
    LOGFONT font = Example();
    CK4CmnDlgFontSel dialog(&font, 257, nullptr, nullptr);
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            for (QCheckBox* effect : dialog.findChildren<QCheckBox*>())
                                QTest::mouseClick(
                                    effect, Qt::LeftButton, {},
                                    QPoint(effect->height() / 2, effect->height() / 2));
                            QFont other = dialog.currentFont();
                            other.setPointSize(36);
                            dialog.setCurrentFont(other);
                            Press(dialog, QDialogButtonBox::Ok);
                        }),
              IDOK);
    EXPECT_EQ(font.lfUnderline, 0);
    EXPECT_EQ(font.lfStrikeOut, 1);
    EXPECT_EQ(font.lfHeight, -qRound(36.0 * dialog.logicalDpiY() / 72));
    EXPECT_EQ(font.lfEscapement, 900) << "what can't be chosen stays";
    EXPECT_EQ(font.lfCharSet, 2);
}

TEST(FontDialog, CancelLeavesTheFont) {
    LOGFONT font = Example();
    const LOGFONT before = font;
    CK4CmnDlgFontSel dialog(&font, 257, nullptr, nullptr);
    EXPECT_EQ(RunDialog(dialog,
                        [&] {
                            dialog.setCurrentFont(QFont(QStringLiteral("Else"), 40));
                            Press(dialog, QDialogButtonBox::Cancel);
                        }),
              IDCANCEL);
    EXPECT_EQ(font, before);
    EXPECT_EQ(RunDialog(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Escape); }), IDCANCEL);
    EXPECT_EQ(RunDialog(dialog, [&] { dialog.close(); }), IDCANCEL);
    EXPECT_EQ(font, before);
}

TEST(FontDialog, OddFontsOpenAllTheSame) {
    std::vector<LOGFONT> odd(6);
    odd[1].lfFaceName = "No such face \xC3\xA9 %s";
    odd[2].lfHeight = -2147483647 - 1;
    odd[3].lfHeight = 2147483647;
    odd[4].lfWeight = 2147483647;
    odd[5].lfWeight = -1;
    odd[5].lfFaceName = std::string(5000, 'x');
    for (LOGFONT& font : odd) {
        CK4CmnDlgFontSel dialog(&font, 257, nullptr, nullptr);
        EXPECT_EQ(RunDialog(dialog, [&] { Press(dialog, QDialogButtonBox::Ok); }), IDOK);
        EXPECT_LT(font.lfHeight, 0);
        EXPECT_GE(font.lfHeight, -8192);
        EXPECT_GE(font.lfWeight, 1);
        EXPECT_LE(font.lfWeight, 1000);
        EXPECT_FALSE(font.lfFaceName.empty());
    }
}

TEST(FontDialog, ThatGoesWithItsParentIsCanceled) {
    auto parent = std::make_unique<QWidget>();
    LOGFONT font = Example();
    const LOGFONT before = font;
    auto* const dialog = new CK4CmnDlgFontSel(&font, 257, nullptr, parent.get());
    EXPECT_EQ(RunDialog(*dialog, [&] { parent.reset(); }), IDCANCEL);
    EXPECT_EQ(font, before);
}

TEST(FontDialog, FitsASmallScreenAtAnyFontSize) {
    for (const double factor : {1.0, 1.5, 2.0}) {
        const FontScale scale(factor);
        CK4CmnDlgFontSel dialog;
        RunDialog(dialog, [&] {
            EXPECT_LE(dialog.minimumSizeHint().width(), 800) << factor;
            EXPECT_LE(dialog.minimumSizeHint().height(), 600) << factor;
            for (const int id : {kColorLabel, kColor}) {
                const QWidget* const control = Control(dialog, id);
                EXPECT_GE(control->height(), control->minimumSizeHint().height()) << factor;
                EXPECT_GE(control->width(), control->minimumSizeHint().width()) << factor;
            }
            Press(dialog, QDialogButtonBox::Cancel);
        });
    }
}

// Conversion -------------------------------------------------------------------------------------

TEST(FontConversion, HeightsBelowZeroAreThoseOfLetters) {
    for (const int dots : {1, 8, 13, 16, 96, 4096}) {
        LOGFONT font;
        font.lfHeight = -dots;
        EXPECT_EQ(ToQtFont(font).pixelSize(), dots);
        LOGFONT back;
        PutFont(ToQtFont(font), 96, back);
        EXPECT_EQ(back.lfHeight, -dots);
    }
    LOGFONT huge;
    huge.lfHeight = -2147483647 - 1;
    EXPECT_EQ(ToQtFont(huge).pixelSize(), 4096);
}

TEST(FontConversion, HeightsAboveZeroAreThoseOfLines) {
    for (const int line : {10, 20, 40, 200}) {
        LOGFONT font;
        font.lfFaceName = Family();
        font.lfHeight = line;
        const QFont made = ToQtFont(font);
        EXPECT_LT(made.pixelSize(), line);
        EXPECT_NEAR(QFontMetricsF(made).height(), line, 2.0);
    }
    LOGFONT smallest;
    smallest.lfHeight = 1;
    EXPECT_EQ(ToQtFont(smallest).pixelSize(), 1);
}

TEST(FontConversion, PointsBecomeDotsOfTheScreen) {
    const std::pair<double, int> rows[] = {{96, -16}, {72, -12}, {120, -20}, {192, -32}};
    for (const auto& [dotsPerInch, height] : rows) {
        LOGFONT font;
        PutFont(QFont(QStringLiteral("Any"), 12), dotsPerInch, font);
        EXPECT_EQ(font.lfHeight, height) << dotsPerInch;
    }
}

TEST(FontConversion, WhatSaysNothingIsAsInTheApplication) {
    const QFont usual = ToQtFont({});
    EXPECT_EQ(usual, QApplication::font());
}

TEST(FontConversion, EachAttributeGoesBothWays) {
    for (const int weight : {100, 400, 700, 1000}) {
        for (const std::uint8_t on : {std::uint8_t{0}, std::uint8_t{1}}) {
            LOGFONT font;
            font.lfFaceName = "Some Face";
            font.lfHeight = -20;
            font.lfWeight = weight;
            font.lfItalic = on;
            font.lfUnderline = on;
            font.lfStrikeOut = static_cast<std::uint8_t>(1 - on);
            LOGFONT back;
            PutFont(ToQtFont(font), 96, back);
            EXPECT_EQ(back, font) << weight;
        }
    }
    LOGFONT heavy;
    heavy.lfWeight = 5000;
    EXPECT_EQ(ToQtFont(heavy).weight(), 1000);
}

}  // namespace
}  // namespace k4test

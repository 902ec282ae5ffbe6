#include "k4cmndlg/frame/PathField.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>
#include <QVBoxLayout>

namespace {

using k4cmn::ElidedPath;
using k4cmn::PathField;

const QString kFolder = QStringLiteral("A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\Summer.Fld");
const QString kName = QStringLiteral("\\Goal of the Month.SQ4");
const QString kDots = QStringLiteral("\u2026");

QFontMetrics Font() {
    return QFontMetrics(QApplication::font());
}

int WidthOf(const QString& text) {
    return Font().horizontalAdvance(text);
}

TEST(ElidedPath, StaysWholeWhereItHasRoom) {
    const QString path = kFolder + kName;
    EXPECT_EQ(ElidedPath(path, Font(), WidthOf(path)), path);
    EXPECT_EQ(ElidedPath(QString(), Font(), 0), QString());
}

TEST(ElidedPath, LosesOfItsFoldersWhatLiesInTheMiddle) {
    const QString path = kFolder + kName;
    for (const int room : {WidthOf(path) - 1, WidthOf(path) * 2 / 3, WidthOf(kName + kDots) + 1}) {
        const QString shown = ElidedPath(path, Font(), room);
        EXPECT_LE(WidthOf(shown), room + 1) << shown.toStdString();
        EXPECT_TRUE(shown.endsWith(kName)) << shown.toStdString();
        EXPECT_EQ(shown.count(kDots), 1) << shown.toStdString();
    }
    EXPECT_TRUE(ElidedPath(path, Font(), WidthOf(path) - 1).startsWith(QStringLiteral("A:\\64x")));
}

TEST(ElidedPath, PathOfThisMachineKeepsItsNameToo) {
    const QString path = QStringLiteral("/srv/signs/libraries/of/the/north/stand/Goal.SQ4");
    const QString shown = ElidedPath(path, Font(), WidthOf(path) / 2);
    EXPECT_TRUE(shown.endsWith(QStringLiteral("/Goal.SQ4"))) << shown.toStdString();
}

TEST(ElidedPath, NameThatIsTooLongLosesItsMiddle) {
    const QString path = kFolder + kName;
    const QString shown = ElidedPath(path, Font(), WidthOf(kName) / 2);
    EXPECT_LE(WidthOf(shown), WidthOf(kName) / 2 + 1);
    EXPECT_TRUE(shown.endsWith(QStringLiteral("4"))) << shown.toStdString();
    EXPECT_TRUE(shown.contains(kDots)) << shown.toStdString();
}

class PathFieldInWindow : public testing::Test {
 protected:
    PathFieldInWindow() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(other);
        column->addWidget(field);
        field->setFixedWidth(WidthOf(kFolder));
        field->SetPath(kFolder + kName);
        window.show();
        other->setFocus();
    }

    QWidget window;
    QLineEdit* other = new QLineEdit;
    PathField* field = new PathField;
};

TEST_F(PathFieldInWindow, ShowsTheNameAndTellsAll) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_TRUE(field->Shown().endsWith(kName)) << field->Shown().toStdString();
    EXPECT_TRUE(field->Shown().contains(kDots));
    EXPECT_EQ(field->text(), kFolder + kName);
    EXPECT_EQ(field->toolTip(), QStringLiteral("<qt>%1</qt>").arg(kFolder + kName));
    EXPECT_TRUE(field->isReadOnly());
}

TEST_F(PathFieldInWindow, ShowsAllOfItWithTheFocusFromItsEnd) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field->setFocus();
    EXPECT_EQ(field->Shown(), field->text());
    EXPECT_EQ(field->cursorPosition(), field->text().size());
    QTest::keyClick(field, Qt::Key_Home);
    EXPECT_EQ(field->cursorPosition(), 0);
}

TEST_F(PathFieldInWindow, DrawsWhatItShows) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const QImage cut = field->grab().toImage();
    field->SetPath(field->Shown());
    EXPECT_EQ(field->grab().toImage(), cut) << "as the field itself draws that text";
}

TEST_F(PathFieldInWindow, TipOfANameWithSignsOfMarkupIsPlain) {
    field->SetPath(QStringLiteral("A:\\<b>R&D.SQ4"));
    EXPECT_EQ(field->toolTip(), QStringLiteral("<qt>A:\\&lt;b&gt;R&amp;D.SQ4</qt>"));
    field->SetPath(QString());
    EXPECT_EQ(field->toolTip(), QString());
}

}  // namespace

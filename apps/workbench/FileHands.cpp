#include "apps/workbench/FileHands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include "apps/workbench/TourHands.h"
#include "k4cmndlg/filesel/FileListWidget.h"

namespace workbench {

namespace {

// Control ids of the file selection dialog.
constexpr int kTree = 1070;
constexpr int kList = 1071;

constexpr int kPollTime = 20;  // milliseconds

QModelIndex Child(const QAbstractItemModel& model, const QModelIndex& parent,
                  const QString& beginning) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data().toString().startsWith(beginning, Qt::CaseInsensitive))
            return index;
    }
    return {};
}

/// Gives a control the focus, and its window too: a window manager does that for a person.
void Focus(QWidget& control) {
    control.window()->activateWindow();
    control.setFocus();
    Until([&] { return control.hasFocus(); });
}

QString PlainText(QString text) {
    return text.remove(QLatin1Char('&'));
}

}  // namespace

void ClickAt(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    const QRect seen = view.visualRect(index).intersected(view.viewport()->rect());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, seen.center());
}

bool ClickItemOf(QTreeView& tree, const QStringList& way) {
    QModelIndex index;
    for (const QString& beginning : way) {
        if (index.isValid()) {
            ClickAt(tree, index);
            if (!tree.isExpanded(tree.currentIndex()))
                QTest::keyClick(&tree, Qt::Key_Right);
            index = tree.currentIndex();
        }
        index = Child(*tree.model(), index, beginning);
        if (!index.isValid())
            return false;
    }
    ClickAt(tree, index);
    return true;
}

bool ClickItem(QWidget& dialog, const QStringList& way) {
    auto* tree = qobject_cast<QTreeView*>(Control(dialog, kTree));
    return tree && ClickItemOf(*tree, way);
}

QAbstractItemView& FileList(QWidget& dialog) {
    auto* list = qobject_cast<k4cmn::FileListWidget*>(Control(dialog, kList));
    return *qobject_cast<QAbstractItemView*>(list->currentWidget());
}

QStringList ListTexts(QWidget& dialog, int column) {
    const QAbstractItemModel& model = *FileList(dialog).model();
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, column).data().toString());
    return texts;
}

bool ClickRow(QWidget& dialog, const QString& name) {
    const auto row = ListTexts(dialog).indexOf(name);
    if (row < 0)
        return false;
    QAbstractItemView& list = FileList(dialog);
    ClickAt(list, list.model()->index(static_cast<int>(row), 0));
    return true;
}

void ClickBesideRows(QWidget& dialog) {
    QWidget* place = FileList(dialog).viewport();
    QTest::mouseClick(place, Qt::LeftButton, {}, place->rect().bottomLeft() + QPoint(8, -8));
}

void ClickHeadingOf(QTreeView& list, int column) {
    QHeaderView* header = list.header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(column) + 8, header->height() / 2));
}

void ClickHeading(QWidget& dialog, int column) {
    if (auto* list = qobject_cast<QTreeView*>(&FileList(dialog)))
        ClickHeadingOf(*list, column);
}

bool ChooseFromMenu(QWidget& control, const QString& text) {
    bool chosen = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction* action : menu->actions()) {
            if (PlainText(action->text()) != text || !action->isEnabled())
                continue;
            poll.stop();
            chosen = true;
            menu->setActiveAction(action);
            QTest::keyClick(menu, Qt::Key_Return);
            return;
        }
        poll.stop();
        menu->close();
    });
    Focus(control);
    poll.start(kPollTime);
    QTest::keyClick(&control, Qt::Key_F10, Qt::ShiftModifier);
    Until([&] { return !poll.isActive(); });
    // What was chosen is carried out when the menu is done.
    QCoreApplication::processEvents();
    return chosen;
}

void Press(QWidget& control, const QKeySequence& keys) {
    Focus(control);
    QTest::keySequence(&control, keys);
    QCoreApplication::processEvents();
}

BoxAnswers::BoxAnswers() : m_poll(std::make_unique<QTimer>()) {
    QObject::connect(m_poll.get(), &QTimer::timeout, m_poll.get(), [this] { Look(); });
    m_poll->start(kPollTime);
}

BoxAnswers::~BoxAnswers() = default;

void BoxAnswers::Expect(const QString& text, const QString& button) {
    m_expected.push_back({text, button});
}

void BoxAnswers::Look() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    if (!m_expected.empty() && box->text().contains(m_expected.front().text)) {
        const Box expected = m_expected.front();
        m_expected.pop_front();
        if (Press(*box, expected))
            return;
    }
    m_unexpected.append(box->text());
    box->close();
}

bool BoxAnswers::Press(QMessageBox& box, const Box& expected) {
    for (QAbstractButton* button : box.buttons()) {
        if (PlainText(button->text()) == expected.button) {
            button->click();
            return true;
        }
    }
    return false;
}

}  // namespace workbench

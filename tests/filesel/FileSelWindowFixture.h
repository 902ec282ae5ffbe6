#pragma once

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"
#include "k4cmndlg/filesel/FileListWidget.h"
#include "k4cmndlg/filesel/FileTreeWidget.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/filesel/SelectorFixture.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"

namespace k4test {

/// The window "Select File" over the drives A: and B: of a store of the test's own. A: holds the
/// sign type kType with the libraries "Default" (a, b, c) and "Other", and kOtherType.
class FileSelWindow : public SelectorFixture {
 protected:
    enum : int {
        kTree = 1070,
        kList = 1071,
        kPath = 1072,
        kFileName = 1073,
        kFileTypes = 1074,
        kLastModified = 1075,
        kSearch = 1076,
        kUp = 1077,
        kListView = 1078,
        kProperties = 1079,
        kDetails = 1080,
        kSignFilter = 1081,
    };

    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"a", "b", "c"})
            MakeFile(Lib() + name + ".SQ4");
        MakeFile(Lib("Other") + "o.SQ4");
        MakeFolder(Sign(kOtherType) + "Default.Lib");
    }
    void TearDown() override {
        if (dialog)
            dialog->DestroyWindow();
        dialog.reset();
    }

    static std::string Sign(const std::string& type) { return "A:\\" + type + ".Sign\\"; }
    static std::string Lib(const std::string& library = "Default") {
        return Sign(kType) + library + ".Lib\\";
    }
    static FileLocation At(const std::string& file = {}, const std::string& extension = "SQ4") {
        return {"A:", kType, "Default", file, extension};
    }
    /// Makes a sequence that can be opened.
    void MakeSequence(const std::string& path) {
        MakeFile(path);
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        k4suite::SequenceWriter writer(Native(path).string(), facts);
        const std::vector<std::uint8_t> dark(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(7, 16, 0)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 500, dark)) << writer.Problem();
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }

    CK4CmnDlgFileSel& New(tag_K4_FILE_MODE mode = K4_FILE_OPEN) {
        dialog = std::make_unique<CK4CmnDlgFileSel>();
        dialog->SetMode(mode);
        return *dialog;
    }
    /// Shows the dialog, which then goes on beside the test.
    void Show() {
        ASSERT_EQ(dialog->Create(), 1);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        Settle();
    }
    /// Shows a dialog that comes back to a place.
    void ShowAt(const FileLocation& place, tag_K4_FILE_MODE mode = K4_FILE_OPEN) {
        Remember(place);
        New(mode);
        Show();
    }
    /// Runs a new dialog by DoFileSelection().
    template <class Steps>
    std::string Select(tag_K4_FILE_MODE mode, Steps steps) {
        New(mode);
        return RunModalBy(
            *dialog, [&] { return dialog->DoFileSelection(); },
            [&] {
                Settle();
                steps();
                Settle();
            });
    }
    /// Lets everything happen that has been asked for.
    static void Settle() {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    template <class Control>
    Control* The(int id) const {
        return Item<Control>(*dialog, id);
    }
    k4cmn::FileListWidget& List() const {
        return *static_cast<k4cmn::FileListWidget*>(Item<QWidget>(*dialog, kList));
    }
    k4cmn::FileTreeWidget& Tree() const {
        return *static_cast<k4cmn::FileTreeWidget*>(Item<QWidget>(*dialog, kTree));
    }
    std::string Text(int id) const { return TextOf(*dialog, id); }
    void Press(int id) {
        Click(*dialog, id);
        Settle();
    }
    void Type(const char* text) { TypeOver(*dialog, kFileName, QString::fromUtf8(text)); }
    void Choose(int combo, const char* text) {
        The<QComboBox>(combo)->setFocus();
        The<QComboBox>(combo)->setCurrentText(QString::fromUtf8(text));
        Settle();
    }
    bool IsPressed(int button) const { return The<QToolButton>(button)->isChecked(); }

    // The list.
    QAbstractItemView& Rows() const {
        return *static_cast<QAbstractItemView*>(List().currentWidget());
    }
    std::string Cell(int row, int column) const {
        return Rows().model()->index(row, column).data().toString().toStdString();
    }
    std::vector<std::string> RowNames() const {
        std::vector<std::string> names;
        for (int row = 0; row < Rows().model()->rowCount(); ++row)
            names.push_back(Cell(row, 0));
        return names;
    }
    std::vector<std::string> SelectedNames() const {
        std::vector<std::string> names;
        for (const std::size_t row : List().SelectedRows())
            names.push_back(Cell(static_cast<int>(row), 0));
        return names;
    }
    QPoint PlaceOf(const std::string& name) const {
        const QAbstractItemModel& model = *Rows().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (Cell(row, 0) == name)
                return Rows().visualRect(model.index(row, 0)).center();
        }
        ADD_FAILURE() << "no such row: " << name;
        return {};
    }
    void ClickRow(const std::string& name, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(Rows().viewport(), Qt::LeftButton, modifiers, PlaceOf(name));
        Settle();
    }
    void DoubleClickRow(const std::string& name) {
        QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, PlaceOf(name));
        QTest::mouseDClick(Rows().viewport(), Qt::LeftButton, {}, PlaceOf(name));
        Settle();
    }
    /// Presses a key in the list.
    void KeyInList(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        List().setFocus();
        QTest::keyClick(dialog->windowHandle(), key, modifiers);
        Settle();
    }
    void KeyInTree(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        Tree().setFocus();
        QTest::keyClick(dialog->windowHandle(), key, modifiers);
        Settle();
    }
    QLineEdit* LabelEditor() const {
        for (QLineEdit* editor : List().findChildren<QLineEdit*>()) {
            if (editor->isVisible())
                return editor;
        }
        return nullptr;
    }

    // The tree.
    /// The item at a path of texts; opens those above it.
    QModelIndex ItemAt(const std::vector<std::string>& path) {
        QModelIndex at;
        for (const std::string& text : path) {
            if (at.isValid())
                Tree().expand(at);
            at = Below(at, text);
            if (!at.isValid()) {
                ADD_FAILURE() << "no such item: " << text;
                return {};
            }
        }
        return at;
    }
    QModelIndex Below(const QModelIndex& above, const std::string& text) const {
        const QAbstractItemModel& model = *Tree().model();
        for (int row = 0; row < model.rowCount(above); ++row) {
            const QModelIndex index = model.index(row, 0, above);
            const std::string own = index.data().toString().toStdString();
            if (own == text || own.starts_with(text + " , "))
                return index;
        }
        return {};
    }
    void ClickItem(const std::vector<std::string>& path) {
        const QModelIndex index = ItemAt(path);
        Tree().scrollTo(index);
        const QRect place = Tree().visualRect(index);
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                          QPoint(place.left() + 4, place.center().y()));
        Settle();
    }
    std::string SelectedItem() const {
        const QModelIndexList selected = Tree().selectionModel()->selectedIndexes();
        return selected.isEmpty() ? std::string() : selected[0].data().toString().toStdString();
    }

    // The menu.
    /// Opens the context menu by a click on a place of the list or the tree.
    QMenu* MenuAt(QAbstractItemView& pane, const QPoint& place) {
        QContextMenuEvent request(QContextMenuEvent::Mouse, place,
                                  pane.viewport()->mapToGlobal(place));
        QApplication::sendEvent(pane.viewport(), &request);
        return OpenMenu();
    }
    static QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static std::vector<std::string> TextsOf(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* action : menu.actions())
            texts.push_back(action->isSeparator() ? std::string() : action->text().toStdString());
        return texts;
    }
    static QAction* Entry(const QMenu& menu, const std::string& text) {
        for (QAction* action : menu.actions()) {
            if (action->text().toStdString() == text)
                return action;
        }
        ADD_FAILURE() << "no such entry: " << text;
        return nullptr;
    }
    static std::vector<std::string> EnabledOf(const QMenu& menu) {
        std::vector<std::string> texts;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator() && action->isEnabled())
                texts.push_back(action->text().toStdString());
        }
        return texts;
    }
    /// Chooses an entry of the menu over the list.
    void ChooseEntry(const std::string& text) {
        QMenu* const menu = MenuAt(Rows(), QPoint(5, Rows().viewport()->height() - 3));
        ASSERT_NE(menu, nullptr);
        QAction* const action = Entry(*menu, text);
        ASSERT_TRUE(action && action->isEnabled()) << text;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        Settle();
    }

    static k4cmn::Message Question(
        const std::string& text, k4cmn::MessageButtons buttons = k4cmn::MessageButtons::OkCancel) {
        return {text, {}, buttons, k4cmn::MessageIcon::Question};
    }
    static std::string AlreadyExists(const std::string& path) {
        return path +
               "\nFile already exists.\nPlease verify that the path and file name are correct.\n"
               "Yes, File is valid \nNo, File is not valid \nCancel, Cancel this operation";
    }
    static std::string NotFound(const std::string& path) {
        return path + "\nFile not found.\nDo you want to create a new file?";
    }
    std::uint32_t KeptEdge() {
        std::uint32_t edge = 0;
        if (const auto key = registry.OpenUserKey("File Locations", "Previous Selection", 0))
            key->GetDword("Tree Right Edge", &edge);
        return edge;
    }
    void KeepEdge(std::uint32_t edge) {
        const auto key = registry.OpenUserKey("File Locations", "Previous Selection", 1);
        ASSERT_EQ(key->SetDword("Tree Right Edge", edge), 1);
    }
    CK4CmnDlgFileProp* Sheet() const { return dialog->findChild<CK4CmnDlgFileProp*>(); }

    MessageQueue messages;
    k4suite::RiffSequenceLibrary sequences{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences{sequences};
    std::unique_ptr<CK4CmnDlgFileSel> dialog;
};

}  // namespace k4test

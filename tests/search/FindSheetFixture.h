#pragma once

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "k4cmndlg/search/FoundListWidget.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/filesel/SelectorFixture.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"

namespace k4test {

/// The window "Find Files" over the drives A: and B: of a store of the test's own. A: holds the
/// sign type kType with the libraries "Default" (apple, Birch, cedar) and "Other" (apple, oak); B:
/// holds kOtherType with the library "Far" (willow).
class FindSheet : public SelectorFixture {
 protected:
    enum : int {
        kKeywords = 1101,
        kFileName = 1104,
        kFileType = 1105,
        kLookIn = 1106,
        kRows = 1112,
        kColumns = 1114,
        kFind = 1160,
        kNew = 1161,
        kPrevious = 1162,
        kResults = 1163,
    };
    enum : int { kNamePage, kSignPage, kSizePage };

    void SetUp() override {
        SelectorFixture::SetUp();
        for (const char* name : {"cedar", "apple", "Birch"})
            MakeFile(Lib() + name + ".SQ4");
        for (const char* name : {"oak", "apple"})
            MakeFile(Lib("Other") + name + ".SQ4");
        MakeFile(Far() + "willow.SQ4");
    }
    void TearDown() override {
        if (QMenu* menu = OpenMenu())
            menu->close();
        if (dialog)
            dialog->DestroyWindow();
        dialog.reset();
        Settle();
    }

    static std::string Lib(const std::string& library = "Default") {
        return std::string("A:\\") + kType + ".Sign\\" + library + ".Lib\\";
    }
    static std::string Far() { return std::string("B:\\") + kOtherType + ".Sign\\Far.Lib\\"; }
    /// Makes a sequence that can be opened.
    void MakeSequence(const std::string& path, const std::string& keywords = {}) {
        MakeFile(path);
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.keywords = keywords;
        k4suite::SequenceWriter writer(Native(path).string(), facts);
        const std::vector<std::uint8_t> dark(
            static_cast<std::size_t>(k4cmn::BytesOfFrame(7, 16, 0)));
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 500, dark)) << writer.Problem();
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }

    /// A new dialog that searches A:.
    CK4CmnDlgFind& Make(const std::string& path = "A:\\") {
        dialog = std::make_unique<CK4CmnDlgFind>("Find Files", nullptr);
        dialog->SetSearchPath(path);
        return *dialog;
    }
    /// Shows the dialog, which then goes on beside the test.
    void Show() {
        ASSERT_EQ(dialog->Create(), 1);
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        Settle();
    }
    /// A new dialog that shows what was found at a path.
    void ShowFound(const std::string& path = "A:\\") {
        Make(path);
        Show();
        Press(kFind);
    }
    /// Runs the dialog by DoModal().
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(*dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
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
    void Press(int id) {
        Click(*dialog, id);
        Settle();
    }
    void Type(int id, const char* text) { TypeOver(*dialog, id, QString::fromUtf8(text)); }
    /// Where the strip says how many files there are.
    QLabel* CountLabel() const {
        return dialog->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    }
    std::string Count() const { return CountLabel()->text().toStdString(); }

    // The list.
    k4cmn::FoundListWidget* List() const {
        return qobject_cast<k4cmn::FoundListWidget*>(dialog->GetDlgItem(kResults));
    }
    QTreeView& Rows() const { return *List()->findChild<QTreeView*>(); }
    std::string Cell(int row, int column) const {
        return Rows().model()->index(row, column).data().toString().toStdString();
    }
    std::vector<std::string> Column(int column) const {
        std::vector<std::string> texts;
        for (int row = 0; row < Rows().model()->rowCount(); ++row)
            texts.push_back(Cell(row, column));
        return texts;
    }
    std::vector<std::string> Names() const { return Column(0); }
    std::vector<std::string> Paths() const { return Column(1); }
    QPoint PlaceOf(int row) const {
        const QModelIndex index = Rows().model()->index(row, 0);
        EXPECT_TRUE(index.isValid()) << row;
        Rows().scrollTo(index);
        return Rows().visualRect(index).center();
    }
    /// A place below all rows, for which the window becomes higher.
    QPoint Beside() const {
        dialog->resize(dialog->width(), dialog->height() + 200);
        Settle();
        const QPoint place(5, Rows().viewport()->height() - 3);
        EXPECT_FALSE(Rows().indexAt(place).isValid());
        return place;
    }
    int RowOf(const std::string& path) const {
        const std::vector<std::string> paths = Paths();
        const auto found = std::find(paths.begin(), paths.end(), path);
        EXPECT_NE(found, paths.end()) << path;
        return static_cast<int>(found - paths.begin());
    }
    void ClickAt(const QPoint& place) {
        QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, place);
        Settle();
    }
    void ClickRow(const std::string& path) { ClickAt(PlaceOf(RowOf(path))); }
    void DoubleClickAt(const QPoint& place) {
        QTest::mouseClick(Rows().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(Rows().viewport(), Qt::LeftButton, {}, place);
        Settle();
    }
    void ClickHeading(int column) {
        QHeaderView& header = *Rows().header();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + 20, header.height() / 2));
        Settle();
    }
    void KeyInList(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        Rows().setFocus();
        QTest::keyClick(dialog->windowHandle(), key, modifiers);
        Settle();
    }

    // The menu.
    QMenu* MenuAt(const QPoint& place) {
        QContextMenuEvent request(QContextMenuEvent::Mouse, place,
                                  Rows().viewport()->mapToGlobal(place));
        QApplication::sendEvent(Rows().viewport(), &request);
        Settle();
        return OpenMenu();
    }
    static QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static QAction* Entry(const QMenu& menu, const std::string& text) {
        for (QAction* action : menu.actions()) {
            if (action->text().toStdString() == text)
                return action;
        }
        ADD_FAILURE() << "no such entry: " << text;
        return nullptr;
    }
    /// Chooses an entry of the menu over a row.
    void ChooseEntry(const std::string& path, const std::string& text) {
        QMenu* const menu = MenuAt(PlaceOf(RowOf(path)));
        ASSERT_NE(menu, nullptr);
        QAction* const action = Entry(*menu, text);
        ASSERT_TRUE(action && action->isEnabled()) << text;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        Settle();
    }

    CK4CmnDlgFileProp* Sheet() const { return dialog->findChild<CK4CmnDlgFileProp*>(); }
    static k4cmn::Message CantSearch(const std::string& path) {
        return {"Error opening Sequence: \n" + path,
                {},
                k4cmn::MessageButtons::Ok,
                k4cmn::MessageIcon::Stop};
    }

    MessageQueue messages;
    k4suite::RiffSequenceLibrary sequences{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences{sequences};
    std::unique_ptr<CK4CmnDlgFind> dialog;
};

}  // namespace k4test

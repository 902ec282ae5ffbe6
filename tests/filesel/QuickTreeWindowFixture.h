#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filesel/BottomGrip.h"
#include "k4cmndlg/filesel/CK4CmnDlgK4FileTree.h"
#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "suite/quicktree/QuickFileTree.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// A window of an application, that keeps the messages it is sent.
class QuickTreeOwner final : public QWidget {
 public:
    QuickTreeOwner() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(field);
        layout->addWidget(other);
    }
    bool event(QEvent* event) override {
        k4cmn::WindowMessage* const message = k4cmn::WindowMessage::From(event);
        if (!message)
            return QWidget::event(event);
        told.emplace_back(message->number, message->wParam);
        return true;
    }
    /// The numbers of the messages, once all that are posted have come.
    std::vector<std::uint32_t> Numbers() {
        QCoreApplication::sendPostedEvents(this);
        std::vector<std::uint32_t> numbers;
        for (const auto& message : told)
            numbers.push_back(message.first);
        return numbers;
    }

    QLineEdit* field = new QLineEdit(this);
    QLineEdit* other = new QLineEdit(this);
    std::vector<std::pair<std::uint32_t, std::uintptr_t>> told;  ///< number and first parameter
};

/// The quick tree window over the real folders of the server "A:", for an application's window.
class QuickTreeWindow : public StoreFixture {
 protected:
    static constexpr char kFile[] = "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4";
    static constexpr char kLibrary[] = "A:\\16x80.Mono1.LED.Sign\\Default.Lib";
    static constexpr char kKey[] = "Application";

    void SetUp() override {
        StoreFixture::SetUp();
        MakeFile(kFile);
        MakeFile("A:\\48x160.Quad16.Incand.Sign\\News.Lib\\Today.SQ4");
        ConfigureLocal({"A:"});
        owner.show();
        ASSERT_TRUE(WaitUntilActive(&owner));
        owner.field->setFocus();
    }
    void TearDown() override { tree.reset(); }

    /// Waits until a window is the active one. The toolkit's own wait is content with a window that
    /// belongs to the active one.
    static bool WaitUntilActive(QWidget* window) {
        return QTest::qWaitFor([=] { return QApplication::activeWindow() == window; });
    }
    /// Makes the window, without opening it.
    void Make(const char* key = kKey, int expand = 0) {
        tree = std::make_unique<CK4CmnDlgK4FileTree>(&owner, key, expand);
    }
    void Open() {
        // What an earlier window told at its end.
        owner.Numbers();
        owner.told.clear();
        EXPECT_EQ(tree->Create(), 1);
        ASSERT_TRUE(WaitUntilActive(tree.get()));
        EXPECT_THAT(owner.Numbers(), testing::IsEmpty());
    }
    /// Makes the window and opens it at a place.
    void OpenAt(const QRect& place, const char* key = kKey) {
        Make(key);
        tree->SetInitialPosition(place, 0);
        Open();
    }
    std::string Selected() const {
        std::string path = "untouched";
        tree->GetSelectedFile(path);
        return path;
    }
    QTreeView* View() const { return tree->findChild<QTreeView*>(); }
    K4QuickFileTreeCtrl* Control() const { return tree->findChild<K4QuickFileTreeCtrl*>(); }
    k4cmn::BottomGrip* Grip() const { return tree->findChild<k4cmn::BottomGrip*>(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier) {
        QWidget* const focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : tree.get(), key, keys);
    }
    /// Takes the lower border and moves it by so much, in one move.
    void Drag(int by) {
        const QPoint start = Grip()->rect().center();
        QTest::mousePress(Grip(), Qt::LeftButton, {}, start);
        const QPointF to = start + QPoint(0, by);
        QMouseEvent move(QEvent::MouseMove, to, Grip()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(Grip(), &move);
        QTest::mouseRelease(Grip(), Qt::LeftButton, {}, start);
    }
    /// The height that is kept; -1 if none is.
    int Kept() {
        const auto key = registry.OpenUserKey(kKey, "", 0);
        std::uint32_t height = 0;
        return key && key->GetDword("Quick_Tree_Size", &height) ? static_cast<int>(height) : -1;
    }
    void Keep(std::uint32_t height) {
        const auto key = registry.OpenUserKey(kKey, "", 1);
        ASSERT_TRUE(key);
        ASSERT_EQ(key->SetDword("Quick_Tree_Size", height), 1);
    }
    static QRect Screen() { return QGuiApplication::primaryScreen()->geometry(); }
    static int UsableHeight() {
        return QGuiApplication::primaryScreen()->availableGeometry().height();
    }

    k4suite::EmbeddedQuickFileTrees trees;
    k4cmn::ScopedProvider<k4cmn::QuickFileTrees> useTrees{trees};
    QuickTreeOwner owner;
    std::unique_ptr<CK4CmnDlgK4FileTree> tree;
};

}  // namespace k4test

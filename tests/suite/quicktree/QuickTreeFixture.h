#pragma once

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <string>
#include <string_view>

#include "suite/quicktree/QuickFileTree.h"
#include "tests/support/StoreFixture.h"

namespace k4test {

/// The quick file tree in a window, over the real folders of the server "A:".
class QuickTreeWidget : public StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder("A:\\");
        ConfigureLocal({"A:"});
        window.resize(400, 500);
        tree->resize(400, 500);
    }
    void Show() {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        tree->setFocus();
    }
    /// Opens the first server.
    void OpenServer() {
        EXPECT_TRUE(tree->Fill());
        tree->Expand(tree->RootItem());
    }
    void Open(const std::string& path) {
        ASSERT_TRUE(tree->SelectPath(path)) << path;
        tree->Expand(tree->SelectedItem());
    }

    /// What can be seen, one line an item, with a blank for each level.
    std::string Shown() const {
        std::string text;
        for (QModelIndex at = view->model()->index(0, 0); at.isValid(); at = view->indexBelow(at)) {
            for (QModelIndex above = at.parent(); above.isValid(); above = above.parent())
                text += ' ';
            text += at.data().toString().toStdString() + "\n";
        }
        return text;
    }
    std::string Selected() const { return tree->PathOf(tree->SelectedItem()); }
    std::string SelectedText() const {
        return view->currentIndex().data().toString().toStdString();
    }
    QModelIndex RowOf(std::string_view text) const {
        for (QModelIndex at = view->model()->index(0, 0); at.isValid(); at = view->indexBelow(at)) {
            if (at.data().toString().toStdString() == text)
                return at;
        }
        ADD_FAILURE() << "not shown: " << text;
        return {};
    }
    void Press(Qt::Key key) { QTest::keyClick(view, key); }
    void Click(std::string_view text, bool isDouble = false,
               Qt::MouseButton button = Qt::LeftButton) {
        const QPoint point = view->visualRect(RowOf(text)).center();
        QTest::mouseClick(view->viewport(), button, {}, point);
        if (isDouble)
            QTest::mouseDClick(view->viewport(), button, {}, point);
    }

    QWidget window;
    k4suite::QuickFileTree* tree = new k4suite::QuickFileTree(&window);  // the window's
    QTreeView* view = tree->findChild<QTreeView*>();
};

}  // namespace k4test

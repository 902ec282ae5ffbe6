#include <functional>
#include <utility>

#include "k4cmndlg/filesel/FileTree.h"
#include "tests/filesel/TreeText.h"
#include "tests/support/StoreFixture.h"

namespace {

using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using k4test::TreeText;

/// Writes down what it is told.
class View final : public k4cmn::FileTreeView {
 public:
    void AboutToChange(const FileTreeItem& parent) override { log += "<" + parent.Text(); }
    void Changed(const FileTreeItem& parent) override { log += ">" + parent.Text(); }
    void SelectionChanged() override { log += "!"; }
    void MarkChanged() override { log += "*"; }
    const FileTreeItem* FirstVisible() const override { return first; }

    std::string Taken() { return std::exchange(log, {}); }

    std::string log;
    const FileTreeItem* first = nullptr;
};

class TreeSelection : public k4test::StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder("A:\\1.2.3.Sign\\L.Lib");
        MakeFolder("A:\\1.2.4.Sign\\L.Lib");
        ConfigureLocal({"A:", "B:"});
        tree.AddAllServerItems();
        tree.Expand(*tree.FindServer("A:"));
        tree.Expand(*FileTree::FindSignType(*tree.FindServer("A:"), "1.2.3"));
        tree.SetView(&view);
    }
    FileTreeItem& Server() { return *tree.FindServer("a:"); }
    FileTreeItem& SignType() { return *FileTree::FindSignType(Server(), "1.2.3"); }
    FileTreeItem& Library() { return *FileTree::FindLibrary(SignType(), "l"); }

    View view;
    FileTree tree;
};

TEST_F(TreeSelection, IsToldWhenItChanges) {
    tree.Select(&Library());
    EXPECT_EQ(view.Taken(), "!");
    tree.Select(&Library());
    EXPECT_EQ(view.Taken(), "");
    tree.Select(nullptr);
    EXPECT_EQ(view.Taken(), "!");
}

TEST_F(TreeSelection, UpGoesToTheItemAboveAndMarksIt) {
    EXPECT_EQ(tree.Up(), nullptr) << "nothing is selected";
    tree.Select(&Library());
    view.Taken();
    EXPECT_EQ(tree.Up(), &SignType());
    EXPECT_EQ(view.Taken(), "!*");
    EXPECT_EQ(tree.Selected(), &SignType());
    EXPECT_EQ(tree.Marked(), &SignType());
    EXPECT_EQ(tree.Up(), &Server());
    EXPECT_EQ(tree.Up(), &Server()) << "a server stays";
    EXPECT_EQ(tree.Marked(), &Server());
    tree.ClearMark();
    EXPECT_EQ(tree.Marked(), nullptr);
}

TEST_F(TreeSelection, PassesToTheItemAboveWhenItsItemGoes) {
    tree.Select(&Library());
    view.Taken();
    tree.Expand(SignType());
    EXPECT_EQ(view.Taken(), "<1.2.3>1.2.3!");
    EXPECT_EQ(tree.Selected(), &SignType());
    tree.Expand(SignType());
    EXPECT_EQ(view.Taken(), "<1.2.3>1.2.3");
    tree.Select(&Library());
    tree.Up();
    tree.Select(&Library());
    tree.DeleteAllChildItems(Server());
    EXPECT_EQ(tree.Selected(), &Server());
    EXPECT_EQ(tree.Marked(), nullptr);
}

TEST_F(TreeSelection, PassesToAnItemThatIsClosedAboveIt) {
    tree.Select(&Library());
    view.Taken();
    tree.Collapse(Server());
    EXPECT_EQ(tree.Selected(), &Server());
    EXPECT_EQ(view.Taken(), "!");
    tree.Collapse(Server());
    tree.Collapse(SignType());
    EXPECT_EQ(tree.Selected(), &Server()) << "that one lies above";
    EXPECT_EQ(view.Taken(), "");
    tree.Select(&Library());
    tree.AddLibraryItem(SignType(), "a");
    view.Taken();
    tree.Collapse(SignType());
    EXPECT_EQ(tree.Selected(), &SignType());
    EXPECT_EQ(view.Taken(), "<1.2.3>1.2.3!") << "once, when all is done";
}

TEST_F(TreeSelection, OpeningSortsTheSiblingsInTheSameChange) {
    FileTreeItem* const early = tree.AddSignTypeItem(Server(), "0.0.0");
    view.Taken();
    tree.Expand(SignType());
    EXPECT_EQ(view.Taken(), "<A:>A:");
    EXPECT_EQ(Server().Children().front().get(), early);
    EXPECT_TRUE(SignType().IsExpanded());
}

TEST_F(TreeSelection, NoticesPlaceholdersAndLibrariesCantBeOpened) {
    tree.Expand(*tree.FindServer("B:"));
    FileTreeItem& notice = *tree.FindServer("B:")->Children()[0];
    ASSERT_EQ(notice.Text(), "No signs");
    FileTreeItem& placeholder = *FileTree::FindSignType(Server(), "1.2.4")->Children()[0];
    ASSERT_EQ(placeholder.Text(), "");
    const std::string before = TreeText(tree.Root());
    view.Taken();
    for (FileTreeItem* item : {&notice, &placeholder, &Library()}) {
        tree.Expand(*item);
        EXPECT_FALSE(item->IsExpanded());
        tree.Collapse(*item);
    }
    EXPECT_EQ(view.Taken(), "");
    EXPECT_EQ(TreeText(tree.Root()), before);
}

TEST_F(TreeSelection, OfAnItemThatVanishedFromTheDiskGoesUpWhenItIsReadAgain) {
    tree.Select(&Library());
    std::filesystem::remove_all(home / "drives/A/1.2.3.Sign");
    tree.Expand(SignType());
    EXPECT_EQ(tree.Selected(), &SignType());
    EXPECT_EQ(TreeText(SignType()), "0:No Libraries\n");
    tree.Expand(Server());
    EXPECT_EQ(tree.Selected(), &Server());
    EXPECT_EQ(TreeText(Server()), "2:1.2.4\n 3:\n");
}

/// A view that asks the tree for something each time that it is told of a change.
class Meddler final : public k4cmn::FileTreeView {
 public:
    explicit Meddler(std::function<void()> what) : m_what(std::move(what)) {}
    void AboutToChange(const FileTreeItem&) override {}
    void Changed(const FileTreeItem&) override { Meddle(); }
    void SelectionChanged() override { Meddle(); }
    void MarkChanged() override { Meddle(); }

 private:
    /// Not in answer to what it caused itself.
    void Meddle() {
        if (m_isAtIt)
            return;
        m_isAtIt = true;
        m_what();
        m_isAtIt = false;
    }

    const std::function<void()> m_what;
    bool m_isAtIt = false;
};

TEST_F(TreeSelection, AViewMayAskForAnythingWhenItIsTold) {
    const std::function<void()> meddlings[] = {
        [&] { tree.AddAllServerItems(); },
        [&] { tree.DeleteAllChildItems(*tree.Root().Children()[0]); },
        [&] { tree.Expand(*tree.Root().Children()[0]); },
        [&] { tree.Select(nullptr); },
        [&] { tree.Select(tree.Root().Children()[0].get()); },
        [&] { tree.Up(); },
    };
    const std::function<void()> steps[] = {
        [&] { tree.Expand(*tree.FindServer("A:")); },
        [&] { tree.Select(&Library()); },
        [&] { tree.Up(); },
        [&] { tree.Select(&Library()); },
        [&] { tree.Expand(SignType()); },
        [&] { tree.AddSignTypeItem(Server(), "0.0.0"); },
        [&] { tree.Expand(SignType()); },
        [&] { tree.AddLibraryItem(SignType(), "a"); },
        [&] { tree.Select(&Library()); },
        [&] { tree.Collapse(Server()); },
        [&] { tree.AddServerItem(2, "C:"); },
        [&] { tree.RefillLibraries(SignType()); },
        [&] { tree.DeleteAllChildItems(Server()); },
        [&] { tree.AddAllServerItems(); },
    };
    for (const auto& meddling : meddlings) {
        for (const auto& step : steps) {
            tree.SetView(nullptr);
            tree.AddAllServerItems();
            tree.Expand(Server());
            tree.Expand(SignType());
            tree.Select(&Library());
            Meddler meddler(meddling);
            tree.SetView(&meddler);
            step();
            tree.SetView(nullptr);
            EXPECT_GE(tree.Root().Children().size(), 2U);
        }
    }
}

TEST_F(TreeSelection, EndsWithTheTree) {
    tree.Select(&Server());
    tree.Up();
    view.Taken();
    tree.AddAllServerItems();
    EXPECT_EQ(tree.Selected(), nullptr);
    EXPECT_EQ(tree.Marked(), nullptr);
    EXPECT_EQ(view.Taken(), "<>!");
}

TEST_F(TreeSelection, AFillingIsToldAsOneChange) {
    tree.AddServerItem(2, "C:");
    EXPECT_EQ(view.Taken(), "<>");
    tree.Expand(Server());
    EXPECT_EQ(view.Taken(), "<A:>A:");
    tree.Collapse(Server());
    EXPECT_EQ(view.Taken(), "") << "it was sorted already";
}

TEST_F(TreeSelection, DuplicatesAreLookedForFromTheFirstVisibleItemOn) {
    view.first = tree.FindServer("B:");
    EXPECT_EQ(tree.AddServerItem(2, "b:"), nullptr);
    EXPECT_NE(tree.AddServerItem(2, "A:"), nullptr) << "that one is out of sight";
    view.first = &SignType();
    EXPECT_NE(tree.AddServerItem(3, "B:"), nullptr) << "only its siblings are looked at";
    EXPECT_EQ(tree.AddServerItem(3, "1.2.4"), nullptr);
    view.first = tree.Root().Children().back().get();
    tree.AddAllServerItems();
    EXPECT_EQ(TreeText(tree.Root()), "1:A:\n 2:\n1:B:\n 2:\n") << "an emptied tree has none";
}

TEST_F(TreeSelection, ASignTypeIsFoundByTheTextBeforeItsFirstBlank) {
    tree.AddSignTypeItem(Server(), "5.6.7 , (Main Board)");
    ASSERT_NE(FileTree::FindSignType(Server(), "5.6.7"), nullptr);
    EXPECT_EQ(FileTree::FindSignType(Server(), "5.6.7")->Text(), "5.6.7 , (Main Board)");
    EXPECT_EQ(FileTree::FindSignType(Server(), "5.6.7 , (Main Board)"), nullptr);
    EXPECT_EQ(FileTree::SignTypeOf("No signs"), "No");
    EXPECT_EQ(FileTree::SignTypeOf(""), "");
    tree.AddLibraryItem(SignType(), "two words");
    EXPECT_NE(FileTree::FindLibrary(SignType(), "Two Words"), nullptr);
    EXPECT_EQ(FileTree::FindLibrary(SignType(), "two"), nullptr);
    EXPECT_EQ(tree.FindServer("Q:"), nullptr);
}

TEST_F(TreeSelection, CaseDoesntCountInAnyScript) {
    tree.AddServerItem(2, "\\\\H\u00d6FE\\\u0417\u043d\u0430\u043a\u0438");
    EXPECT_NE(tree.FindServer("\\\\h\u00f6fe\\\u0437\u041d\u0410\u041a\u0418"), nullptr);
    EXPECT_EQ(tree.AddServerItem(3, "\\\\h\u00f6fe\\\u0437\u043d\u0430\u043a\u0438"), nullptr);
    tree.AddLibraryItem(SignType(), "\u00c4rger");
    EXPECT_NE(FileTree::FindLibrary(SignType(), "\u00e4RGER"), nullptr);
    EXPECT_EQ(FileTree::FindLibrary(SignType(), "arger"), nullptr);
}

}  // namespace

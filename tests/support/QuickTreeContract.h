#pragma once

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <string>

#include "k4cmndlg/filesel/contracts/K4QuickFileTreeCtrl.h"
#include "tests/support/StoreFixture.h"

/// What every implementation of K4QuickFileTreeCtrl keeps, on a store of two servers.
///
/// To run it against an implementation, include this header in one source file of a test and name a
/// maker there, in this namespace:
///
///     std::shared_ptr<k4cmn::QuickFileTrees> Make() { ... }
///     INSTANTIATE_TEST_SUITE_P(Embedded, QuickTreeContract, ::testing::Values(&Make));
namespace k4test {

using QuickTreesMaker = std::shared_ptr<k4cmn::QuickFileTrees> (*)();

class QuickTreeContract : public StoreFixture,
                          public ::testing::WithParamInterface<QuickTreesMaker> {
 protected:
    static constexpr char kLibrary[] = "A:\\16x80.Mono1.LED.Sign\\Default.Lib";
    static constexpr char kFile[] = "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4";
    static constexpr char kOther[] = "A:\\48x160.Quad16.Incand.Sign\\News.Lib\\Today.SQ4";

    void SetUp() override {
        StoreFixture::SetUp();
        MakeFile(kFile);
        MakeFile(kOther);
        MakeFolder("B:\\");
        ConfigureLocal({"A:", "B:"});
        m_trees = GetParam()();
        m_tree = m_trees->Create(&m_window);
    }
    K4QuickTreeItem ItemOf(const std::string& path) {
        EXPECT_TRUE(m_tree->SelectPath(path)) << path;
        return m_tree->SelectedItem();
    }
    void ExpectNone(K4QuickTreeItem item) {
        EXPECT_FALSE(m_tree->IsFile(item));
        EXPECT_FALSE(m_tree->IsFolder(item));
        EXPECT_EQ(m_tree->PathOf(item), "");
        m_tree->Expand(item);
    }

    QWidget m_window;
    std::shared_ptr<k4cmn::QuickFileTrees> m_trees;
    K4QuickFileTreeCtrl* m_tree = nullptr;
};

TEST_P(QuickTreeContract, IsAPartOfItsWindow) {
    ASSERT_NE(m_tree, nullptr);
    EXPECT_EQ(m_tree->parentWidget(), &m_window);
}

TEST_P(QuickTreeContract, HasNoItemsUntilItIsFilled) {
    EXPECT_EQ(m_tree->RootItem(), K4QuickTreeItem::None);
    EXPECT_EQ(m_tree->SelectedItem(), K4QuickTreeItem::None);
    EXPECT_FALSE(m_tree->SelectPath(kFile));
    ExpectNone(K4QuickTreeItem::None);
}

TEST_P(QuickTreeContract, FilledBeginsWithTheFirstServer) {
    EXPECT_TRUE(m_tree->Fill());
    const K4QuickTreeItem root = m_tree->RootItem();
    ASSERT_NE(root, K4QuickTreeItem::None);
    EXPECT_EQ(root, m_tree->RootItem()) << "the same item each time";
    EXPECT_EQ(m_tree->PathOf(root), "A:");
    EXPECT_TRUE(m_tree->IsFolder(root));
    EXPECT_FALSE(m_tree->IsFile(root));
    EXPECT_EQ(m_tree->SelectedItem(), K4QuickTreeItem::None);
}

TEST_P(QuickTreeContract, FillingFailsWhereTheServersCantBeRead) {
    k4cmn::RegistryProvider* const before =
        k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    EXPECT_FALSE(m_tree->Fill());
    EXPECT_FALSE(m_tree->SelectPath(kFile));
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(before);
    EXPECT_TRUE(m_tree->Fill());
}

TEST_P(QuickTreeContract, TellsFilesFromFolders) {
    m_tree->Fill();
    const K4QuickTreeItem file = ItemOf(kFile);
    EXPECT_FALSE(m_tree->IsFolder(file));
    EXPECT_TRUE(m_tree->IsFile(file));
    EXPECT_EQ(m_tree->PathOf(file), kFile);
    for (const char* folder : {"A:", "A:\\16x80.Mono1.LED.Sign", kLibrary, "B:"}) {
        const K4QuickTreeItem item = ItemOf(folder);
        EXPECT_TRUE(m_tree->IsFolder(item)) << folder;
        EXPECT_FALSE(m_tree->IsFile(item)) << folder;
        EXPECT_EQ(m_tree->PathOf(item), folder);
    }
    ExpectNone(K4QuickTreeItem::None);
    ExpectNone(static_cast<K4QuickTreeItem>(0x7FFF1234));
}

TEST_P(QuickTreeContract, AnItemStaysTheSameWhileOthersAreOpened) {
    m_tree->Fill();
    const K4QuickTreeItem file = ItemOf(kFile);
    const K4QuickTreeItem other = ItemOf(kOther);
    EXPECT_NE(file, other);
    EXPECT_EQ(ItemOf(kFile), file);
    m_tree->Expand(other);
    m_tree->Expand(m_tree->RootItem());
    EXPECT_EQ(m_tree->PathOf(file), kFile);
}

TEST_P(QuickTreeContract, APathThatLeadsNowhereLeavesTheSelection) {
    m_tree->Fill();
    ItemOf(kFile);
    for (const std::string path :
         {"Z:", "A:\\1x1.X.Y.Sign", "A:\\16x80.Mono1.LED.Sign\\No.Lib",
          "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\No.SQ4", "A:\\16x80.Mono1.LED.Sign\\Default",
          "A:\\16x80.Mono1.LED.Sign\\Default.Lib\\Welcome.SQ4\\more", "", "\\", "::"}) {
        EXPECT_FALSE(m_tree->SelectPath(path)) << path;
        EXPECT_EQ(m_tree->PathOf(m_tree->SelectedItem()), kFile) << path;
    }
}

TEST_P(QuickTreeContract, FilledAgainForgetsItsItems) {
    m_tree->Fill();
    const K4QuickTreeItem file = ItemOf(kFile);
    EXPECT_TRUE(m_tree->Fill());
    ExpectNone(file);
    EXPECT_EQ(m_tree->SelectedItem(), K4QuickTreeItem::None);
    EXPECT_TRUE(m_tree->SelectPath(kFile));
}

TEST_P(QuickTreeContract, ConfinedKnowsOneSignTypeAlone) {
    m_tree->ConfineTo(48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND);
    EXPECT_TRUE(m_tree->Fill());
    EXPECT_TRUE(m_tree->SelectPath(kOther));
    EXPECT_FALSE(m_tree->SelectPath(kFile));
}

TEST_P(QuickTreeContract, EnterChoosesTheSelectedItem) {
    m_tree->Fill();
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    ItemOf(kFile);
    QWidget* const keys = m_tree->focusProxy() ? m_tree->focusProxy() : m_tree;
    QSignalSpy chosen(m_tree, &K4QuickFileTreeCtrl::Chosen);
    QTest::keyClick(keys, Qt::Key_Return);
    QTest::keyClick(keys, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(chosen.count(), 2);
    QTest::keyClick(keys, Qt::Key_Up);
    EXPECT_EQ(chosen.count(), 2);
}

}  // namespace k4test

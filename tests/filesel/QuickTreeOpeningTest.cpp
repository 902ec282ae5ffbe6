#include <QGuiApplication>

#include "tests/filesel/QuickTreeWindowFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The steps of opening ----------------------------------------------------------------------------

/// A control that writes down what is asked of it.
class RecordingTree final : public K4QuickFileTreeCtrl {
 public:
    RecordingTree(QWidget* parent, std::vector<std::string>& steps)
        : K4QuickFileTreeCtrl(parent), m_steps(steps) {}

    bool Fill() override {
        Note("11 Fill");
        return false;
    }
    bool IsFolder(K4QuickTreeItem item) const override { return isFolder && IsThere(item); }
    K4QuickTreeItem SelectedItem() const override { return kSelected; }
    std::string PathOf(K4QuickTreeItem item) const override {
        return IsThere(item) ? "A:\\f.SC4" : "?";
    }
    void Expand(K4QuickTreeItem item) override {
        Note(item == kRoot ? "21 Expand root" : "21 Expand other");
    }
    void ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                   tag_K4_PIXEL_TECH pixel) override {
        Note("22 ConfineTo " + std::to_string(rows) + " " + std::to_string(columns) + " " +
             std::to_string(color) + " " + std::to_string(pixel));
    }
    K4QuickTreeItem RootItem() const override {
        Note("30 RootItem");
        return kRoot;
    }
    bool SelectPath(const std::string& path) override {
        Note("31 SelectPath " + path);
        return true;
    }
    bool IsFile(K4QuickTreeItem item) const override { return isFile && IsThere(item); }

    bool isFolder = false;
    bool isFile = true;

 protected:
    void showEvent(QShowEvent*) override { Note("shown"); }

 private:
    static constexpr auto kRoot = static_cast<K4QuickTreeItem>(7);
    static constexpr auto kSelected = static_cast<K4QuickTreeItem>(8);

    static bool IsThere(K4QuickTreeItem item) { return item == kSelected; }
    void Note(const std::string& step) const {
        const QCursor* const cursor = QGuiApplication::overrideCursor();
        m_steps.push_back(step + (cursor && cursor->shape() == Qt::WaitCursor ? ", waiting" : ""));
    }

    std::vector<std::string>& m_steps;
};

class RecordingTrees final : public k4cmn::QuickFileTrees {
 public:
    K4QuickFileTreeCtrl* Create(QWidget* window) override {
        last = new RecordingTree(window, steps);
        return last;
    }
    std::vector<std::string> steps;
    RecordingTree* last = nullptr;
};

class QuickTreeSteps : public QuickTreeWindow {
 protected:
    RecordingTrees recording;
    k4cmn::ScopedProvider<k4cmn::QuickFileTrees> useRecording{recording};
};

TEST_F(QuickTreeSteps, OfOpeningAreConfiningFillingExpandingShowing) {
    Make(nullptr, 1);
    tree->SetSignDirectory(48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND);
    EXPECT_THAT(recording.steps, IsEmpty()) << "it takes effect when the window opens";
    Open();
    EXPECT_THAT(recording.steps, ElementsAre("22 ConfineTo 48 160 1 1", "11 Fill, waiting",
                                             "30 RootItem", "21 Expand root", "shown"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(QuickTreeSteps, AreFillingAndShowingWhereNothingElseIsWanted) {
    Make(nullptr, 0);
    Open();
    EXPECT_THAT(recording.steps, ElementsAre("11 Fill, waiting", "shown"));
}

TEST_F(QuickTreeSteps, OfSelectingPassAnEmptyPathOver) {
    Make();
    Open();
    recording.steps.clear();
    tree->SetSelectedFile("");
    EXPECT_THAT(recording.steps, IsEmpty());
    tree->SetSelectedFile(kFile);
    EXPECT_THAT(recording.steps, ElementsAre(std::string("31 SelectPath ") + kFile));
}

struct FileCase {
    const char* what;
    bool isFolder;
    bool isFile;
    bool counts;
};

class QuickTreeFile : public QuickTreeSteps, public testing::WithParamInterface<FileCase> {};

TEST_P(QuickTreeFile, IsDecidedByBothTests) {
    Make();
    Open();
    recording.last->isFolder = GetParam().isFolder;
    recording.last->isFile = GetParam().isFile;
    EXPECT_EQ(Selected(), GetParam().counts ? "A:\\f.SC4" : "");
    Q_EMIT recording.last->Chosen();
    EXPECT_EQ(owner.Numbers().size(), GetParam().counts ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(Rows, QuickTreeFile,
                         testing::Values(FileCase{"File", false, true, true},
                                         FileCase{"Folder", true, false, false},
                                         FileCase{"Both", true, true, false},
                                         FileCase{"Neither", false, false, false}),
                         [](const auto& row) { return row.param.what; });

TEST_F(QuickTreeWindow, WithoutASuiteIsEmptyAndStillAWindow) {
    k4cmn::Provided<k4cmn::QuickFileTrees>::Install(nullptr);
    Make(kKey, 1);
    k4cmn::Provided<k4cmn::QuickFileTrees>::Install(&trees);
    tree->SetSignDirectory(16, 80, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED);
    EXPECT_EQ(tree->Create(), 1);
    EXPECT_TRUE(tree->isVisible());
    tree->SetSelectedFile(kFile);
    EXPECT_EQ(Selected(), "");
    K4QuickFileTreeCtrl* const absent = Control();
    ASSERT_NE(absent, nullptr);
    EXPECT_FALSE(absent->Fill());
    EXPECT_EQ(absent->RootItem(), K4QuickTreeItem::None);
    EXPECT_EQ(absent->SelectedItem(), K4QuickTreeItem::None);
    EXPECT_FALSE(absent->SelectPath(kFile));
    for (const auto item : {K4QuickTreeItem::None, static_cast<K4QuickTreeItem>(1)}) {
        EXPECT_FALSE(absent->IsFile(item));
        EXPECT_FALSE(absent->IsFolder(item));
        EXPECT_EQ(absent->PathOf(item), "");
        absent->Expand(item);
    }
}

// What it is --------------------------------------------------------------------------------------

TEST_F(QuickTreeWindow, IsAPopUpOverAllOthersWithoutACaption) {
    Make();
    Open();
    EXPECT_TRUE(tree->isWindow());
    EXPECT_TRUE(tree->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(tree->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_FALSE(tree->isModal());
    EXPECT_TRUE(tree->isActiveWindow());
    EXPECT_TRUE(View()->hasFocus());
}

TEST_F(QuickTreeWindow, IsFilledByTheControl) {
    for (const QSize size : {QSize(300, 400), QSize(90, 60), QSize(700, 500)}) {
        OpenAt(QRect(QPoint(10, 10), size));
        EXPECT_EQ(tree->size(), size);
        const QRect control(Control()->mapTo(tree.get(), QPoint(0, 0)), Control()->size());
        EXPECT_LE(control.left(), 1);
        EXPECT_LE(control.top(), 1);
        EXPECT_GE(control.right(), tree->rect().right() - 1);
        EXPECT_EQ(control.bottom() + 1 + Grip()->height() + 1, tree->height());
        tree.reset();
    }
}

TEST_F(QuickTreeWindow, OpensItsFirstServerIfItShould) {
    for (const int expand : {0, 1, -3}) {
        Make(kKey, expand);
        Open();
        EXPECT_EQ(View()->isExpanded(View()->model()->index(0, 0)), expand != 0) << expand;
        tree.reset();
    }
}

TEST_F(QuickTreeWindow, OpensWithOneSignTypeIfItShould) {
    Make(kKey, 1);
    tree->SetSignDirectory(48, 160, K4_SIGN_COLOR_QUAD16, K4_PIXEL_TECH_INCAND);
    Open();
    const QModelIndex server = View()->model()->index(0, 0);
    ASSERT_EQ(View()->model()->rowCount(server), 1);
    EXPECT_EQ(View()->model()->index(0, 0, server).data().toString(),
              QStringLiteral("48x160.Quad16.Incand"));
    tree->SetSelectedFile(kFile);
    EXPECT_EQ(Selected(), "");
}

TEST_F(QuickTreeWindow, OpensAgainWithWhatTheDiskHasThen) {
    Make();
    Open();
    tree->SetSelectedFile(kFile);
    EXPECT_EQ(Selected(), kFile);
    tree->DestroyWindow();
    EXPECT_FALSE(tree->isVisible());
    owner.activateWindow();
    ASSERT_TRUE(WaitUntilActive(&owner));
    ConfigureLocal({"B:"});
    Open();
    EXPECT_EQ(Selected(), "");
    EXPECT_EQ(View()->model()->index(0, 0).data().toString(), QStringLiteral("B:"));
}

TEST_F(QuickTreeWindow, OpensWhereNoServersCanBeRead) {
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    Make(kKey, 1);
    Open();
    EXPECT_EQ(Selected(), "");
    tree.reset();
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(&registry);
    EXPECT_EQ(Kept(), -1);
}

// The selected file -------------------------------------------------------------------------------

TEST_F(QuickTreeWindow, GivesThePathOfAFileAlone) {
    Make();
    EXPECT_EQ(Selected(), "");
    Open();
    EXPECT_EQ(Selected(), "") << "a server is selected";
    tree->SetSelectedFile(kFile);
    EXPECT_EQ(Selected(), kFile);
    tree->SetSelectedFile("");
    EXPECT_EQ(Selected(), kFile);
    tree->SetSelectedFile("Z:\\nothing");
    EXPECT_EQ(Selected(), kFile);
    tree->SetSelectedFile(kLibrary);
    EXPECT_EQ(Selected(), "");
}

}  // namespace
}  // namespace k4test

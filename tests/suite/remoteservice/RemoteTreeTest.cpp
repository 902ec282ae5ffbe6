#include <gmock/gmock.h>

#include <memory>

#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filesel/RemoteEntries.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "suite/EmbeddedSuite.h"
#include "suite/remoteservice/RemoteEngine.h"
#include "suite/sample/SampleData.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/TempFolder.h"

namespace {

using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using k4suite::DataHome;
using k4suite::DialState;
using k4suite::EmbeddedSuite;
using k4suite::LineFault;
using k4suite::RemoteEngine;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Texts = std::vector<std::string>;

constexpr char kServer[] = "\\\\OBSERVATORY\\SIGNS";

/// The sample data, with the tree of the file selection dialog over it.
class RemoteTree : public testing::Test {
 protected:
    void SetUp() override {
        m_folder.Write("content/32x128.RGB4K.LED.Sign/Default.Lib/Comet.SQ4", "comet");
        std::string problem;
        ASSERT_EQ(k4suite::SeedSampleData(m_home, &problem, m_folder / "content"), 1) << problem;
        m_suite = std::make_unique<EmbeddedSuite>(m_home, "test", nullptr, &m_clock);
    }

    RemoteEngine& Engine() { return *m_suite->Remote(); }
    static Texts Below(const FileTreeItem& item) {
        Texts texts;
        for (const auto& child : item.Children())
            texts.push_back(child->Text());
        return texts;
    }
    /// The servers of a tree that is filled anew.
    Texts Servers() {
        EXPECT_EQ(m_tree.AddAllServerItems(), 1);
        return Below(m_tree.Root());
    }
    std::uint32_t BringUp() {
        const std::uint32_t handle = Engine().Dial("Hilltop");
        m_clock.Advance(RemoteEngine::kDialingTime);
        EXPECT_EQ(Engine().StateOf(handle).phase, DialState::Phase::Up);
        return handle;
    }

    k4test::TempFolder m_folder;
    DataHome m_home{m_folder / "home"};
    k4test::DrivenClock m_clock;
    std::unique_ptr<EmbeddedSuite> m_suite;
    k4cmn::RemoteEntries m_entries;
    FileTree m_tree{&m_entries};
};

TEST_F(RemoteTree, DiallingMakesTheServerAppearAndHangingUpMakesItGo) {
    const Texts before = Servers();
    EXPECT_THAT(before, Not(Contains(kServer)));

    ASSERT_EQ(Engine().Lines().size(), 1U);
    ASSERT_EQ(Engine().Lines()[0].entry, "Hilltop");
    Engine().Dial("Hilltop");
    EXPECT_EQ(Servers(), before) << "not yet";
    const std::uint32_t handle = BringUp();
    Texts with = before;
    with.emplace_back(kServer);
    EXPECT_EQ(Servers(), with) << "behind all others";

    EXPECT_TRUE(Engine().HangUp(handle));
    EXPECT_EQ(Servers(), before);
}

TEST_F(RemoteTree, TheServerHasSignTypesLibrariesAndFiles) {
    BringUp();
    Servers();
    FileTreeItem* const server = m_tree.FindServer(kServer);
    ASSERT_NE(server, nullptr);
    m_tree.Expand(*server);
    EXPECT_THAT(Below(*server), ElementsAre("32x128.RGB4K.LED", "32x96.Mono64.LED"));
    FileTreeItem& type = *server->Children()[0];
    m_tree.Expand(type);
    EXPECT_THAT(Below(type), ElementsAre("Default", "Events", "Safety"));
    Texts files;
    EXPECT_EQ(k4cmn::FindNames(
                  files, std::string(kServer) + "\\32x128.RGB4K.LED.Sign\\Default.Lib\\*.SQ4", 0),
              1);
    EXPECT_THAT(files, ElementsAre("Comet.SQ4"));
}

TEST_F(RemoteTree, ALineThatFailsTakesTheServerWithIt) {
    const Texts before = Servers();
    BringUp();
    EXPECT_NE(Servers(), before);
    EXPECT_TRUE(Engine().SetLineFault("Hilltop", LineFault::NoDialTone));
    EXPECT_EQ(Servers(), before);
}

TEST_F(RemoteTree, AnUnreachableServiceIsPassedOverWithoutAWord) {
    const Texts before = Servers();
    BringUp();
    Engine().SetFault(k4suite::Fault::Unreachable());
    EXPECT_EQ(Servers(), before);
    Engine().ClearFaults();
    EXPECT_NE(Servers(), before);
    Engine().SetFault(k4suite::Fault::FailingStub("k4rsListConnectedPhoneEntries"));
    EXPECT_EQ(Servers(), before);
}

TEST_F(RemoteTree, FillingLeavesNoConnectionBehind) {
    BringUp();
    Servers();
    EXPECT_NE(k4cmn::Provided<K4rsRpc>::Current().k4rsGetChangeFlag(nullptr), 0);
}

}  // namespace

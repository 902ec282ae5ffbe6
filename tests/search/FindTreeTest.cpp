#include "k4cmndlg/search/CK4CmnDlgFindTree.h"

#include <QTreeWidgetItemIterator>
#include <QVariant>
#include <filesystem>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/search/PlaceTree.h"
#include "tests/search/FindPagesFixture.h"
#include "tests/support/FontScale.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/RecordingHelpSystem.h"

namespace k4test {
namespace {

using k4cmn::PlaceTree;
using testing::ElementsAre;

/// The dialog over the servers "C:" (two sign types), "d:" (none) and "E:" (that is down), and the
/// removable drive "A:".
class FindTree : public StoreFixture {
 protected:
    enum : int { kTree = 1140 };

    void SetUp() override {
        StoreFixture::SetUp();
        ConfigureLocal({"E:", "d:", "C:"});
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\winter.Lib");
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\Default.Lib");
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\Zoo.Lib");
        MakeFolder("C:\\" + std::string(kOtherType) + ".Sign");
        MakeFolder("d:\\");
        const std::filesystem::path root = home.Path();
        std::filesystem::create_directories(root / "medium" / (std::string(kThirdType) + ".Sign") /
                                            "Own.Lib");
        std::filesystem::create_directory_symlink(root / "medium", root / "drives" / "A");
    }

    /// Runs the dialog and the steps in it.
    template <class Steps>
    int Run(Steps steps) {
        return RunModal(dialog, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            steps(*Item<PlaceTree>(dialog, kTree));
        });
    }
    template <class Steps>
    void Look(Steps steps) {
        EXPECT_EQ(Run([&](PlaceTree& tree) {
                      steps(tree);
                      Click(dialog, IDCANCEL);
                  }),
                  IDCANCEL);
    }
    /// The item that a path of texts leads to, each opened on the way.
    static QTreeWidgetItem* Open(PlaceTree& tree, const std::vector<const char*>& texts) {
        QTreeWidgetItem* item = tree.invisibleRootItem();
        for (const char* text : texts) {
            if (item != tree.invisibleRootItem())
                item->setExpanded(true);
            QTreeWidgetItem* found = nullptr;
            for (int at = 0; at < item->childCount(); ++at) {
                if (item->child(at)->text(0) == QLatin1String(text))
                    found = item->child(at);
            }
            if (!found) {
                ADD_FAILURE() << "no such item: " << text;
                return nullptr;
            }
            item = found;
        }
        return item;
    }
    static std::vector<std::string> Below(const QTreeWidgetItem* item) {
        std::vector<std::string> texts;
        for (int at = 0; at < item->childCount(); ++at)
            texts.push_back(item->child(at)->text(0).toStdString());
        return texts;
    }
    static std::string Selected(const PlaceTree& tree) {
        const auto items = tree.selectedItems();
        return items.isEmpty() ? "none" : items.front()->text(0).toStdString();
    }
    static void ClickItem(PlaceTree& tree, QTreeWidgetItem* item) {
        tree.scrollToItem(item);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
    }
    static void DoubleClickAt(PlaceTree& tree, const QPoint& place) {
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, place);
    }
    /// Clicks where an item is opened and closed.
    static QPoint ArrowOf(PlaceTree& tree, QTreeWidgetItem* item) {
        const QRect place = tree.visualItemRect(item);
        return {place.left() - tree.indentation() / 2, place.center().y()};
    }
    std::string Place() const {
        return dialog.m_server + "|" + dialog.m_signType + "|" + dialog.m_library;
    }

    MessageQueue messages;
    CK4CmnDlgFindTree dialog{nullptr};
};

// Opening -------------------------------------------------------------------------------------

TEST_F(FindTree, IsTemplate115WithItsTitle) {
    EXPECT_EQ(dialog.ResourceId(), 115U);
    EXPECT_EQ(dialog.windowTitle().toStdString(), "Select Directory To Search");
    EXPECT_EQ(TextOf(dialog, IDOK), "OK");
    EXPECT_EQ(TextOf(dialog, IDCANCEL), "Cancel");
    EXPECT_NE(dialog.findChild<PlaceTree*>(QStringLiteral("Tree1")), nullptr);
}

TEST_F(FindTree, BeginsWithDrivesAndFileServersOpen) {
    Look([&](PlaceTree& tree) {
        EXPECT_THAT(Below(tree.invisibleRootItem()), ElementsAre("A:", "File Servers"));
        EXPECT_FALSE(tree.topLevelItem(0)->isExpanded());
        EXPECT_THAT(Below(tree.topLevelItem(0)), ElementsAre("")) << "a placeholder";
        QTreeWidgetItem* servers = tree.topLevelItem(1);
        EXPECT_TRUE(servers->isExpanded());
        EXPECT_THAT(Below(servers), ElementsAre("C:", "d:", "E:")) << "sorted";
        for (int at = 0; at < 3; ++at) {
            EXPECT_THAT(Below(servers->child(at)), ElementsAre(""));
            EXPECT_FALSE(servers->child(at)->isExpanded());
        }
        EXPECT_EQ(Selected(tree), "none");
    });
}

TEST_F(FindTree, ItemsHaveTheirDataAndImages) {
    using k4cmn::FileImages;
    Look([&](PlaceTree& tree) {
        const auto isImage = [&](QTreeWidgetItem* item, const char* name) {
            return item && item->icon(0).pixmap(16, 16).toImage() ==
                               FileImages::OfTool(name).pixmap(16, 16).toImage();
        };
        QTreeWidgetItem* servers = tree.topLevelItem(1);
        EXPECT_EQ(tree.topLevelItem(0)->data(0, Qt::UserRole).toInt(), 1000);
        EXPECT_EQ(servers->data(0, Qt::UserRole).toInt(), 0);
        EXPECT_EQ(servers->child(0)->data(0, Qt::UserRole).toInt(), 2) << "C: is the third";
        EXPECT_EQ(servers->child(2)->data(0, Qt::UserRole).toInt(), 0);
        EXPECT_TRUE(isImage(tree.topLevelItem(0), "server"));
        EXPECT_TRUE(isImage(servers, "file-servers"));
        EXPECT_TRUE(isImage(servers->child(0), "server"));
        EXPECT_TRUE(isImage(Open(tree, {"File Servers", "C:", kType}), "sign-type"));
        EXPECT_TRUE(isImage(Open(tree, {"File Servers", "C:", kType, "Zoo"}), "library"));
        EXPECT_TRUE(isImage(Open(tree, {"File Servers", "d:", "No signs"}), "notice"));
        EXPECT_EQ(tree.iconSize(), QSize(16, 16));
    });
}

TEST_F(FindTree, WithoutServersFileServersStandsAlone) {
    Configure({{"Local", "", {}, {}}});
    Look([&](PlaceTree& tree) {
        EXPECT_THAT(Below(tree.invisibleRootItem()), ElementsAre("A:", "File Servers"));
        EXPECT_EQ(tree.topLevelItem(1)->childCount(), 0);
    });
    k4cmn::Provided<k4cmn::RegistryProvider>::Install(nullptr);
    k4cmn::Provided<k4cmn::Drives>::Install(nullptr);
    Look([&](PlaceTree& tree) {
        EXPECT_THAT(Below(tree.invisibleRootItem()), ElementsAre("File Servers"));
        tree.setCurrentItem(tree.topLevelItem(0));
        PressKey(dialog, Qt::Key_Right);
        EXPECT_THAT(Below(tree.topLevelItem(0)), ElementsAre());
    });
}

struct Preset {
    const char* server;
    const char* signType;
    const char* library;
    const char* selected;
    int opened;  ///< items that are open: "File Servers", the server, the sign type
};

class FindTreePreset : public FindTree, public testing::WithParamInterface<Preset> {};

TEST_P(FindTreePreset, IsReachedAsFarAsItIsThere) {
    const Preset& row = GetParam();
    dialog.m_server = row.server;
    dialog.m_signType = row.signType;
    dialog.m_library = row.library;
    Look([&](PlaceTree& tree) {
        EXPECT_EQ(Selected(tree), row.selected);
        int opened = 0;
        for (QTreeWidgetItemIterator at(&tree); *at; ++at)
            opened += (*at)->isExpanded() && (*at)->childCount() > 0 ? 1 : 0;
        EXPECT_EQ(opened, row.opened);
    });
    EXPECT_EQ(dialog.m_server, row.server) << "Cancel leaves the fields";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FindTreePreset,
    testing::Values(Preset{"", "", "", "none", 1}, Preset{"C:", "", "", "none", 2},
                    Preset{"C:", kType, "", kType, 3}, Preset{"C:", kType, "Zoo", "Zoo", 3},
                    Preset{"C:", kType, "gone", kType, 3}, Preset{"C:", "gone", "Zoo", "none", 2},
                    Preset{"c:", kType, "Zoo", "none", 1}, Preset{"C:", kType, "zoo", kType, 3},
                    Preset{"X:", kType, "Zoo", "none", 1},
                    Preset{"File Servers", "", "", "none", 1},
                    // A drive is never looked for.
                    Preset{"A:", kThirdType, "Own", "none", 1},
                    // What a notice gave leads back to the notice.
                    Preset{"d:", "No signs", "", "No signs", 2},
                    Preset{"C:", kOtherType, "No Libraries", "No Libraries", 3},
                    Preset{"E:", "any", "", "none", 2}));

TEST_F(FindTree, TheSelectedItemIsInView) {
    for (int at = 0; at < 60; ++at)
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\L" + std::to_string(at) + ".Lib");
    dialog.m_server = "C:";
    dialog.m_signType = kType;
    dialog.m_library = "Zoo";
    Look([&](PlaceTree& tree) {
        EXPECT_EQ(Selected(tree), "Zoo");
        const QRect place = tree.visualItemRect(tree.currentItem());
        EXPECT_TRUE(tree.viewport()->rect().contains(place.center()));
    });
}

TEST_F(FindTree, OpensInFrontOfItsParentWhereverItWasLeft) {
    MemoryProfile profile;
    const k4cmn::ScopedProvider<k4cmn::Profile> installed(profile);
    Look([&](PlaceTree&) { dialog.move(77, 66); });
    EXPECT_THAT(profile.reads, ElementsAre());
    EXPECT_THAT(profile.writes, ElementsAre());
}

TEST_F(FindTree, HasHelpAsTheLibrarysDialogsHave) {
    RecordingHelpSystem help;
    const k4cmn::ScopedProvider<k4cmn::HelpSystem> installed(help);
    Look([&](PlaceTree& tree) {
        PressKey(dialog, Qt::Key_F1);
        EXPECT_THAT(help.calls,
                    ElementsAre(RecordingHelpSystem::Call{&tree, "k4test.hlp", 8, 0x1730474}));
    });
}

// Opening items -------------------------------------------------------------------------------

TEST_F(FindTree, WhatStandsBelowIsReadWhenItIsOpenedAndSorted) {
    Look([&](PlaceTree& tree) {
        QTreeWidgetItem* type = Open(tree, {"File Servers", "C:", kType});
        EXPECT_THAT(Below(type->parent()), ElementsAre(kType, kOtherType));
        EXPECT_THAT(Below(type), ElementsAre(""));
        type->setExpanded(true);
        EXPECT_TRUE(type->isExpanded());
        EXPECT_THAT(Below(type), ElementsAre("Default", "winter", "Zoo"));
        EXPECT_EQ(type->child(0)->childCount(), 0);

        QTreeWidgetItem* own = Open(tree, {"A:", kThirdType, "Own"});
        EXPECT_EQ(own->childCount(), 0);
        EXPECT_THAT(Below(Open(tree, {"File Servers", "C:", kOtherType, "No Libraries"})),
                    ElementsAre());
    });
}

TEST_F(FindTree, AnItemIsReadAnewWheneverItIsOpened) {
    Look([&](PlaceTree& tree) {
        QTreeWidgetItem* type = Open(tree, {"File Servers", "C:", kType});
        type->setExpanded(true);
        type->setExpanded(false);
        MakeFolder("C:\\" + std::string(kType) + ".Sign\\Autumn.Lib");
        EXPECT_EQ(type->childCount(), 3);
        type->setExpanded(true);
        EXPECT_THAT(Below(type), ElementsAre("Autumn", "Default", "winter", "Zoo"));
        ConfigureLocal({"b:", "C:"});
        tree.topLevelItem(1)->setExpanded(false);
        tree.topLevelItem(1)->setExpanded(true);
        EXPECT_THAT(Below(tree.topLevelItem(1)), ElementsAre("b:", "C:"));
    });
}

TEST_F(FindTree, OpeningAnItemSortsWhatIsBesideItToo) {
    PlaceTree tree;
    tree.Fill();
    EXPECT_THAT(Below(tree.topLevelItem(1)), ElementsAre("E:", "d:", "C:"));
    tree.topLevelItem(1)->child(2)->setExpanded(true);
    EXPECT_THAT(Below(tree.topLevelItem(1)), ElementsAre("C:", "d:", "E:"));
    EXPECT_THAT(Below(tree.topLevelItem(1)->child(0)), ElementsAre(kType, kOtherType));
    EXPECT_TRUE(tree.topLevelItem(1)->child(0)->isExpanded());
    EXPECT_THAT(Below(tree.invisibleRootItem()), ElementsAre("A:", "File Servers"));
}

TEST_F(FindTree, TheRootKeepsItsOrder) {
    const std::filesystem::path root = home.Path();
    std::filesystem::create_directory_symlink(root / "medium", root / "drives" / "Z");
    Look([&](PlaceTree& tree) {
        for (int at = 0; at < 3; ++at)
            tree.topLevelItem(at)->setExpanded(true);
        EXPECT_THAT(Below(tree.invisibleRootItem()), ElementsAre("A:", "Z:", "File Servers"));
    });
}

TEST_F(FindTree, AServerThatIsDownHasNoSigns) {
    ConfigureLocal({"E:", "\\\\down\\share", "C:"});
    Look([&](PlaceTree& tree) {
        for (const char* server : {"E:", "\\\\down\\share"}) {
            QTreeWidgetItem* notice = Open(tree, {"File Servers", server, "No signs"});
            ASSERT_NE(notice, nullptr) << server;
            EXPECT_EQ(notice->childCount(), 0);
        }
    });
}

TEST_F(FindTree, AMediumThatIsTakenOutHasNoSigns) {
    Look([&](PlaceTree& tree) {
        std::filesystem::remove_all(std::filesystem::path(home.Path()) / "medium");
        EXPECT_NE(Open(tree, {"A:", "No signs"}), nullptr);
    });
}

TEST_F(FindTree, ClosingAnItemSelectsItIfTheSelectionWasBelow) {
    dialog.m_server = "C:";
    dialog.m_signType = kType;
    dialog.m_library = "Zoo";
    Look([&](PlaceTree& tree) {
        QTreeWidgetItem* server = tree.topLevelItem(1)->child(0);
        server->setExpanded(false);
        EXPECT_EQ(Selected(tree), "C:");
        tree.topLevelItem(0)->setExpanded(true);
        tree.topLevelItem(0)->setExpanded(false);
        EXPECT_EQ(Selected(tree), "C:");
    });
}

TEST_F(FindTree, TheArrowOpensAndClosesAnItem) {
    Look([&](PlaceTree& tree) {
        QTreeWidgetItem* drive = tree.topLevelItem(0);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, ArrowOf(tree, drive));
        EXPECT_TRUE(drive->isExpanded());
        EXPECT_THAT(Below(drive), ElementsAre(kThirdType));
        EXPECT_GT(tree.visualItemRect(drive->child(0)).height(), 0) << "shown";
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, ArrowOf(tree, drive));
        EXPECT_FALSE(drive->isExpanded());
    });
}

// Ending --------------------------------------------------------------------------------------

struct Choice {
    std::vector<const char*> item;
    const char* place;
};

class FindTreeChoice : public FindTree, public testing::WithParamInterface<Choice> {};

TEST_P(FindTreeChoice, OkReadsItByItsDepth) {
    dialog.m_server = dialog.m_signType = dialog.m_library = "before";
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  ClickItem(tree, Open(tree, GetParam().item));
                  Click(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Place(), GetParam().place);
}

TEST_P(FindTreeChoice, ADoubleClickReadsItByItsDepth) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  QTreeWidgetItem* item = Open(tree, GetParam().item);
                  tree.scrollToItem(item);
                  DoubleClickAt(tree, tree.visualItemRect(item).center());
                  EXPECT_FALSE(dialog.isVisible());
              }),
              IDOK);
    EXPECT_EQ(Place(), GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FindTreeChoice,
    testing::Values(Choice{{"A:"}, "A:||"}, Choice{{"File Servers"}, "File Servers||"},
                    Choice{{"A:", kThirdType}, "A:|8x16.Mono4.LED|"},
                    Choice{{"File Servers", "C:"}, "C:||"},
                    Choice{{"A:", kThirdType, "Own"}, "A:|8x16.Mono4.LED|Own"},
                    Choice{{"File Servers", "C:", kType}, "C:|16x80.Mono1.LED|"},
                    Choice{{"File Servers", "C:", kType, "Zoo"}, "C:|16x80.Mono1.LED|Zoo"},
                    Choice{{"File Servers", "d:", "No signs"}, "d:|No signs|"},
                    Choice{{"File Servers", "C:", kOtherType, "No Libraries"},
                           "C:|48x160.Quad16.Incand|No Libraries"}));

TEST_F(FindTree, APlaceholderIsNoGuard) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  QTreeWidgetItem* type = Open(tree, {"File Servers", "C:", kType});
                  tree.setCurrentItem(type->child(0));
                  Click(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Place(), "C:|16x80.Mono1.LED|");
}

TEST_F(FindTree, OkWithoutASelectionLeavesTheFieldsEmpty) {
    dialog.m_server = "C:";
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  tree.setFocus();
                  EXPECT_EQ(Selected(tree), "none");
                  Click(dialog, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Place(), "||");
}

TEST_F(FindTree, CancelLeavesTheFields) {
    dialog.m_server = "C:";
    dialog.m_signType = kType;
    dialog.m_library = "Zoo";
    Look([&](PlaceTree& tree) { ClickItem(tree, tree.topLevelItem(0)); });
    EXPECT_EQ(Place(), "C:|16x80.Mono1.LED|Zoo");
    EXPECT_EQ(Run([&](PlaceTree&) { PressKey(dialog, Qt::Key_Escape); }), IDCANCEL);
}

TEST_F(FindTree, ADoubleClickOnAnItemsArrowClosesTheDialogToo) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  ClickItem(tree, tree.topLevelItem(0));
                  DoubleClickAt(tree, ArrowOf(tree, tree.topLevelItem(1)->child(0)));
              }),
              IDOK);
    EXPECT_EQ(Place(), "A:||") << "the selection stood elsewhere";
}

TEST_F(FindTree, ADoubleClickBesideAllItemsReadsTheSelection) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  ClickItem(tree, tree.topLevelItem(1)->child(0));
                  DoubleClickAt(tree, tree.viewport()->rect().bottomRight() - QPoint(3, 3));
              }),
              IDOK);
    EXPECT_EQ(Place(), "C:||");
}

TEST_F(FindTree, ADoubleClickOfTheRightButtonIsNone) {
    Look([&](PlaceTree& tree) {
        const QPoint place = tree.visualItemRect(tree.topLevelItem(0)).center();
        QTest::mouseDClick(tree.viewport(), Qt::RightButton, {}, place);
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(FindTree, IsUsedByKeysAlone) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  EXPECT_EQ(FocusedId(dialog), kTree);
                  // From the first item down to the server, its sign type and the last library.
                  PressKey(dialog, Qt::Key_Down);
                  EXPECT_EQ(Selected(tree), "File Servers");
                  PressKey(dialog, Qt::Key_Down);
                  EXPECT_EQ(Selected(tree), "C:");
                  PressKey(dialog, Qt::Key_Right);
                  PressKey(dialog, Qt::Key_Right);
                  EXPECT_EQ(Selected(tree), kType);
                  PressKey(dialog, Qt::Key_Right);
                  PressKey(dialog, Qt::Key_Right);
                  EXPECT_EQ(Selected(tree), "Default");
                  PressKey(dialog, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_EQ(Place(), "C:|16x80.Mono1.LED|Default");
}

TEST_F(FindTree, TheFirstItemIsSelectedByAKey) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  PressKey(dialog, Qt::Key_Space);
                  EXPECT_EQ(Selected(tree), "A:");
                  PressKey(dialog, Qt::Key_Return);
              }),
              IDOK);
    EXPECT_EQ(Place(), "A:||");
}

TEST_F(FindTree, TheCommandKeyTakesNoSelectionAway) {
    Look([&](PlaceTree& tree) {
        ClickItem(tree, tree.topLevelItem(0));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          tree.visualItemRect(tree.topLevelItem(0)).center());
        EXPECT_EQ(Selected(tree), "A:");
    });
}

TEST_F(FindTree, OpensAnewEachTime) {
    EXPECT_EQ(Run([&](PlaceTree& tree) {
                  ClickItem(tree, Open(tree, {"File Servers", "C:", kType}));
                  Click(dialog, IDOK);
              }),
              IDOK);
    ConfigureLocal({"C:"});
    Look([&](PlaceTree& tree) {
        EXPECT_EQ(Selected(tree), kType);
        EXPECT_THAT(Below(tree.topLevelItem(1)), ElementsAre("C:"));
    });
}

// Looks ---------------------------------------------------------------------------------------

TEST_F(FindTree, NothingIsClippedAtAnyFontSizeThatA800By600ScreenAllows) {
    for (const double factor : {0.8, 1.0, 1.5, 2.0}) {
        SCOPED_TRACE(factor);
        const FontScale scale(factor);
        CK4CmnDlgFindTree scaled(nullptr);
        RunModal(scaled, [&] {
            const auto* tree = Item<PlaceTree>(scaled, kTree);
            EXPECT_LE(scaled.width(), 800);
            EXPECT_LE(scaled.height(), 600);
            EXPECT_GE(tree->height(), 8 * tree->visualItemRect(tree->topLevelItem(0)).height());
            EXPECT_EQ(tree->iconSize(), k4cmn::FileImages::SizeBeside(tree->fontMetrics()));
            for (const int id : {+IDOK, +IDCANCEL}) {
                const auto* button = Item<QPushButton>(scaled, id);
                EXPECT_GE(button->width(), button->sizeHint().width());
                EXPECT_TRUE(scaled.rect().contains(button->geometry()));
            }
            Click(scaled, IDCANCEL);
        });
    }
}

TEST_F(FindTree, TheTabKeyGoesThroughTreeAndButtons) {
    Look([&](PlaceTree&) {
        std::vector<int> stops;
        for (int at = 0; at < 4; ++at) {
            stops.push_back(FocusedId(dialog));
            PressKey(dialog, Qt::Key_Tab);
        }
        EXPECT_THAT(stops, ElementsAre(+kTree, +IDOK, +IDCANCEL, +kTree));
        EXPECT_TRUE(Item<QPushButton>(dialog, IDOK)->isDefault());
        EXPECT_FALSE(Item<QWidget>(dialog, kTree)->accessibleName().isEmpty());
    });
}

}  // namespace
}  // namespace k4test

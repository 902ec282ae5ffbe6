#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include "k4cmndlg/frame/WindowPlacement.h"
#include "tests/frame/FrameProbe.h"
#include "tests/support/MemoryProfile.h"
#include "tests/support/ModalDriver.h"

using k4cmn::ParsePlacement;
using k4cmn::PixelRect;
using k4cmn::Profile;
using k4cmn::ScopedProvider;
using k4test::FrameProbe;
using k4test::MemoryProfile;
using k4test::RunModal;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// What both bases have to do alike.
template <class Base>
class DialogPlace : public testing::Test {
 protected:
    using Probe = FrameProbe<Base>;

    void Save(const std::string& title, const std::string& text) {
        m_profile.values[{"Dialogs\\" + title, "WindowPos"}] = text;
    }
    /// Where a new dialog comes up.
    static QPoint PlaceShown() {
        Probe dialog;
        return PlaceShown(dialog);
    }
    static QPoint PlaceShown(CDialog& dialog) {
        QPoint place;
        RunModal(dialog, [&] {
            place = dialog.pos();
            dialog.EndDialog(IDCANCEL);
        });
        return place;
    }
    /// Where one comes up that has no memory of places.
    static QPoint PlaceOfTheLayout() {
        CDialog dialog(Probe::kResourceId, nullptr);
        dialog.resize(300, 200);
        return PlaceShown(dialog);
    }
    std::string Saved(const std::string& title = "Probe") {
        return m_profile.values[{"Dialogs\\" + title, "WindowPos"}];
    }
    PixelRect SavedRect(const std::string& title = "Probe") {
        const auto placement = ParsePlacement(Saved(title));
        return placement ? placement->normal : PixelRect{};
    }

    MemoryProfile m_profile;
    ScopedProvider<Profile> m_installed{m_profile};
};

using Bases = testing::Types<CK4CmnDialog, CK4CmnDlgBase>;
TYPED_TEST_SUITE(DialogPlace, Bases);

}  // namespace

TYPED_TEST(DialogPlace, SavedPlaceWithPresentSizeIsRestored) {
    this->Save("Probe", "0,1,-1,-1,-1,-1,100,50,7777,-7777");
    typename TestFixture::Probe dialog;
    QPoint place;
    QSize size;
    RunModal(dialog, [&] {
        place = dialog.pos();
        size = dialog.size();
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(place, QPoint(100, 50));
    EXPECT_EQ(size, QSize(300, 200));
    EXPECT_EQ(this->Saved(), "0,1,-1,-1,-1,-1,100,50,400,250");
}

TYPED_TEST(DialogPlace, PlaceComesBackWhereTheDialogWasLeft) {
    {
        typename TestFixture::Probe dialog;
        RunModal(dialog, [&] {
            dialog.move(210, 120);
            dialog.EndDialog(IDCANCEL);
        });
    }
    typename TestFixture::Probe again;
    QPoint place;
    RunModal(again, [&] {
        place = again.pos();
        again.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(place, QPoint(210, 120));
}

TYPED_TEST(DialogPlace, SizeIsNeverRestored) {
    {
        typename TestFixture::Probe dialog;
        RunModal(dialog, [&] {
            dialog.move(10, 20);
            dialog.resize(500, 400);
            dialog.EndDialog(IDCANCEL);
        });
    }
    EXPECT_EQ(this->SavedRect(), (PixelRect{10, 20, 510, 420}));
    typename TestFixture::Probe again;
    QSize size;
    RunModal(again, [&] {
        size = again.size();
        again.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(size, QSize(300, 200));
}

TYPED_TEST(DialogPlace, ReadOnceAtCreationAndWrittenOnceAtDestruction) {
    typename TestFixture::Probe dialog;
    RunModal(dialog, [&] {
        EXPECT_THAT(this->m_profile.reads, ElementsAre("Dialogs\\Probe|WindowPos"));
        dialog.move(30, 40);
        dialog.resize(310, 210);
        dialog.hide();
        dialog.show();
        EXPECT_THAT(this->m_profile.writes, IsEmpty());
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_THAT(this->m_profile.reads, ElementsAre("Dialogs\\Probe|WindowPos"));
    EXPECT_THAT(this->m_profile.writes, ElementsAre("Dialogs\\Probe|WindowPos"));
}

TYPED_TEST(DialogPlace, ValueWithNineFieldsIsIgnored) {
    const QPoint ofTheLayout = this->PlaceOfTheLayout();
    EXPECT_NE(ofTheLayout, QPoint(100, 50));
    this->Save("Probe", "0,1,-1,-1,-1,-1,100,50,400");
    EXPECT_EQ(this->PlaceShown(), ofTheLayout);
}

TYPED_TEST(DialogPlace, EmptyAndBrokenValuesAreIgnored) {
    const QPoint ofTheLayout = this->PlaceOfTheLayout();
    for (const char* text : {"", "junk", ",,,,,,,,,", "0,1,-1,-1,-1,-1,x,50,400,250",
                             "0,1,-1,-1,-1,-1,100,y,400,250", "0,1,-1,-1,-1,-1,100,50,400,"}) {
        this->Save("Probe", text);
        EXPECT_EQ(this->PlaceShown(), ofTheLayout) << text;
    }
}

TYPED_TEST(DialogPlace, TitleAtDestructionNamesTheSection) {
    this->Save("Before", "0,1,-1,-1,-1,-1,100,50,400,250");
    typename TestFixture::Probe dialog(QStringLiteral("Before"));
    RunModal(dialog, [&] {
        dialog.setWindowTitle(QStringLiteral("After"));
        dialog.move(60, 70);
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_THAT(this->m_profile.reads, ElementsAre("Dialogs\\Before|WindowPos"));
    EXPECT_THAT(this->m_profile.writes, ElementsAre("Dialogs\\After|WindowPos"));
    EXPECT_EQ(this->Saved("Before"), "0,1,-1,-1,-1,-1,100,50,400,250");
    EXPECT_EQ(this->Saved("After"), "0,1,-1,-1,-1,-1,60,70,360,270");
}

TYPED_TEST(DialogPlace, DialogsWithOneTitleShareAPlace) {
    typename TestFixture::Probe first;
    RunModal(first, [&] {
        first.move(90, 80);
        first.EndDialog(IDCANCEL);
    });
    FrameProbe<CK4CmnDialog> second;
    QPoint place;
    RunModal(second, [&] {
        place = second.pos();
        second.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(place, QPoint(90, 80));
}

TYPED_TEST(DialogPlace, DialogWithoutATitleHasASectionToo) {
    typename TestFixture::Probe dialog{QString()};
    RunModal(dialog, [&] { dialog.EndDialog(IDCANCEL); });
    EXPECT_THAT(this->m_profile.writes, ElementsAre("Dialogs\\|WindowPos"));
}

TYPED_TEST(DialogPlace, TitlesOfAnyCharactersAreTakenAsTheyStand) {
    typename TestFixture::Probe dialog{QString::fromUtf8("100%s \\ Größe")};
    RunModal(dialog, [&] { dialog.EndDialog(IDCANCEL); });
    EXPECT_THAT(this->m_profile.writes, ElementsAre("Dialogs\\100%s \\ Größe|WindowPos"));
}

TYPED_TEST(DialogPlace, ClosedMaximizedItSavesFlagsTwoAndTheNormalPlace) {
    this->Save("Probe", "0,1,-1,-1,-1,-1,100,50,400,250");
    typename TestFixture::Probe dialog;
    RunModal(dialog, [&] {
        dialog.showMaximized();
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isMaximized(); }));
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(this->Saved(), "2,3,-1,-1,-1,-1,100,50,400,250");
}

TYPED_TEST(DialogPlace, ClosedMaximizedItOpensMaximizedAndKeepsItsNormalPlace) {
    this->Save("Probe", "2,3,-1,-1,-1,-1,100,50,400,250");
    for (int round = 0; round < 3; ++round) {
        typename TestFixture::Probe dialog;
        bool maximized = false;
        RunModal(dialog, [&] {
            maximized = dialog.isMaximized();
            dialog.EndDialog(IDCANCEL);
        });
        EXPECT_TRUE(maximized);
        EXPECT_EQ(this->Saved(), "2,3,-1,-1,-1,-1,100,50,400,250");
    }
}

TYPED_TEST(DialogPlace, OpenedMaximizedAndClosedNormalItSavesFlagsZero) {
    this->Save("Probe", "2,3,-1,-1,-1,-1,100,50,400,250");
    typename TestFixture::Probe dialog;
    RunModal(dialog, [&] {
        dialog.showNormal();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isMaximized(); }));
        dialog.move(100, 50);
        dialog.resize(300, 200);
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(this->Saved(), "0,1,-1,-1,-1,-1,100,50,400,250");
}

TYPED_TEST(DialogPlace, ClosedMinimizedItOpensAsANormalWindow) {
    this->Save("Probe", "0,2,-1,-1,-1,-1,100,50,400,250");
    typename TestFixture::Probe dialog;
    bool minimized = true;
    RunModal(dialog, [&] {
        minimized = dialog.isMinimized();
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_FALSE(minimized);
}

TYPED_TEST(DialogPlace, MinimizedWhenClosedIsSavedAsShowStateTwo) {
    typename TestFixture::Probe dialog;
    RunModal(dialog, [&] {
        dialog.showMinimized();
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(this->Saved().substr(0, 4), "0,2,");
}

TYPED_TEST(DialogPlace, PlaceOnAScreenThatIsGoneIsMovedOntoOneThatIsThere) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const char* text :
         {"0,1,-1,-1,-1,-1,50000,40000,50300,40200", "0,1,-1,-1,-1,-1,-9000,-9000,0,0",
          "0,1,-1,-1,-1,-1,2147483647,-2147483648,0,0"}) {
        this->Save("Probe", text);
        typename TestFixture::Probe dialog;
        QRect shown;
        RunModal(dialog, [&] {
            shown = QRect(dialog.pos(), dialog.size());
            dialog.EndDialog(IDCANCEL);
        });
        EXPECT_TRUE(screen.contains(shown)) << text;
        EXPECT_EQ(shown.size(), QSize(300, 200)) << text;
    }
}

TYPED_TEST(DialogPlace, EndedBeforeItIsShownItKeepsThePlaceThatWasRestored) {
    this->Save("Probe", "0,1,-1,-1,-1,-1,100,50,400,250");
    class Refusing : public TestFixture::Probe {
     protected:
        int OnInitDialog() override {
            TestFixture::Probe::OnInitDialog();
            this->EndDialog(IDCANCEL);
            return 1;
        }
    };
    Refusing dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(this->Saved(), "0,1,-1,-1,-1,-1,100,50,400,250");
}

TYPED_TEST(DialogPlace, ModelessDialogSavesItsPlaceWhenItIsDestroyed) {
    this->Save("Probe", "0,1,-1,-1,-1,-1,100,50,400,250");
    typename TestFixture::Probe dialog;
    ASSERT_EQ(dialog.Create(), 1);
    dialog.show();
    EXPECT_EQ(dialog.pos(), QPoint(100, 50));
    dialog.move(120, 60);
    EXPECT_THAT(this->m_profile.writes, IsEmpty());
    dialog.DestroyWindow();
    EXPECT_EQ(this->Saved(), "0,1,-1,-1,-1,-1,120,60,420,260");
}

TYPED_TEST(DialogPlace, PlaceThatCannotBeToldLeavesTheSavedOne) {
    const std::string before = "0,1,-1,-1,-1,-1,100,50,400,250";
    this->Save("Probe", before);
    QWidget parent;
    typename TestFixture::Probe part(QStringLiteral("Probe"), &parent);
    part.setWindowFlags(Qt::Widget);  // no window any more, and so without a place on the screen
    ASSERT_EQ(part.Create(), 1);
    EXPECT_NE(part.pos(), QPoint(100, 50)) << "nor is it put there";
    part.move(7, 8);
    part.DestroyWindow();
    EXPECT_THAT(this->m_profile.writes, IsEmpty());
    EXPECT_EQ(this->Saved(), before);
}

TYPED_TEST(DialogPlace, ProfileThatCannotBeWrittenIsSilent) {
    this->m_profile.failWrites = true;
    typename TestFixture::Probe dialog;
    EXPECT_EQ(RunModal(dialog, [&] { dialog.EndDialog(IDOK); }), IDOK);
    EXPECT_EQ(this->m_profile.writes.size(), 1u);
}

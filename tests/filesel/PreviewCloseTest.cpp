#include "tests/filesel/PreviewFixture.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/support/ModalDriver.h"

namespace k4test {
namespace {

using testing::ElementsAre;

constexpr char kOne[] = "A:\\One.SQ4";
constexpr char kTwo[] = "A:\\Two.SQ4";

/// A file that is shown, with a list beside the window.
class PreviewClosing : public Preview {
 protected:
    void SetUp() override {
        MakeColored(kOne, 3);
        MakeColored(kTwo, 3);
        pane.SetFileListOwner(&owner);
        Show(kOne);
    }
    std::string Keywords() { return Stored(kOne)->GetPtrToKeywords(); }
};

struct WayRow {
    const char* what;
    void (*leave)(CDialog& pane);
};

class PreviewWayOut : public PreviewClosing, public testing::WithParamInterface<WayRow> {};

TEST_P(PreviewWayOut, SavesWhatWasChangedAndTellsTheList) {
    Type(Pane::kKeywords, "winter");
    TypeNotes("new");
    GetParam().leave(pane);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(Keywords(), "winter; ");
    EXPECT_STREQ(Stored(kOne)->GetPtrToComments(), "new");
    EXPECT_THAT(owner.calls,
                ElementsAre("ShowFilesList", "ShowFilesList", "PropertiesButtonPressed"));
}

TEST_P(PreviewWayOut, WithoutAChangeTellsTheListAlone) {
    const std::string before = home.Read("drives/A/One.SQ4");
    GetParam().leave(pane);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(home.Read("drives/A/One.SQ4"), before);
    EXPECT_THAT(owner.calls, ElementsAre("ShowFilesList", "PropertiesButtonPressed"));
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PreviewWayOut,
    testing::Values(WayRow{"Ok", [](CDialog& pane) { Click(pane, IDOK); }},
                    WayRow{"Enter",
                           [](CDialog& pane) {
                               Item<QWidget>(pane, CK4CmnDlgFileSelPrev::kKeywords)->setFocus();
                               PressKey(pane, Qt::Key_Return);
                           }},
                    WayRow{"Escape", [](CDialog& pane) { PressKey(pane, Qt::Key_Escape); }},
                    WayRow{"EscapeInNotes",
                           [](CDialog& pane) {
                               Item<QWidget>(pane, CK4CmnDlgFileSelPrev::kNotes)->setFocus();
                               PressKey(pane, Qt::Key_Escape);
                           }},
                    WayRow{"Close", [](CDialog& pane) { pane.close(); }}),
    [](const auto& row) { return row.param.what; });

TEST_F(PreviewClosing, EnterInNotesIsANewLine) {
    TypeNotes("one");
    PressKey(pane, Qt::Key_Return);
    EXPECT_TRUE(pane.isVisible());
    EXPECT_EQ(Notes(), "one\n");
    pane.close();
}

TEST_F(PreviewClosing, AListThatShowsAnotherFileMeanwhileDoesNotKeepItOpen) {
    Type(Pane::kKeywords, "winter");
    owner.onShowFilesList = [&] { pane.UpdateSelection(kTwo); };
    Click(pane, IDOK);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(Keywords(), "winter; ");
    EXPECT_STREQ(Stored(kTwo)->GetPtrToKeywords(), "summer; sale; ");
}

TEST_F(PreviewClosing, AFileThatHasGoneIsToldOfAndTheWindowCloses) {
    Type(Pane::kKeywords, "winter");
    std::filesystem::remove(Native(kOne));
    messages.Expect(CannotOpen(kOne));
    Click(pane, IDOK);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_THAT(owner.calls, ElementsAre("ShowFilesList", "PropertiesButtonPressed"));
}

TEST_F(PreviewClosing, WhatCouldNotBeSavedIsSavedWhenItIsShownAgain) {
    Type(Pane::kKeywords, "winter");
    {
        const FullDisk disk(home.Read("drives/A/One.SQ4").size());
        messages.Expect("Cannot write the file: File too large.");
        Click(pane, IDOK);
    }
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(Keywords(), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kKeywords), "winter; ") << "it is still in its field";
    Show();
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(), "winter; ");
    pane.close();
}

TEST_F(PreviewClosing, CanBeCreatedAgain) {
    EXPECT_EQ(pane.Create(Pane::kTemplate, nullptr), 0) << "it stands";
    Click(pane, IDOK);
    Show(kTwo);
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
    EXPECT_EQ(Middle(), QColor(Qt::red));
    pane.close();
}

TEST_F(PreviewClosing, ThePropertiesButtonMayEndTheWindow) {
    owner.onProperties = [&] { pane.DestroyWindow(); };
    Click(pane, IDOK);
    EXPECT_FALSE(pane.isVisible());
    EXPECT_EQ(pane.Create(Pane::kTemplate, nullptr), 1);
    pane.DestroyWindow();
}

TEST_F(PreviewClosing, WhoIsToldOfItMayCloseTheWindowOnceMore) {
    const auto again = [&] { pane.close(); };
    owner.onShowFilesList = again;
    owner.onProperties = again;
    for (int i = 0; i < 2; ++i) {
        owner.calls.clear();
        Type(Pane::kKeywords, i == 0 ? "winter" : "spring");
        Click(pane, IDOK);
        EXPECT_FALSE(pane.isVisible());
        EXPECT_EQ(Keywords(), i == 0 ? "winter; " : "spring; ");
        EXPECT_THAT(owner.calls,
                    ElementsAre("ShowFilesList", "ShowFilesList", "PropertiesButtonPressed"));
        Show(kOne);
    }
    pane.close();
}

TEST_F(PreviewClosing, ThePropertiesButtonMayDeleteThePane) {
    pane.close();
    owner.calls.clear();
    QPointer<ProbePane> other = new ProbePane(nullptr);
    other->SetFileListOwner(&owner);
    owner.onProperties = [&] { delete other; };
    Show(*other);
    other->UpdateSelection(kOne);
    TypeOver(*other, Pane::kKeywords, QStringLiteral("winter"));
    other->close();
    EXPECT_TRUE(other.isNull());
    EXPECT_EQ(Keywords(), "winter; ");
}

TEST_F(PreviewClosing, AnObjectThatGoesWithItsWindowSavesNothing) {
    pane.close();
    {
        ProbePane other(nullptr);
        Show(other);
        other.UpdateSelection(kOne);
        TypeOver(other, Pane::kKeywords, QStringLiteral("winter"));
    }
    EXPECT_EQ(Keywords(), "summer; sale; ");
}

TEST_F(PreviewClosing, RunsAsADialogToo) {
    pane.close();
    for (const int id : {+IDOK, 0}) {
        ProbePane other(nullptr);
        const int result = RunModal(other, [&] {
            other.UpdateSelection(kOne);
            TypeOver(other, Pane::kKeywords, QString::number(id));
            if (id == IDOK)
                Click(other, IDOK);
            else
                PressKey(other, Qt::Key_Escape);
        });
        EXPECT_EQ(result, id == IDOK ? IDOK : IDCANCEL);
        EXPECT_EQ(Keywords(), std::to_string(id) + "; ");
    }
}

TEST_F(PreviewClosing, ThereIsOneLayout) {
    ProbePane other(nullptr);
    EXPECT_EQ(other.Create(Pane::kTemplate + 1, nullptr), 0);
    EXPECT_EQ(other.Create(0, nullptr), 0);
    EXPECT_FALSE(other.isVisible());
    pane.close();
}

}  // namespace
}  // namespace k4test

#include "tests/filesel/PreviewFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/sequence/FullDisk.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kOne[] = "A:\\One.SQ4";
constexpr char kTwo[] = "A:\\Two.SQ4";

/// Two files, the first one shown, with a list beside the window.
class PreviewSaving : public Preview {
 protected:
    void SetUp() override {
        MakeColored(kOne, 3);
        MakeColored(kTwo, 3);
        pane.SetFileListOwner(&owner);
        Show(kOne);
    }
    void TearDown() override {
        pane.SetFileListOwner(nullptr);
        pane.close();
    }
    std::string Keywords(const char* path) { return Stored(path)->GetPtrToKeywords(); }
    std::string StoredNotes(const char* path) { return Stored(path)->GetPtrToComments(); }
};

TEST_F(PreviewSaving, MovingToAnotherFileSavesWhatWasChanged) {
    Type(Pane::kKeywords, "winter,snow");
    TypeNotes("New notes");
    Type(Pane::kThumbnailFrame, "2");
    At<QComboBox>(Pane::kCompression)->setCurrentIndex(2);
    pane.UpdateSelection(kTwo);
    const auto stored = Stored(kOne);
    EXPECT_STREQ(stored->GetPtrToKeywords(), "winter; snow; ");
    EXPECT_STREQ(stored->GetPtrToComments(), "New notes");
    EXPECT_EQ(stored->SosData()->thumbnailFrame, 2);
    EXPECT_EQ(stored->RiffHdr()->compressionLevel, 30u);
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
    EXPECT_EQ(Keywords(kTwo), "summer; sale; ");
    EXPECT_THAT(owner.calls, ElementsAre("GetListFile", "ShowFilesList"));
}

TEST_F(PreviewSaving, MovingOnWithoutAChangeSavesNothingAndTellsNobody) {
    const std::string before = home.Read("drives/A/One.SQ4");
    pane.UpdateSelection(kTwo);
    pane.UpdateSelection(kOne);
    pane.UpdateSelection("");
    EXPECT_EQ(home.Read("drives/A/One.SQ4"), before) << "its thumbnail frame is still 0";
    EXPECT_THAT(owner.calls, IsEmpty());
}

TEST_F(PreviewSaving, ClearingTheWindowSavesToo) {
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection("");
    EXPECT_EQ(Keywords(kOne), "winter; ");
}

struct ChangeRow {
    const char* what;
    void (*change)(const CDialog& pane);
};

class PreviewChange : public PreviewSaving, public testing::WithParamInterface<ChangeRow> {};

TEST_P(PreviewChange, OfOneFieldIsAChange) {
    GetParam().change(pane);
    pane.UpdateSelection(kTwo);
    EXPECT_THAT(owner.calls, ElementsAre("GetListFile", "ShowFilesList"));
    // It was one of the first file, and saved: the second one has none.
    owner.calls.clear();
    pane.UpdateSelection(kOne);
    EXPECT_THAT(owner.calls, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Fields, PreviewChange,
    testing::Values(
        ChangeRow{"Keywords",
                  [](const CDialog& pane) { TypeOver(pane, CK4CmnDlgFileSelPrev::kKeywords, {}); }},
        ChangeRow{"Notes",
                  [](const CDialog& pane) {
                      auto* notes = Item<QWidget>(pane, CK4CmnDlgFileSelPrev::kNotes);
                      notes->setFocus();
                      QTest::keyClick(notes, Qt::Key_Return);
                  }},
        ChangeRow{"ThumbnailFrame",
                  [](const CDialog& pane) {
                      TypeOver(pane, CK4CmnDlgFileSelPrev::kThumbnailFrame, QStringLiteral("3"));
                  }},
        ChangeRow{"Spin",
                  [](const CDialog& pane) {
                      auto* field = Item<QWidget>(pane, CK4CmnDlgFileSelPrev::kThumbnailFrame);
                      field->setFocus();
                      QTest::keyClick(field, Qt::Key_Up);
                  }},
        ChangeRow{"Compression",
                  [](const CDialog& pane) {
                      auto* level = Item<QWidget>(pane, CK4CmnDlgFileSelPrev::kCompression);
                      level->setFocus();
                      QTest::keyClick(level, Qt::Key_Down);
                  }}),
    [](const auto& row) { return row.param.what; });

TEST_F(PreviewSaving, NotesAreNotSavedWithAnEmptyKeywordsField) {
    Type(Pane::kKeywords, "");
    TypeNotes("New notes");
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kOne), "summer; sale; ");
    EXPECT_EQ(StoredNotes(kOne), "Two lines\nof notes");
}

TEST_F(PreviewSaving, TheFieldShowsTheKeywordsInTheirForm) {
    Type(Pane::kKeywords, "winter,  snow");
    EXPECT_EQ(pane.SaveKeyWords(1), 1);
    EXPECT_EQ(Text(Pane::kKeywords), "winter; snow; ");
    EXPECT_THAT(owner.calls, ElementsAre("ShowFilesList"));
}

TEST_F(PreviewSaving, SaveKeyWordsTellsTheListByWhetherItIsTheLastTime) {
    EXPECT_EQ(pane.SaveKeyWords(0), 1);
    EXPECT_THAT(owner.calls, ElementsAre("GetListFile", "ShowFilesList"));
    owner.calls.clear();
    EXPECT_EQ(pane.SaveKeyWords(1), 1);
    EXPECT_THAT(owner.calls, ElementsAre("ShowFilesList"));
    EXPECT_EQ(Stored(kOne)->SosData()->thumbnailFrame, 1) << "that of the field";
}

TEST_F(PreviewSaving, AListThatShowsAnotherFileMeanwhileIsServed) {
    Type(Pane::kKeywords, "winter");
    owner.onGetListFile = [&] { pane.UpdateSelection(kTwo); };
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kOne), "winter; ");
    EXPECT_EQ(Keywords(kTwo), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
    EXPECT_THAT(owner.calls, ElementsAre("GetListFile", "ShowFilesList"));
}

TEST_F(PreviewSaving, AFileThatHasGoneIsToldOfAndTheNextOneIsShown) {
    Type(Pane::kKeywords, "winter");
    Type(Pane::kThumbnailFrame, "2");
    std::filesystem::remove(Native(kOne));
    EXPECT_EQ(Middle(), QColor(Qt::green)) << "what is open can still be drawn";
    messages.Expect(CannotOpen(kOne));
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(messages.Pending(), 0u);
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
    EXPECT_EQ(Keywords(kTwo), "summer; sale; ");
    EXPECT_THAT(owner.calls, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(Native(kOne)));
}

TEST_F(PreviewSaving, AFileThatBecameReadOnlyIsToldOf) {
    Type(Pane::kKeywords, "winter");
    std::filesystem::permissions(Native(kOne), std::filesystem::perms::owner_read);
    {
        const OrdinaryUser user(home.Path());
        messages.Expect(CannotOpen(kOne));
        pane.UpdateSelection(kTwo);
    }
    EXPECT_EQ(Keywords(kOne), "summer; sale; ");
}

TEST_F(PreviewSaving, AFullDiskIsToldOfInTheFilesWordsAndNothingIsForgotten) {
    const std::string before = home.Read("drives/A/One.SQ4");
    Type(Pane::kKeywords, "winter");
    {
        const FullDisk disk(before.size());
        messages.Expect("Cannot write the file: File too large.");
        EXPECT_EQ(pane.SaveKeyWords(1), 0);
    }
    EXPECT_THAT(owner.calls, IsEmpty()) << "the list has nothing new";
    EXPECT_EQ(home.Read("drives/A/One.SQ4"), before);
    // There is room again: the change still counts.
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kOne), "winter; ");
}

TEST_F(PreviewSaving, AFileIsSavedByItsPathAlsoWhereAnotherOneHasReplacedIt) {
    Type(Pane::kKeywords, "winter");
    auto facts = Facts();
    facts.thumbnailFrame = 3;
    facts.notes = "another";
    MakeColored(kOne, 5, facts);
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kOne), "winter; ");
    EXPECT_EQ(StoredNotes(kOne), "Two lines\nof notes") << "the fields are what counts";
    EXPECT_EQ(Stored(kOne)->FrameCount(), 5);
}

TEST_F(PreviewSaving, WithoutAListNobodyIsTold) {
    pane.SetFileListOwner(nullptr);
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kOne), "winter; ");
    EXPECT_THAT(owner.calls, IsEmpty());
}

TEST_F(PreviewSaving, WhatIsTypedWithoutAFileIsNoChange) {
    pane.UpdateSelection("");
    At<QLineEdit>(Pane::kKeywords)->setText(QStringLiteral("winter"));
    At<QPlainTextEdit>(Pane::kNotes)->setPlainText(QStringLiteral("new"));
    At<QLineEdit>(Pane::kThumbnailFrame)->setText(QStringLiteral("3"));
    At<QComboBox>(Pane::kCompression)->setCurrentIndex(2);
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(Keywords(kTwo), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kKeywords), "summer; sale; ");
    EXPECT_THAT(owner.calls, IsEmpty());
}

TEST_F(PreviewSaving, TheSameFileIsReadAgainAfterSaving) {
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection(kOne);
    EXPECT_EQ(Text(Pane::kKeywords), "winter; ");
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
}

}  // namespace
}  // namespace k4test

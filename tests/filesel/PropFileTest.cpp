#include <sys/stat.h>

#include "tests/filesel/PropFileFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FileProperties, OpensAFileByItsPath) {
    Show();
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties for One.SQ4");
    EXPECT_EQ(sheet.GetCurFilePath(), kOne);
    EXPECT_EQ(Keywords(), "summer; sale; ");
    ASSERT_NE(sheet.GetFilePtr(), nullptr);
    EXPECT_NE(sheet.GetFilePtr()->SosData(), nullptr) << "open for the page with the picture";
    EXPECT_EQ(sheet.IsReadOnly(), 0);
}

TEST_F(FileProperties, FollowsToAnotherFile) {
    Show();
    Show(kTwo);
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties for Two.SQ4");
    EXPECT_EQ(Keywords(), "second; ");
    EXPECT_THAT(parent.told, IsEmpty());
}

TEST_F(FileProperties, AnEmptyPathChangesNothing) {
    EXPECT_EQ(sheet.ShowFileProperties(""), 0);
    EXPECT_FALSE(sheet.HasWindow());
    Show();
    EXPECT_EQ(sheet.ShowFileProperties(""), 0);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetCurFilePath(), kOne);
}

TEST_F(FileProperties, ApplySavesAndGoesOn) {
    Show();
    TypeKeywords("new,words");
    TypeNotes(sheet, QStringLiteral("New notes"));
    ChooseCompression(sheet, 2);
    Click(sheet, kApply);
    EXPECT_EQ(KeywordsIn(kOne), "new; words; ");
    EXPECT_EQ(NotesIn(kOne), "New notes");
    EXPECT_EQ(LevelIn(kOne), 30U);
    EXPECT_EQ(ThumbnailIn(kOne), 2);
    EXPECT_EQ(Keywords(), "new; words; ") << "the field shows them";
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
    EXPECT_TRUE(sheet.isVisible());
    ShowThumbnail(sheet);
    EXPECT_TRUE(Box(sheet).HasPicture()) << "the file is open again";
}

TEST_F(FileProperties, ApplySavesTheThumbnailFrame) {
    Show();
    ShowThumbnail(sheet);
    TypeOver(sheet, kFrame, QStringLiteral("3"));
    Click(sheet, kApply);
    EXPECT_EQ(ThumbnailIn(kOne), 3);
    EXPECT_EQ(KeywordsIn(kOne), "summer; sale; ");
}

TEST_F(FileProperties, ApplyWithoutAChangeWritesNothing) {
    Show();
    const std::string before = Bytes("One.SQ4");
    const auto written = std::filesystem::last_write_time(Native(kOne));
    Click(sheet, kApply);
    ShowThumbnail(sheet);
    Click(sheet, kApply);
    EXPECT_EQ(Bytes("One.SQ4"), before);
    EXPECT_EQ(std::filesystem::last_write_time(Native(kOne)), written);
}

TEST_F(FileProperties, AChangeOfLetterCaseAloneIsNotSaved) {
    Show();
    TypeKeywords("SUMMER; sale; ");
    Click(sheet, kOk);
    EXPECT_EQ(KeywordsIn(kOne), "summer; sale; ");
}

TEST_F(FileProperties, AnythingSavedNormalisesTheKeywords) {
    k4suite::SequenceFacts facts = Facts();
    facts.keywords = "a,b  c";
    Make(kOne, facts);
    Show();
    EXPECT_EQ(Keywords(), "a,b  c");
    ChooseCompression(sheet, 1);
    Click(sheet, kApply);
    EXPECT_EQ(KeywordsIn(kOne), "a; b; c; ");
}

TEST_F(FileProperties, KeywordsOfDelimitersAreSavedAsNone) {
    Show();
    TypeKeywords(" ;,; ");
    Click(sheet, kOk);
    EXPECT_EQ(KeywordsIn(kOne), "");
    EXPECT_EQ(NotesIn(kOne), "Two lines\nof notes") << "the notes are saved all the same";
}

TEST_F(FileProperties, OkSavesAndCloses) {
    Show();
    TypeKeywords("new");
    Click(sheet, kOk);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
}

TEST_F(FileProperties, TheSecondOfTwoSavesHasBothChanges) {
    Show();
    TypeKeywords("new");
    Click(sheet, kApply);
    TypeNotes(sheet, QStringLiteral("later"));
    Click(sheet, kOk);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    EXPECT_EQ(NotesIn(kOne), "later");
}

TEST_F(FileProperties, MovingToAnotherFileSavesWithoutAsking) {
    Show();
    TypeKeywords("new");
    Show(kTwo);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    EXPECT_EQ(KeywordsIn(kTwo), "second; ");
    EXPECT_EQ(Keywords(), "second; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(FileProperties, MovingToAnEmptyPathSavesToo) {
    Show();
    TypeKeywords("new");
    EXPECT_EQ(sheet.ShowFileProperties(""), 0);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    EXPECT_EQ(sheet.GetCurFilePath(), kOne);
}

TEST_F(FileProperties, CloseWithZeroSavesAndKeepsTheRecordsKeywords) {
    Show();
    TypeKeywords("a,b");
    EXPECT_TRUE(sheet.ReadActivePage());
    sheet.CloseProperties(0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "a; b; ");
}

TEST_F(FileProperties, UnchangedItIsCancelledWithoutAQuestion) {
    Show();
    Click(sheet, kCancel);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
}

TEST_F(FileProperties, CancelAnsweredYesSavesAsOkDoes) {
    Show();
    TypeKeywords("a,b");
    messages.Expect(Question(), k4cmn::MessageAnswer::Yes);
    Click(sheet, kCancel);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "a; b; ");
}

TEST_F(FileProperties, CancelAnsweredNoSavesNothing) {
    Show();
    const std::string before = Bytes("One.SQ4");
    TypeKeywords("a,b");
    messages.Expect(Question(), k4cmn::MessageAnswer::No);
    sheet.close();
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(Bytes("One.SQ4"), before);
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a,b") << "not normalised";
    Show(kTwo);
    EXPECT_EQ(Bytes("One.SQ4"), before) << "nor when it shows another file afterwards";
}

TEST_F(FileProperties, CancelAfterTheThumbnailPageAsksForItsChange) {
    Show();
    ShowThumbnail(sheet);
    TypeOver(sheet, kFrame, QStringLiteral("3"));
    messages.Expect(Question(), k4cmn::MessageAnswer::Yes);
    PressKey(sheet, Qt::Key_Escape);
    EXPECT_EQ(ThumbnailIn(kOne), 3);
}

TEST_F(FileProperties, TheThumbnailPageHasTheLastWordOnWhatIsSaved) {
    Show();
    const std::string before = Bytes("One.SQ4");
    TypeKeywords("lost");
    ShowThumbnail(sheet);
    Click(sheet, kOk);
    EXPECT_EQ(Bytes("One.SQ4"), before);
}

TEST_F(FileProperties, APreviewOnlySequenceIsShownDisabledAndNeverSaved) {
    k4suite::SequenceFacts facts = Facts();
    facts.previewOnly = true;
    Make(kOne, facts);
    const std::string before = Bytes("One.SQ4");
    Show();
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    for (const int id : {+kCompression, +kKeywords, +kNotes})
        EXPECT_FALSE(Enabled(sheet, id)) << id;
    ShowThumbnail(sheet);
    EXPECT_FALSE(Enabled(sheet, kFrame));
    sheet.SetModifiedFlag(1);
    ShowPage(sheet, kGeneral);
    sheet.SetModifiedFlag(1);
    Click(sheet, kApply);
    Click(sheet, kCancel);
    Show();
    sheet.SetModifiedFlag(1);
    Show(kTwo);
    EXPECT_EQ(Bytes("One.SQ4"), before);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
    EXPECT_TRUE(Enabled(sheet, kKeywords));
}

TEST_F(FileProperties, NoWishMakesAPreviewOnlySequenceWritable) {
    k4suite::SequenceFacts facts = Facts();
    facts.previewOnly = true;
    facts.keywords = "a,b";
    Make(kOne, facts);
    Show();
    sheet.SetReadOnly(0);
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    ShowPage(sheet, kGeneral);
    ShowPage(sheet, kAdvanced);
    EXPECT_FALSE(Enabled(sheet, kKeywords));
    sheet.SetModifiedFlag(1);
    Click(sheet, kApply);
    EXPECT_EQ(KeywordsIn(kOne), "a,b");
}

TEST_F(FileProperties, NoWishMakesAFileWritableThatIsNot) {
    ASSERT_EQ(chmod(Native(kOne).c_str(), 0444), 0);
    const OrdinaryUser user(home.Path());
    Show();
    sheet.SetReadOnly(0);
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    Show(kTwo);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
}

TEST_F(FileProperties, ChangesGoWithTheWindow) {
    Show();
    TypeKeywords("dropped");
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    sheet.DestroyWindow();
    Show(kTwo);
    EXPECT_EQ(KeywordsIn(kOne), "summer; sale; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(FileProperties, IsShownAgainByItsOwnRecordsPath) {
    Show();
    ShowPage(sheet, kGeneral);
    ASSERT_EQ(sheet.ShowFileProperties(sheet.GetFileProperties()->filePath), 1);
    EXPECT_EQ(sheet.GetFileProperties()->filePath, kOne);
    EXPECT_EQ(TextOf(sheet, kFileName), kOne);
}

TEST_F(FileProperties, AFileThatCantBeWrittenMovesThroughTheSheetWithoutAPrompt) {
    ASSERT_EQ(chmod(Native(kOne).c_str(), 0444), 0);
    const OrdinaryUser user(home.Path());
    Show();
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    EXPECT_FALSE(Enabled(sheet, kKeywords));
    ShowThumbnail(sheet);
    EXPECT_TRUE(Box(sheet).HasPicture());
    EXPECT_FALSE(Enabled(sheet, kFrame));
    sheet.SetModifiedFlag(1);
    Show(kTwo);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
    Show();
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    Click(sheet, kApply);
    Click(sheet, kOk);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_THAT(parent.told, ElementsAre(1124U));
}

TEST_F(FileProperties, TextsOfAnotherFileDontStayWhereThoseOfThisOneAreTooLong) {
    k4suite::SequenceFacts facts = Facts();
    facts.keywords = std::string(300, 'k');
    facts.notes = std::string(255, 'n');
    Make(kTwo, facts);
    Show();
    Show(kTwo);
    EXPECT_EQ(Keywords(), "");
    EXPECT_EQ(NotesOf(sheet), "");
    ChooseCompression(sheet, 1);
    Click(sheet, kApply);
    EXPECT_EQ(LevelIn(kTwo), 10U);
    EXPECT_EQ(KeywordsIn(kTwo), facts.keywords) << "what can't be shown isn't taken away";
    EXPECT_EQ(NotesIn(kTwo), facts.notes);
    TypeKeywords("short");
    TypeNotes(sheet, QStringLiteral("few"));
    Click(sheet, kOk);
    EXPECT_EQ(KeywordsIn(kTwo), "short; ");
    EXPECT_EQ(NotesIn(kTwo), "few");
}

TEST_F(FileProperties, TheLongestTextsOfAnyCharactersAreSaved) {
    Show();
    const QString emoji = QString::fromUcs4(U"\U0001F600");
    TypeNotes(sheet, QString());
    Item<QPlainTextEdit>(sheet, kNotes)->setPlainText(emoji.repeated(255));
    Item<QLineEdit>(sheet, kKeywords)->setText(emoji.repeated(252));
    Click(sheet, kOk);
    EXPECT_EQ(NotesIn(kOne), emoji.repeated(255).toStdString());
    EXPECT_EQ(KeywordsIn(kOne), emoji.repeated(252).toStdString() + "; ");
}

TEST_F(FileProperties, AThumbnailFrameOfNoneStaysWhenSomethingElseIsSaved) {
    k4suite::SequenceFacts facts = Facts();
    facts.thumbnailFrame = 0;
    Make(kOne, facts);
    Show();
    ShowThumbnail(sheet);
    EXPECT_EQ(TextOf(sheet, kFrame), "1");
    ShowPage(sheet, kAdvanced);
    TypeKeywords("new");
    Click(sheet, kOk);
    EXPECT_EQ(ThumbnailIn(kOne), 0);
}

TEST_F(FileProperties, ModalItSavesAndGivesTheResult) {
    CK4CmnDlgFileProp modal("Properties", &parent, kAdvanced);
    ASSERT_EQ(modal.ShowFileProperties(kOne), 1);
    const int ok = RunModal(modal, [&] {
        TypeOver(modal, kKeywords, QStringLiteral("new"));
        Click(modal, kOk);
    });
    EXPECT_EQ(ok, IDOK);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
    ASSERT_EQ(modal.ShowFileProperties(kTwo), 1);
    messages.Expect(Question(), k4cmn::MessageAnswer::No);
    const int cancel = RunModal(modal, [&] {
        EXPECT_EQ(TextOf(modal, kKeywords), "second; ");
        TypeOver(modal, kKeywords, QStringLiteral("dropped"));
        Click(modal, kCancel);
    });
    EXPECT_EQ(cancel, IDCANCEL);
    EXPECT_EQ(KeywordsIn(kTwo), "second; ");
}

TEST_F(FileProperties, WithoutAFileThereIsNothingToSave) {
    CK4CmnDlgFileProp modal("Properties", &parent, kAdvanced);
    const int result = RunModal(modal, [&] {
        TypeOver(modal, kKeywords, QStringLiteral("new"));
        Click(modal, kApply);
        EXPECT_TRUE(modal.isVisible());
        Click(modal, kOk);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(RunModal(modal, [&] { Click(modal, kCancel); }), IDCANCEL);
}

}  // namespace
}  // namespace k4test

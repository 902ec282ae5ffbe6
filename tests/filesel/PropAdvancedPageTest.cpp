#include <QLabel>

#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

/// The page "Advanced" of a sheet that is given a record, which the test changes and looks at.
class AdvancedPage : public Properties {
 protected:
    AdvancedPage() {
        Make("A:\\One.SQ4");
        file = Opened("A:\\One.SQ4");
        record.filePath = "A:\\One.SQ4";
        record.keywords = "summer; sale; ";
        record.notes = "Two lines\nof notes";
    }
    void Show() {
        ASSERT_EQ(sheet.ShowFileProperties(file.get(), &record), 1);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
    }
    /// The record after the page was read, and whether the sheet is modified.
    const CK4CmnSeqFileProperties& Read() {
        EXPECT_TRUE(sheet.ReadActivePage());
        return *sheet.GetFileProperties();
    }
    void TypeKeywords(const char* text) { TypeOver(sheet, kKeywords, QString::fromUtf8(text)); }

    std::unique_ptr<CK4SequenceFile> file;
    CK4CmnSeqFileProperties record;
    CK4CmnPSProperties sheet{"Properties", nullptr, kAdvanced, kModeless};
};

TEST_F(AdvancedPage, HasItsTitleAndLabels) {
    EXPECT_EQ(sheet.GetPage(kAdvanced)->windowTitle().toStdString(), "Advanced");
    EXPECT_EQ(TextOf(sheet, 1231), "File \n&Compression:");
    EXPECT_EQ(TextOf(sheet, 1232), "&Keywords:");
    EXPECT_EQ(TextOf(sheet, 1233), "&Notes:");
    for (const auto& [label, control] :
         {std::pair(1231, +kCompression), std::pair(1232, +kKeywords), std::pair(1233, +kNotes)})
        EXPECT_EQ(Item<QLabel>(sheet, label)->buddy(), sheet.GetDlgItem(control));
    auto* combo = Item<QComboBox>(sheet, kCompression);
    ASSERT_EQ(combo->count(), 3);
    EXPECT_EQ(combo->itemText(0).toStdString(), "None");
    EXPECT_EQ(combo->itemText(1).toStdString(), "Low");
    EXPECT_EQ(combo->itemText(2).toStdString(), "Medium");
}

TEST_F(AdvancedPage, ShowsTheRecord) {
    Show();
    EXPECT_EQ(TextOf(sheet, kKeywords), "summer; sale; ");
    EXPECT_EQ(NotesOf(sheet), "Two lines\nof notes");
    for (const int id : {+kCompression, +kKeywords, +kNotes})
        EXPECT_TRUE(Enabled(sheet, id)) << id;
}

struct LevelRow {
    int level;
    int index;
};

class AdvancedPageLevel : public AdvancedPage, public testing::WithParamInterface<LevelRow> {};

TEST_P(AdvancedPageLevel, IsShownAndStaysUntouched) {
    record.compression = tag_K4_COMPRESS_TYPE(GetParam().level);
    Show();
    EXPECT_EQ(CompressionOf(sheet), GetParam().index);
    EXPECT_EQ(Read().compression, tag_K4_COMPRESS_TYPE(GetParam().level));
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

INSTANTIATE_TEST_SUITE_P(Levels, AdvancedPageLevel,
                         testing::Values(LevelRow{0, 0}, LevelRow{10, 1}, LevelRow{30, 2},
                                         LevelRow{20, 0}, LevelRow{-1, 0}, LevelRow{77, 0}));

TEST_F(AdvancedPage, AnotherLevelIsStoredAndMarksTheSheet) {
    Show();
    ChooseCompression(sheet, 2);
    EXPECT_EQ(Read().compression, K4_COMPRESS_MEDIUM);
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    ChooseCompression(sheet, 1);
    EXPECT_EQ(Read().compression, K4_COMPRESS_LOW);
    ChooseCompression(sheet, 0);
    EXPECT_EQ(Read().compression, K4_COMPRESS_NONE);
}

TEST_F(AdvancedPage, ALevelChosenAndTakenBackIsNoChange) {
    record.compression = tag_K4_COMPRESS_TYPE(77);
    Show();
    ChooseCompression(sheet, 2);
    ChooseCompression(sheet, 0);
    EXPECT_EQ(Read().compression, tag_K4_COMPRESS_TYPE(77));
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(AdvancedPage, NothingTouchedIsNoChange) {
    Show();
    EXPECT_EQ(Read().keywords, "summer; sale; ");
    EXPECT_EQ(Read().notes, "Two lines\nof notes");
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(AdvancedPage, OtherKeywordsAreStoredAndMarkTheSheet) {
    Show();
    TypeKeywords("winter,sale");
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "summer; sale; ") << "not read yet";
    EXPECT_EQ(Read().keywords, "winter,sale") << "as they were typed";
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_F(AdvancedPage, OtherNotesAreStoredAndMarkTheSheet) {
    Show();
    TypeNotes(sheet, QStringLiteral("New"));
    QTest::keyClick(Item<QPlainTextEdit>(sheet, kNotes), Qt::Key_Return);
    QTest::keyClicks(Item<QPlainTextEdit>(sheet, kNotes), QStringLiteral("lines"));
    EXPECT_TRUE(sheet.isVisible()) << "Enter makes a line here";
    EXPECT_EQ(Read().notes, "New\nlines");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_F(AdvancedPage, ADifferenceOfCaseAloneIsNotNoticed) {
    Show();
    TypeKeywords("SUMMER; Sale; ");
    TypeNotes(sheet, QStringLiteral("x"));
    Item<QPlainTextEdit>(sheet, kNotes)->setPlainText(QStringLiteral("TWO lines\nOF notes"));
    EXPECT_EQ(Read().keywords, "summer; sale; ");
    EXPECT_EQ(Read().notes, "Two lines\nof notes");
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(AdvancedPage, ADifferenceOfCaseComesAlongWithAnotherOne) {
    Show();
    TypeKeywords("SUMMER; Sale; new");
    EXPECT_EQ(Read().keywords, "SUMMER; Sale; new");
}

TEST_F(AdvancedPage, KeywordsTakenAwayAreAChange) {
    Show();
    TypeKeywords("");
    EXPECT_EQ(Read().keywords, "");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_F(AdvancedPage, ATextTypedBackAfterItWasReadIsAChangeAgain) {
    Show();
    TypeNotes(sheet, QStringLiteral("one"));
    EXPECT_EQ(Read().notes, "one");
    sheet.SetModifiedFlag(0);
    TypeNotes(sheet, QStringLiteral("two"));
    EXPECT_EQ(Read().notes, "two");
    TypeNotes(sheet, QStringLiteral("one"));
    EXPECT_EQ(Read().notes, "one");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_F(AdvancedPage, AChangeOfOneTextLeavesTheMarkOfAnother) {
    Show();
    sheet.SetModifiedFlag(1);
    EXPECT_EQ(Read().keywords, "summer; sale; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1) << "this page never clears it";
}

TEST_F(AdvancedPage, TextsThatItCantShowAsTheyAreStayUntouched) {
    record.keywords = "tab\there \xFF bad";
    record.notes =
        "a\r\nb\rc\xC2\xA0"
        "d\xE2\x80\xA8"
        "e";
    Show();
    EXPECT_EQ(Read().keywords, record.keywords);
    EXPECT_EQ(Read().notes, record.notes);
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(AdvancedPage, TakesAtMost255CharactersInEachText) {
    record.keywords = record.notes = "";
    Show();
    Item<QLineEdit>(sheet, kKeywords)->setText(QString(300, QLatin1Char('k')));
    Item<QPlainTextEdit>(sheet, kNotes)->setPlainText(QString(300, QLatin1Char('n')));
    EXPECT_EQ(Read().keywords, std::string(255, 'k'));
    EXPECT_EQ(Read().notes, std::string(255, 'n'));
}

TEST_F(AdvancedPage, CutsLongerTextsWhenItIsFilled) {
    Show();
    sheet.GetFileProperties()->keywords = std::string(300, 'k');
    sheet.GetFileProperties()->notes = std::string(300, 'n');
    ShowPage(sheet, kGeneral);
    sheet.GetFileProperties()->keywords = std::string(300, 'k');
    sheet.GetFileProperties()->notes = std::string(300, 'n');
    sheet.SetModifiedFlag(0);
    ShowPage(sheet, kAdvanced);
    EXPECT_EQ(TextOf(sheet, kKeywords), std::string(255, 'k'));
    EXPECT_EQ(NotesOf(sheet), std::string(255, 'n'));
    EXPECT_EQ(Read().keywords.size(), 300U) << "what nobody touched isn't cut in the record";
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(AdvancedPage, CountsCharactersAndNotBytes) {
    std::string text;
    for (int i = 0; i < 250; ++i)
        text += "\xF0\x9F\x98\x80";
    record.keywords = record.notes = text;
    Show();
    EXPECT_EQ(TextOf(sheet, kKeywords), text);
    EXPECT_EQ(NotesOf(sheet), text);
}

TEST_F(AdvancedPage, IsDisabledWhereNothingMayBeChanged) {
    for (const bool byWish : {false, true}) {
        sheet.SetReadOnly(byWish ? 1 : 0);
        record.previewOnly = byWish ? 0 : 1;
        Show();
        for (const int id : {+kCompression, +kKeywords, +kNotes})
            EXPECT_FALSE(Enabled(sheet, id)) << id;
    }
    sheet.SetReadOnly(0);
    Show();
    for (const int id : {+kCompression, +kKeywords, +kNotes})
        EXPECT_TRUE(Enabled(sheet, id)) << id;
}

TEST_F(AdvancedPage, IsReadWhenItIsLeftAndFilledWhenItComesBack) {
    Show();
    TypeKeywords("new");
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "new");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    sheet.GetFileProperties()->keywords = "other";
    ShowPage(sheet, kAdvanced);
    EXPECT_EQ(TextOf(sheet, kKeywords), "other");
}

TEST_F(AdvancedPage, EnterInKeywordsPressesOk) {
    Show();
    TypeKeywords("b a");
    QTest::keyClick(Item<QLineEdit>(sheet, kKeywords), Qt::Key_Return);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "b; a; ");
}

}  // namespace
}  // namespace k4test

#include "k4cmndlg/frame/StringTable.h"
#include "tests/filesel/PropFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;

/// The plain sheet, which is given a record and an open file.
class PropertiesSheet : public Properties {
 protected:
    PropertiesSheet() {
        Make("A:\\One.SQ4");
        file = Opened("A:\\One.SQ4");
        record = RecordOf("A:\\One.SQ4");
    }
    static CK4CmnSeqFileProperties RecordOf(const std::string& path) {
        CK4CmnSeqFileProperties made;
        made.SetFileProperties(7, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, K4_COMPRESS_NONE, 0,
                               3, 2, "a; ", "notes", path);
        return made;
    }
    int Show() { return sheet.ShowFileProperties(file.get(), &record); }

    std::unique_ptr<CK4SequenceFile> file;
    CK4CmnSeqFileProperties record;
    CK4CmnPSProperties sheet{"Properties", &parent, kAdvanced, kModeless};
};

TEST_F(PropertiesSheet, HasItsPagesInTheirOrder) {
    ASSERT_EQ(sheet.GetPageCount(), 3);
    EXPECT_EQ(sheet.GetPage(0)->windowTitle().toStdString(), "General");
    EXPECT_EQ(sheet.GetPage(1)->windowTitle().toStdString(), "Thumbnail");
    EXPECT_EQ(sheet.GetPage(2)->windowTitle().toStdString(), "Advanced");
}

TEST_F(PropertiesSheet, ItsModesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(CK4CmnPSProperties::MODAL), 0);
    EXPECT_EQ(static_cast<int>(CK4CmnPSProperties::MODELESS), 1);
}

TEST_F(PropertiesSheet, BeginsWithNothingShown) {
    EXPECT_EQ(sheet.IsReadOnly(), 0);
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
    EXPECT_EQ(sheet.GetCurFilePath(), "");
    EXPECT_EQ(sheet.GetDuration(), 0U);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties");
}

TEST_F(PropertiesSheet, HasItsTitleByNumberToo) {
    const k4cmn::StringRow rows[] = {{4712, "By number"}};
    const k4cmn::StringModule module(rows);
    const CK4CmnPSProperties plain(4712, nullptr);
    const CK4CmnDlgFileProp byFile(4712, nullptr);
    EXPECT_EQ(plain.windowTitle().toStdString(), "By number");
    EXPECT_EQ(byFile.windowTitle().toStdString(), "By number");
}

TEST_F(PropertiesSheet, ShowsAGivenRecord) {
    ASSERT_EQ(Show(), 1);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetFilePtr(), file.get());
    EXPECT_EQ(sheet.GetCurFilePath(), "A:\\One.SQ4");
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; ");
    EXPECT_EQ(TextOf(sheet, kKeywords), "a; ");
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties for One.SQ4");
}

TEST_F(PropertiesSheet, WithoutAFileOrARecordNothingChanges) {
    ASSERT_EQ(Show(), 1);
    CK4CmnSeqFileProperties other = RecordOf("A:\\Two.SQ4");
    EXPECT_EQ(sheet.ShowFileProperties(nullptr, &other), 0);
    EXPECT_EQ(sheet.ShowFileProperties(file.get(), nullptr), 0);
    EXPECT_EQ(sheet.GetCurFilePath(), "A:\\One.SQ4");
    EXPECT_EQ(sheet.GetFilePtr(), file.get());
    CK4CmnPSProperties fresh("Properties", nullptr, kGeneral, kModeless);
    EXPECT_EQ(fresh.ShowFileProperties(nullptr, &other), 0);
    EXPECT_FALSE(fresh.HasWindow());
}

TEST_F(PropertiesSheet, FollowsToAnotherRecord) {
    ASSERT_EQ(Show(), 1);
    sheet.SetModifiedFlag(1);
    Make("A:\\Two.SQ4");
    const auto two = Opened("A:\\Two.SQ4");
    CK4CmnSeqFileProperties other = RecordOf("A:\\Two.SQ4");
    other.keywords = "b; ";
    ASSERT_EQ(sheet.ShowFileProperties(two.get(), &other), 1);
    EXPECT_EQ(TextOf(sheet, kKeywords), "b; ");
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties for Two.SQ4");
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_F(PropertiesSheet, RefillsOnlyThePageInFront) {
    ASSERT_EQ(Show(), 1);
    ShowPage(sheet, kGeneral);
    CK4CmnSeqFileProperties other = RecordOf("A:\\Two.SQ4");
    other.keywords = "b; ";
    ASSERT_EQ(sheet.ShowFileProperties(file.get(), &other), 1);
    EXPECT_EQ(TextOf(sheet, kFileName), "A:\\Two.SQ4");
    EXPECT_EQ(TextOf(sheet, kKeywords), "a; ");
    ShowPage(sheet, kAdvanced);
    EXPECT_EQ(TextOf(sheet, kKeywords), "b; ");
}

struct TitleRow {
    const char* path;
    const char* title;
};

class PropertiesTitle : public PropertiesSheet, public testing::WithParamInterface<TitleRow> {};

TEST_P(PropertiesTitle, IsMadeOfNameAndExtension) {
    sheet.SetTitle(GetParam().path);
    EXPECT_EQ(sheet.windowTitle().toStdString(), GetParam().title);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PropertiesTitle,
    testing::Values(TitleRow{"A:\\x.Sign\\y.Lib\\One.SQ4", "Properties for One.SQ4"},
                    TitleRow{"One", "Properties for One"}, TitleRow{"", "Properties"},
                    TitleRow{"\\\\host\\share\\100%s%n.SQ4", "Properties for 100%s%n.SQ4"},
                    TitleRow{"A:\\\xE5\x8C\x97.SQ4", "Properties for \xE5\x8C\x97.SQ4"}));

TEST_F(PropertiesSheet, ReadOnlyFollowsTheWishAndTheRecord) {
    ASSERT_EQ(Show(), 1);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
    record.previewOnly = 1;
    ASSERT_EQ(Show(), 1);
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    record.previewOnly = 0;
    ASSERT_EQ(Show(), 1);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
    sheet.SetReadOnly(1);
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    ASSERT_EQ(Show(), 1);
    EXPECT_EQ(sheet.IsReadOnly(), 1);
    sheet.SetReadOnly(0);
    EXPECT_EQ(sheet.IsReadOnly(), 0);
}

TEST_F(PropertiesSheet, TheOperationThatDoesNothingDoesNothing) {
    std::string to = "kept";
    sheet.FormatKeyWords("a,b", &to);
    sheet.FormatKeyWords("a,b", nullptr);
    EXPECT_EQ(to, "kept");
}

TEST_F(PropertiesSheet, FillsARecordFromTheFile) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 16;
    facts.columns = 80;
    facts.color = K4_SIGN_COLOR_TRI3;
    facts.level = K4_COMPRESS_LOW;
    facts.previewOnly = true;
    Make("A:\\Two.SQ4", facts);
    const auto two = Opened("A:\\Two.SQ4");
    CK4CmnSeqFileProperties any = RecordOf("A:\\Two.SQ4");
    ASSERT_EQ(sheet.ShowFileProperties(two.get(), &any), 1);
    CK4CmnSeqFileProperties filled;
    ASSERT_EQ(sheet.GetSeqFileInfo(&filled, "B:\\Given.SQ4"), 1);
    EXPECT_EQ(filled.rows, 16U);
    EXPECT_EQ(filled.columns, 80U);
    EXPECT_EQ(filled.color, K4_SIGN_COLOR_TRI3);
    EXPECT_EQ(filled.pixel, K4_PIXEL_TECH_LED);
    EXPECT_EQ(filled.compression, K4_COMPRESS_LOW);
    EXPECT_NE(filled.previewOnly, 0);
    EXPECT_EQ(filled.frameCount, 3U);
    EXPECT_EQ(filled.thumbnailFrame, 2U);
    EXPECT_EQ(filled.keywords, "summer; sale; ");
    EXPECT_EQ(filled.notes, "Two lines\nof notes");
    EXPECT_EQ(filled.filePath, "B:\\Given.SQ4");
}

TEST_F(PropertiesSheet, FillsNoRecordWithoutAnOpenFile) {
    CK4CmnSeqFileProperties kept = RecordOf("kept");
    EXPECT_EQ(sheet.GetSeqFileInfo(&kept, "A:\\One.SQ4"), 0);
    ASSERT_EQ(Show(), 1);
    EXPECT_EQ(sheet.GetSeqFileInfo(nullptr, "A:\\One.SQ4"), 0);
    file->Close();
    EXPECT_EQ(sheet.GetSeqFileInfo(&kept, "A:\\One.SQ4"), 0);
    EXPECT_EQ(kept.filePath, "kept");
}

TEST_F(PropertiesSheet, ApplyNormalisesTheKeywordsAndShowsThem) {
    ASSERT_EQ(Show(), 1);
    TypeOver(sheet, kKeywords, QStringLiteral("a,b  c"));
    Click(sheet, kApply);
    EXPECT_EQ(TextOf(sheet, kKeywords), "a; b; c; ");
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; c; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1) << "the caller saves";
    EXPECT_TRUE(sheet.isVisible());
}

TEST_F(PropertiesSheet, ApplyWithAnotherPageInFrontNormalisesTheRecord) {
    ASSERT_EQ(Show(), 1);
    TypeOver(sheet, kKeywords, QStringLiteral("a,b"));
    ShowPage(sheet, kGeneral);
    Click(sheet, kApply);
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; ");
    EXPECT_EQ(TextOf(sheet, kKeywords), "a,b") << "shown when its page comes back";
    ShowPage(sheet, kAdvanced);
    EXPECT_EQ(TextOf(sheet, kKeywords), "a; b; ");
}

TEST_F(PropertiesSheet, OkReadsThePageClosesAndNormalises) {
    ASSERT_EQ(Show(), 1);
    TypeOver(sheet, kKeywords, QStringLiteral("a,b"));
    Click(sheet, kOk);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_F(PropertiesSheet, TheBaseClosesFirst) {
    ASSERT_EQ(Show(), 1);
    sheet.GetFileProperties()->keywords = "a,b";
    sheet.CloseProperties(1);
    EXPECT_EQ(TextOf(sheet, kKeywords), "a; ") << "too late to be shown";
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; ");
}

TEST_F(PropertiesSheet, ClosedWithoutTheArgumentKeepsTheKeywords) {
    ASSERT_EQ(Show(), 1);
    sheet.GetFileProperties()->keywords = "a,b";
    sheet.CloseProperties(0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a,b");
    sheet.CloseProperties(0);
    sheet.CloseProperties(1);
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; ") << "also without a window";
}

TEST_F(PropertiesSheet, UnchangedItIsCancelledWithoutAQuestion) {
    ASSERT_EQ(Show(), 1);
    sheet.close();
    EXPECT_FALSE(sheet.HasWindow());
}

struct ClosingRow {
    const char* what;
    std::function<void(CK4CmnPSProperties&)> close;
};

class PropertiesClosing : public PropertiesSheet, public testing::WithParamInterface<ClosingRow> {};

TEST_P(PropertiesClosing, YesKeepsTheChanges) {
    ASSERT_EQ(Show(), 1);
    TypeOver(sheet, kKeywords, QStringLiteral("a,b"));
    messages.Expect(Question(), k4cmn::MessageAnswer::Yes, [&] { EXPECT_TRUE(sheet.isVisible()); });
    GetParam().close(sheet);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; b; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
}

TEST_P(PropertiesClosing, NoPutsTheRecordBackAsItWasShown) {
    record.keywords = "a";
    ASSERT_EQ(Show(), 1);
    TypeOver(sheet, kKeywords, QStringLiteral("new"));
    ChooseCompression(sheet, 2);
    messages.Expect(Question(), k4cmn::MessageAnswer::No);
    GetParam().close(sheet);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "a; ") << "closed through CloseProperties(1)";
    EXPECT_EQ(sheet.GetFileProperties()->compression, K4_COMPRESS_NONE);
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

TEST_P(PropertiesClosing, AReadOnlySheetIsNotAsked) {
    ASSERT_EQ(Show(), 1);
    sheet.SetModifiedFlag(1);
    sheet.SetReadOnly(1);
    GetParam().close(sheet);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetModifiedFlag(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PropertiesClosing,
    testing::Values(ClosingRow{"CancelButton", [](auto& any) { Click(any, IDCANCEL); }},
                    ClosingRow{"CloseButton", [](auto& any) { any.close(); }},
                    ClosingRow{"Escape", [](auto& any) { PressKey(any, Qt::Key_Escape); }}),
    [](const auto& row) { return row.param.what; });

/// A sheet that keeps the order in which its operations are called.
class Recording : public CK4CmnPSProperties {
 public:
    using CK4CmnPSProperties::CK4CmnPSProperties;
    std::vector<std::string> calls;

    void CloseProperties(int formatKeyWords) override {
        calls.push_back("close " + std::to_string(formatKeyWords));
        CK4CmnPSProperties::CloseProperties(formatKeyWords);
    }
    void OnOK() override {
        calls.emplace_back("ok");
        CK4CmnPSProperties::OnOK();
    }
    void OnCancel() override {
        calls.emplace_back("cancel");
        CK4CmnPSProperties::OnCancel();
    }
    void OnApply() override {
        calls.emplace_back("apply");
        CK4CmnPSProperties::OnApply();
    }
};

TEST_F(PropertiesSheet, ItsButtonsLeadToItsOperations) {
    Recording recording("Properties", nullptr, kGeneral, kModeless);
    ASSERT_EQ(recording.ShowFileProperties(file.get(), &record), 1);
    Click(recording, kApply);
    Click(recording, kOk);
    EXPECT_THAT(recording.calls, ElementsAre("apply", "ok", "close 1"));
    ASSERT_EQ(recording.ShowFileProperties(file.get(), &record), 1);
    recording.calls.clear();
    Click(recording, kCancel);
    EXPECT_THAT(recording.calls, ElementsAre("cancel", "close 1"));
}

/// The modal sheet.
class PropertiesModal : public PropertiesSheet {
 protected:
    PropertiesModal() { EXPECT_EQ(modal.ShowFileProperties(file.get(), &record), 1); }

    CK4CmnPSProperties modal{"Properties", &parent, kAdvanced, kModal};
};

TEST_F(PropertiesModal, IsNotShownBeforeItRunsAndThenFilledAtOnce) {
    EXPECT_FALSE(modal.HasWindow());
    EXPECT_EQ(modal.windowTitle().toStdString(), "Properties");
    RunModal(modal, [&] {
        EXPECT_EQ(modal.windowTitle().toStdString(), "Properties for One.SQ4");
        EXPECT_EQ(TextOf(modal, kKeywords), "a; ");
        EXPECT_TRUE(Enabled(modal, kKeywords));
        Click(modal, kOk);
    });
    EXPECT_FALSE(modal.HasWindow()) << "destroyed when it has ended";
}

TEST_F(PropertiesModal, KnowsBeforeItRunsWhetherItsRecordIsReadOnly) {
    EXPECT_EQ(modal.IsReadOnly(), 0);
    record.previewOnly = 1;
    ASSERT_EQ(modal.ShowFileProperties(file.get(), &record), 1);
    EXPECT_EQ(modal.IsReadOnly(), 1);
}

TEST_F(PropertiesModal, OkGivesIdokAndTheRecord) {
    const int result = RunModal(modal, [&] {
        TypeOver(modal, kKeywords, QStringLiteral("x y"));
        Click(modal, kOk);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(modal.GetFileProperties()->keywords, "x; y; ");
    EXPECT_EQ(modal.GetModifiedFlag(), 1);
}

TEST_F(PropertiesModal, EnterInAPageGivesIdok) {
    EXPECT_EQ(RunModal(modal, [&] { PressKey(modal, Qt::Key_Return); }), IDOK);
}

TEST_F(PropertiesModal, CancelGivesIdcancelUnlessTheChangesAreKept) {
    EXPECT_EQ(RunModal(modal, [&] { Click(modal, kCancel); }), IDCANCEL);
    for (const auto answer : {k4cmn::MessageAnswer::No, k4cmn::MessageAnswer::Yes}) {
        messages.Expect(Question(), answer);
        const int result = RunModal(modal, [&] {
            TypeOver(modal, kKeywords, QStringLiteral("x y"));
            Click(modal, kCancel);
        });
        EXPECT_EQ(result, answer == k4cmn::MessageAnswer::Yes ? IDOK : IDCANCEL);
    }
}

TEST_F(PropertiesModal, WithThePictureInFrontWaitsForItToo) {
    modal.SetActivePage(kThumbnail);
    RunModal(modal, [&] {
        EXPECT_FALSE(Box(modal).HasPicture());
        EXPECT_TRUE(QTest::qWaitFor([&] { return Box(modal).HasPicture(); }));
        Click(modal, kCancel);
    });
}

TEST_F(PropertiesSheet, MayBeDeletedWhileItAsks) {
    auto* doomed = new CK4CmnPSProperties("Properties", nullptr, kAdvanced, kModeless);
    ASSERT_EQ(doomed->ShowFileProperties(file.get(), &record), 1);
    TypeOver(*doomed, kKeywords, QStringLiteral("x"));
    messages.Expect(Question(), k4cmn::MessageAnswer::Yes, [&] { delete doomed; });
    doomed->OnCancel();
}

}  // namespace
}  // namespace k4test

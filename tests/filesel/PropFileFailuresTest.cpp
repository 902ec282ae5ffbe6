#include "tests/filesel/PropFileFixture.h"
#include "tests/suite/sequence/FullDisk.h"

namespace k4test {
namespace {

using testing::IsEmpty;

TEST_F(FileProperties, AFileThatCantBeOpenedIsToldAndNoWindowMade) {
    messages.Expect(CantOpen("A:\\Absent.SQ4"));
    EXPECT_EQ(sheet.ShowFileProperties("A:\\Absent.SQ4"), 0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
    EXPECT_THAT(parent.told, IsEmpty());
}

TEST_F(FileProperties, AFileThatCantBeOpenedClosesTheSheet) {
    Show();
    messages.Expect(CantOpen("A:\\Absent.SQ4"), k4cmn::MessageAnswer::Ok,
                    [&] { EXPECT_TRUE(sheet.isVisible()); });
    EXPECT_EQ(sheet.ShowFileProperties("A:\\Absent.SQ4"), 0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
    Show();
    EXPECT_TRUE(sheet.isVisible()) << "and opens again";
}

struct BadFile {
    const char* what;
    std::function<void(const TempFolder&)> make;
};

class FilePropertiesOfABadFile : public FileProperties,
                                 public testing::WithParamInterface<BadFile> {};

TEST_P(FilePropertiesOfABadFile, AreNotShown) {
    GetParam().make(home);
    messages.Expect(CantOpen("A:\\Bad%s.SQ4"));
    EXPECT_EQ(sheet.ShowFileProperties("A:\\Bad%s.SQ4"), 0);
    EXPECT_FALSE(sheet.HasWindow());
}

INSTANTIATE_TEST_SUITE_P(
    Files, FilePropertiesOfABadFile,
    testing::Values(BadFile{"Absent", [](const TempFolder&) {}},
                    BadFile{"Empty",
                            [](const TempFolder& home) { home.Write("drives/A/Bad%s.SQ4"); }},
                    BadFile{"Text",
                            [](const TempFolder& home) {
                                home.Write("drives/A/Bad%s.SQ4", std::string(5000, 'x'));
                            }},
                    BadFile{"CutShort",
                            [](const TempFolder& home) {
                                home.Write("drives/A/Bad%s.SQ4",
                                           home.Read("drives/A/One.SQ4").substr(0, 2000));
                            }},
                    BadFile{"Folder",
                            [](const TempFolder& home) {
                                std::filesystem::create_directories(home / "drives/A/Bad%s.SQ4");
                            }}),
    [](const auto& row) { return row.param.what; });

TEST_F(FileProperties, WithoutALibraryNothingIsOpened) {
    k4cmn::SequenceLibrary* former = k4cmn::Provided<k4cmn::SequenceLibrary>::Install(nullptr);
    messages.Expect(CantOpen(kOne));
    EXPECT_EQ(sheet.ShowFileProperties(kOne), 0);
    k4cmn::Provided<k4cmn::SequenceLibrary>::Install(former);
}

TEST_F(FileProperties, TheWaitCursorIsGoneWhenAMessageIsShown) {
    messages.Expect(CantOpen("A:\\Absent.SQ4"), k4cmn::MessageAnswer::Ok,
                    [] { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); });
    EXPECT_EQ(sheet.ShowFileProperties("A:\\Absent.SQ4"), 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(FileProperties, OpensWithAWaitCursor) {
    class Watched final : public k4cmn::SequenceLibrary {
     public:
        explicit Watched(SequenceLibrary& library) : m_library(library) {}
        int made = 0;
        std::unique_ptr<CK4SequenceFile> Create() override {
            ++made;
            const QCursor* cursor = QGuiApplication::overrideCursor();
            EXPECT_TRUE(cursor && cursor->shape() == Qt::WaitCursor);
            return m_library.Create();
        }

     private:
        SequenceLibrary& m_library;
    } watched(library);
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useWatched(watched);
    Show();
    EXPECT_GE(watched.made, 1);
    const int shown = watched.made;
    ChooseCompression(sheet, 1);
    Click(sheet, kOk);
    EXPECT_GT(watched.made, shown);
}

TEST_F(FileProperties, WithAFullDiskApplySaysWhyAndKeepsTheChanges) {
    Show();
    TypeKeywords("new");
    {
        const FullDisk full(Bytes("One.SQ4").size() + 100);
        messages.Expect(NotSaved(kFull));
        Click(sheet, kApply);
    }
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(KeywordsIn(kOne), "summer; sale; ");
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    EXPECT_THAT(parent.told, IsEmpty());
    Click(sheet, kApply);
    EXPECT_EQ(KeywordsIn(kOne), "new; ") << "with room again";
}

TEST_F(FileProperties, WithAFullDiskOkStaysOpenAndTriesAgain) {
    Show();
    ShowThumbnail(sheet);
    TypeOver(sheet, kFrame, QStringLiteral("3"));
    {
        const FullDisk full(Bytes("One.SQ4").size() + 100);
        for (int time = 0; time < 2; ++time) {
            messages.Expect(NotSaved(kFull));
            Click(sheet, kOk);
            EXPECT_TRUE(sheet.isVisible());
        }
    }
    EXPECT_EQ(ThumbnailIn(kOne), 2);
    TypeOver(sheet, kFrame, QStringLiteral("1"));
    EXPECT_TRUE(Box(sheet).HasPicture()) << "the file is open for reading again";
    TypeOver(sheet, kFrame, QStringLiteral("3"));
    Click(sheet, kOk);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(ThumbnailIn(kOne), 3) << "an equal number doesn't clear what wasn't saved";
}

TEST_F(FileProperties, WithAFullDiskItDoesntMoveToAnotherFile) {
    Show();
    TypeKeywords("new");
    {
        const FullDisk full(Bytes("One.SQ4").size() + 100);
        messages.Expect(NotSaved(kFull));
        EXPECT_EQ(sheet.ShowFileProperties(kTwo), 0);
    }
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetCurFilePath(), kOne);
    EXPECT_EQ(sheet.windowTitle().toStdString(), "Properties for One.SQ4");
    EXPECT_EQ(sheet.GetFileProperties()->keywords, "new; ");
    Show(kTwo);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
}

TEST_F(FileProperties, WithAFullDiskChangesCanStillBeDropped) {
    Show();
    TypeKeywords("new");
    {
        const FullDisk full(Bytes("One.SQ4").size() + 100);
        messages.Expect(Question(), k4cmn::MessageAnswer::Yes);
        messages.Expect(NotSaved(kFull));
        Click(sheet, kCancel);
        EXPECT_TRUE(sheet.isVisible()) << "Yes is as OK";
    }
    messages.Expect(Question(), k4cmn::MessageAnswer::No);
    Click(sheet, kCancel);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "summer; sale; ");
}

TEST_F(FileProperties, AFileThatHasGoneIsToldAndItsChangesKept) {
    Show();
    TypeKeywords("new");
    const std::string content = Bytes("One.SQ4");
    Remove(kOne);
    messages.Expect(CantOpen(kOne));
    Click(sheet, kOk);
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_EQ(sheet.GetFilePtr(), nullptr);
    messages.Expect(CantOpen(kOne));
    EXPECT_EQ(sheet.ShowFileProperties(kTwo), 0);
    EXPECT_EQ(Keywords(), "new");
    ShowPage(sheet, kThumbnail);
    ShowPage(sheet, kGeneral);
    EXPECT_EQ(TextOf(sheet, kDuration), " 0.00 Seconds");
    home.Write("drives/A/One.SQ4", content);
    Click(sheet, kOk);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
}

TEST_F(FileProperties, AFileThatHasGoneIsForgottenWithTheWindow) {
    Show();
    TypeKeywords("new");
    Remove(kOne);
    messages.Expect(CantOpen(kOne));
    Click(sheet, kApply);
    sheet.DestroyWindow();
    Show(kTwo);
    EXPECT_EQ(Keywords(), "second; ");
}

TEST_F(FileProperties, WhatWasntSavedIsSavedWhenTheSheetIsClosedFromAnotherPage) {
    Show();
    TypeKeywords("new");
    {
        const FullDisk full(Bytes("One.SQ4").size() + 100);
        messages.Expect(NotSaved(kFull));
        Click(sheet, kApply);
    }
    ShowThumbnail(sheet);
    EXPECT_TRUE(sheet.ReadActivePage());
    sheet.CloseProperties(0);
    EXPECT_FALSE(sheet.HasWindow());
    EXPECT_EQ(KeywordsIn(kOne), "new; ") << "an equal thumbnail frame doesn't clear it";
}

TEST_F(FileProperties, AFileThatWasCutShortSaysSo) {
    Show();
    TypeKeywords("new");
    const std::string content = Bytes("One.SQ4");
    home.Write("drives/A/One.SQ4", content.substr(0, content.size() - 10));
    messages.Expect(NotSaved("The file is cut short: it ends at offset " +
                             std::to_string(content.size() - 10) + " and should end at " +
                             std::to_string(content.size()) + "."));
    Click(sheet, kApply);
    EXPECT_EQ(sheet.GetModifiedFlag(), 1);
    sheet.SetModifiedFlag(0);
    messages.Expect(Question(), k4cmn::MessageAnswer::No);
    Click(sheet, kCancel);
}

TEST_F(FileProperties, ModalItStaysOpenWhereSavingFails) {
    CK4CmnDlgFileProp modal("Properties", &parent, kAdvanced);
    ASSERT_EQ(modal.ShowFileProperties(kOne), 1);
    const int result = RunModal(modal, [&] {
        TypeOver(modal, kKeywords, QStringLiteral("new"));
        {
            const FullDisk full(Bytes("One.SQ4").size() + 100);
            messages.Expect(NotSaved(kFull));
            Click(modal, kOk);
        }
        EXPECT_TRUE(modal.isVisible());
        Click(modal, kOk);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(KeywordsIn(kOne), "new; ");
}

}  // namespace
}  // namespace k4test

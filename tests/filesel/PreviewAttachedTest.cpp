#include "tests/filesel/PreviewFixture.h"

namespace k4test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kOne[] = "A:\\One.SQ4";
constexpr char kTwo[] = "A:\\Two.SQ4";

/// A sequence of the test's own, open for writing, that is attached and shown.
class PreviewAttached : public Preview {
 protected:
    void SetUp() override {
        MakeColored(kOne, 3);
        MakeColored(kTwo, 3);
        pane.SetFileListOwner(&owner);
        Show();
        given = Open(kOne);
        Attach(kOne);
    }
    void TearDown() override { pane.close(); }

    std::unique_ptr<CK4SequenceFile> Open(const char* path, K4OpenFlags flags = K4_OPEN_READWRITE) {
        auto file = library.Create();
        EXPECT_EQ(file->Open(path, flags), 1);
        return file;
    }
    void Attach(const std::string& path = {}) {
        pane.AttachSequence(given.get(), path);
        pane.UpdateSelection();
    }

    std::unique_ptr<CK4SequenceFile> given;
};

TEST_F(PreviewAttached, IsShownWithItsFactsAndTexts) {
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("Properties for One.SQ4"));
    EXPECT_EQ(Text(Pane::kFileName), "One.SQ4");
    EXPECT_EQ(Text(Pane::kFrameSize), " 16 x 64");
    EXPECT_EQ(Text(Pane::kKeywords), "summer; sale; ");
    EXPECT_EQ(Notes(), "Two lines\nof notes");
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
    EXPECT_EQ(Middle(), QColor(Qt::red));
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    EXPECT_EQ(FocusedId(pane), Pane::kThumbnailFrame);
}

TEST_F(PreviewAttached, WithoutAPathKeepsTheTitle) {
    Attach();
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("File Properties"));
    EXPECT_EQ(Text(Pane::kFileName), "");
    EXPECT_EQ(Text(Pane::kFrames), " 3");
}

TEST_F(PreviewAttached, ItsDurationIsWorkedOutFromItsFrames) {
    given->SosData()->runTime = 1;
    pane.UpdateSelection();
    EXPECT_EQ(Text(Pane::kDuration), " 1.50 Seconds");
}

TEST_F(PreviewAttached, ChangesGoIntoTheObjectWhichStaysOpen) {
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection();
    EXPECT_STREQ(given->GetPtrToKeywords(), "winter; ");
    EXPECT_EQ(given->FrameCount(), 3) << "open as before";
    EXPECT_STREQ(Stored(kOne)->GetPtrToKeywords(), "winter; ");
    EXPECT_EQ(Text(Pane::kKeywords), "winter; ");
    EXPECT_THAT(owner.calls, IsEmpty()) << "the list is told of own files alone";
}

TEST_F(PreviewAttached, ClosingSavesAndFillsTheListButPressesNoButton) {
    Type(Pane::kKeywords, "winter");
    pane.close();
    EXPECT_STREQ(Stored(kOne)->GetPtrToKeywords(), "winter; ");
    EXPECT_EQ(given->FrameCount(), 3);
    EXPECT_THAT(owner.calls, ElementsAre("ShowFilesList"));
}

TEST_F(PreviewAttached, OneThatIsNotOpenForWritingIsNotTriedButToldOfWhenItIsSaved) {
    pane.AttachSequence(nullptr);
    given = Open(kOne, K4_OPEN_READ);
    Attach(kOne);
    EXPECT_FALSE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
    EXPECT_TRUE(Enabled(Pane::kCompression));
    Type(Pane::kKeywords, "winter");
    messages.Expect("The file isn't open for writing.");
    pane.close();
    EXPECT_STREQ(Stored(kOne)->GetPtrToKeywords(), "summer; sale; ");
}

TEST_F(PreviewAttached, AfterAPreviewOnlySequenceTheFramesStayWithoutAChoice) {
    auto facts = Facts();
    facts.previewOnly = true;
    MakeColored(kTwo, 3, facts);
    const auto one = std::move(given);
    given = Open(kTwo);
    Attach(kTwo);
    EXPECT_TRUE(Shown(Pane::kPreviewOnly));
    EXPECT_FALSE(Enabled(Pane::kThumbnailFrame));
    pane.AttachSequence(one.get(), kOne);
    pane.UpdateSelection();
    EXPECT_FALSE(Shown(Pane::kPreviewOnly));
    EXPECT_FALSE(Enabled(Pane::kThumbnailFrame)) << "only a preview-only one changes it";
    pane.UpdateSelection(kOne);
    EXPECT_TRUE(Enabled(Pane::kThumbnailFrame)) << "a file by its path does so either way";
    pane.AttachSequence(nullptr);
}

TEST_F(PreviewAttached, AttachingAnotherSavesWhatWasChangedOfThisOne) {
    Type(Pane::kKeywords, "winter");
    const auto one = std::move(given);
    given = Open(kTwo);
    pane.AttachSequence(given.get(), kTwo);
    EXPECT_STREQ(one->GetPtrToKeywords(), "winter; ");
    At<QLineEdit>(Pane::kKeywords)->setText(QStringLiteral("lost"));
    pane.UpdateSelection();
    EXPECT_STREQ(one->GetPtrToKeywords(), "winter; ");
    EXPECT_STREQ(given->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
}

TEST_F(PreviewAttached, DetachedIsNotTouchedAnyMore) {
    pane.AttachSequence(nullptr);
    given.reset();
    auto* frame = At<QLineEdit>(Pane::kThumbnailFrame);
    frame->setText(QStringLiteral("2"));
    pane.Frame2DIB(2);
    pane.LoadSequenceInfo();
    pane.UpdateThumbPicture();
    EXPECT_EQ(pane.CalcDuration({}, 0), 0u);
    EXPECT_EQ(pane.SaveKeyWords(0), 0);
    EXPECT_EQ(Middle(), QColor(Qt::red)) << "as it was drawn last";
    pane.UpdateSelection();
    EXPECT_EQ(Text(Pane::kFrames), "");
    ExpectNoPicture();
    EXPECT_TRUE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
}

TEST_F(PreviewAttached, OneThatItsOwnerHasClosedIsEmpty) {
    given->Close();
    pane.LoadSequenceInfo();
    EXPECT_EQ(pane.CalcDuration({}, 0), 0u);
    Type(Pane::kThumbnailFrame, "2");
    messages.Expect("No file is open.");
    pane.UpdateSelection();
    EXPECT_EQ(Text(Pane::kFrames), "");
    ExpectNoPicture();
}

TEST_F(PreviewAttached, MovingToAFileSavesIntoTheObject) {
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection(kTwo);
    EXPECT_STREQ(given->GetPtrToKeywords(), "winter; ");
    EXPECT_EQ(given->FrameCount(), 3);
    EXPECT_STREQ(Stored(kTwo)->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kFileName), "Two.SQ4");
}

TEST_F(PreviewAttached, MovingToTheObjectSavesIntoTheFile) {
    pane.UpdateSelection(kTwo);
    Type(Pane::kKeywords, "winter");
    pane.UpdateSelection();
    EXPECT_STREQ(Stored(kTwo)->GetPtrToKeywords(), "winter; ");
    EXPECT_STREQ(given->GetPtrToKeywords(), "summer; sale; ");
    EXPECT_EQ(Text(Pane::kFileName), "One.SQ4");
    EXPECT_THAT(owner.calls, ElementsAre("GetListFile", "ShowFilesList"));
}

TEST_F(PreviewAttached, OpenFileTakesTheObjectWithAnEmptyPath) {
    EXPECT_EQ(pane.OpenFile({}), 1);
    pane.AttachSequence(nullptr);
    EXPECT_EQ(pane.OpenFile({}), 0);
}

}  // namespace
}  // namespace k4test

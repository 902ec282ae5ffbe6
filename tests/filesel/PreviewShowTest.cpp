#include "tests/filesel/PreviewFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"

namespace k4test {
namespace {

using testing::ElementsAre;

constexpr char kOne[] = "A:\\7x16.Mono1.LED.Sign\\Default.Lib\\One.SQ4";
constexpr char kTwo[] = "A:\\Two.SQ4";

/// Notes with which flags files are opened, and with which cursor.
class NotingLibrary final : public k4cmn::SequenceLibrary {
 public:
    explicit NotingLibrary(k4cmn::SequenceLibrary& library) : m_library(library) {}
    std::unique_ptr<CK4SequenceFile> Create() override;

    std::vector<std::string> calls;

 private:
    k4cmn::SequenceLibrary& m_library;
};

class NotingSequence final : public CK4SequenceFile {
 public:
    NotingSequence(std::unique_ptr<CK4SequenceFile> file, std::vector<std::string>& calls)
        : m_file(std::move(file)), m_calls(calls) {}

    int Open(const std::string& path, K4OpenFlags flags) override {
        const QCursor* cursor = QApplication::overrideCursor();
        const bool waits = cursor && cursor->shape() == Qt::WaitCursor;
        m_calls.push_back((flags == K4_OPEN_READ ? "read" : "write") +
                          std::string(waits ? " waiting" : ""));
        return m_file->Open(path, flags);
    }
    void Close() override {
        m_calls.emplace_back("close");
        m_file->Close();
    }
    int Save() override {
        m_calls.emplace_back("save");
        return m_file->Save();
    }
    tag_K4_RIFF_FILE_DATA* RiffHdr() override { return m_file->RiffHdr(); }
    const char* GetPtrToKeywords() const override { return m_file->GetPtrToKeywords(); }
    const char* GetPtrToComments() const override { return m_file->GetPtrToComments(); }
    int SetKeywordsString(const std::string& text) override {
        return m_file->SetKeywordsString(text);
    }
    int SetCommentsString(const std::string& text) override {
        return m_file->SetCommentsString(text);
    }
    const char* GetPtrToErrorString() const override { return m_file->GetPtrToErrorString(); }
    tag_K4_SOS_FRM* SosData() override { return m_file->SosData(); }
    int FrameCount() const override { return m_file->FrameCount(); }
    CK4Frame* Frame(int number) override { return m_file->Frame(number); }
    std::uint32_t CalcRunTime() override { return m_file->CalcRunTime(); }
    int IsPreviewOnly() const override { return m_file->IsPreviewOnly(); }

 private:
    std::unique_ptr<CK4SequenceFile> m_file;
    std::vector<std::string>& m_calls;
};

std::unique_ptr<CK4SequenceFile> NotingLibrary::Create() {
    return std::make_unique<NotingSequence>(m_library.Create(), calls);
}

TEST_F(Preview, BeginsEmptyAsTheWindowFileProperties) {
    Show();
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("File Properties"));
    for (const int id :
         {Pane::kFileName, Pane::kFrameSize, Pane::kPixelTech, Pane::kColorTech, Pane::kDuration,
          Pane::kFrames, Pane::kKeywords, Pane::kThumbnailFrame, Pane::kFrameCount})
        EXPECT_EQ(Text(id), "") << id;
    EXPECT_EQ(Notes(), "");
    EXPECT_FALSE(Shown(Pane::kPreviewOnly));
    EXPECT_EQ(At<CSpinButtonCtrl>(Pane::kThumbnailFrameSpin)->Lower(), 1);
    EXPECT_EQ(At<CSpinButtonCtrl>(Pane::kThumbnailFrameSpin)->Upper(), 9999);
    pane.close();
}

TEST_F(Preview, CaptionsHaveTheirTexts) {
    const std::pair<int, const char*> rows[] = {
        {Pane::kFileNameCaption, "File Name:"},
        {Pane::kFrameSizeCaption, "Frame Size:"},
        {Pane::kPixelTechCaption, "Pixel Tech:"},
        {Pane::kColorTechCaption, "Color Tech:"},
        {Pane::kDurationCaption, "Duration:"},
        {Pane::kFramesCaption, "Frames:"},
        {Pane::kPreviewOnly, "Preview Only Sequence"},
        {Pane::kCompressionCaption, "File \n&Compression:"},
        {Pane::kKeywordsCaption, "&Keywords:"},
        {Pane::kNotesCaption, "&Notes:"},
        {Pane::kThumbnailFrameCaption, "Thumbnail \n&Frame:"},
        {Pane::kFrameCountCaption, "of"},
        {Pane::kThumbnailCaption, "Thumbnail:"},
        {IDOK, "OK"}};
    for (const auto& [id, text] : rows)
        EXPECT_EQ(Text(id), text);
    const auto* levels = At<QComboBox>(Pane::kCompression);
    ASSERT_EQ(levels->count(), 3);
    EXPECT_EQ(levels->itemText(0), QStringLiteral("None"));
    EXPECT_EQ(levels->itemText(1), QStringLiteral("Low"));
    EXPECT_EQ(levels->itemText(2), QStringLiteral("Medium"));
}

TEST_F(Preview, ShowsAFilesFactsAndTexts) {
    auto facts = Facts();
    facts.level = K4_COMPRESS_LOW;
    MakeColored(kOne, 4, facts);
    Show(kOne);
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("Properties for One.SQ4"));
    EXPECT_EQ(Text(Pane::kFileName), "One.SQ4");
    EXPECT_EQ(Text(Pane::kFrameSize), " 16 x 64");
    EXPECT_EQ(Text(Pane::kPixelTech), "LED");
    EXPECT_EQ(Text(Pane::kColorTech), "RGB16M");
    EXPECT_EQ(Text(Pane::kDuration), " 2.00 Seconds");
    EXPECT_EQ(Text(Pane::kFrames), " 4");
    EXPECT_EQ(Text(Pane::kKeywords), "summer; sale; ");
    EXPECT_EQ(Notes(), "Two lines\nof notes");
    EXPECT_EQ(Level(), 1);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "1");
    EXPECT_EQ(Text(Pane::kFrameCount), "4");
    EXPECT_EQ(At<CSpinButtonCtrl>(Pane::kThumbnailFrameSpin)->Upper(), 4);
    EXPECT_FALSE(Shown(Pane::kPreviewOnly));
    EXPECT_EQ(FocusedId(pane), Pane::kKeywords);
    pane.close();
}

TEST_F(Preview, TheFactsTellTheirNamesToo) {
    MakeColored(kOne, 4);
    Show(kOne);
    EXPECT_EQ(At<QLabel>(Pane::kFrameSize)->accessibleName(),
              QStringLiteral("Frame Size: 16 x 64"));
    pane.close();
}

TEST_F(Preview, DurationCountsWhatIsIncluded) {
    MakeColored("A:\\In.SQ4", 3);
    Make(kTwo, Facts(), [&](k4suite::SequenceWriter& writer) {
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 250, Lit(Facts(), 0)));
        const k4suite::IncludeField fields[] = {{1, "In.SQ4"}, {0, "In.SQ4"}};
        ASSERT_TRUE(writer.AddInclude(fields));
    });
    Show(kTwo);
    EXPECT_EQ(Text(Pane::kDuration), " 1.75 Seconds");
    EXPECT_EQ(pane.CalcDuration({}, 0), 1750u);
    EXPECT_EQ(pane.CalcDuration("A:\\In.SQ4", 0), 1500u);
    EXPECT_EQ(pane.CalcDuration("A:\\Absent.SQ4", 0), 0u);
    EXPECT_EQ(pane.CalcDuration(kTwo, 8), 250u) << "at this depth no includes are followed";
    pane.close();
}

TEST_F(Preview, AnotherFileReplacesAllOfTheFirst) {
    MakeColored(kOne, 4);
    k4suite::SequenceFacts facts = Facts(7, 80, K4_SIGN_COLOR_MONO1);
    facts.pixel = K4_PIXEL_TECH_INCAND;
    facts.keywords.clear();
    facts.notes.clear();
    facts.level = K4_COMPRESS_MEDIUM;
    facts.thumbnailFrame = 2;
    MakeColored(kTwo, 2, facts);
    Show(kOne);
    pane.UpdateSelection(kTwo);
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("Properties for Two.SQ4"));
    EXPECT_EQ(Text(Pane::kFrameSize), " 7 x 80");
    EXPECT_EQ(Text(Pane::kPixelTech), "Incandescent");
    EXPECT_EQ(Text(Pane::kColorTech), "Mono1");
    EXPECT_EQ(Text(Pane::kKeywords), "");
    EXPECT_EQ(Notes(), "");
    EXPECT_EQ(Level(), 2);
    EXPECT_EQ(Text(Pane::kThumbnailFrame), "2");
    EXPECT_EQ(Text(Pane::kFrameCount), "2");
    pane.close();
}

TEST_F(Preview, AnEmptyPathClearsIt) {
    MakeColored(kOne, 4);
    Show(kOne);
    pane.UpdateSelection("");
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("File Properties"));
    for (const int id :
         {Pane::kFileName, Pane::kFrameSize, Pane::kPixelTech, Pane::kColorTech, Pane::kDuration,
          Pane::kFrames, Pane::kKeywords, Pane::kThumbnailFrame, Pane::kFrameCount})
        EXPECT_EQ(Text(id), "") << id;
    EXPECT_EQ(Notes(), "");
    EXPECT_EQ(Level(), -1);
    ExpectNoPicture();
    // At the place of the sign that was shown: from 64 / 2 - 20 = 12 on.
    const QImage box = Box();
    const int left = 11 * box.width() / 256;
    EXPECT_FALSE(HasInk(box.copy(0, 0, left, box.height())));
    EXPECT_TRUE(HasInk(box.copy(left, 0, box.width() / 10, box.height())));
    EXPECT_EQ(FocusedId(pane), Pane::kKeywords);
    EXPECT_TRUE(At<QLineEdit>(Pane::kKeywords)->isReadOnly()) << "there is nothing to change";
    pane.close();
}

TEST_F(Preview, AFileThatCannotBeWrittenIsReadOnlyAndTellsNothing) {
    MakeColored(kOne, 4);
    MakeColored(kTwo, 4);
    std::filesystem::permissions(Native(kOne), std::filesystem::perms::owner_read);
    const OrdinaryUser user(home.Path());
    Show(kOne);
    EXPECT_EQ(Text(Pane::kKeywords), "summer; sale; ");
    EXPECT_TRUE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
    EXPECT_TRUE(At<QPlainTextEdit>(Pane::kNotes)->isReadOnly());
    EXPECT_TRUE(At<QLineEdit>(Pane::kThumbnailFrame)->isReadOnly());
    EXPECT_FALSE(Enabled(Pane::kCompression));
    EXPECT_TRUE(Enabled(Pane::kThumbnailFrame)) << "it can be read and copied";
    EXPECT_EQ(Middle(), QColor(Qt::red));

    pane.UpdateSelection(kTwo);
    EXPECT_FALSE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
    EXPECT_FALSE(At<QPlainTextEdit>(Pane::kNotes)->isReadOnly());
    EXPECT_FALSE(At<QLineEdit>(Pane::kThumbnailFrame)->isReadOnly());
    EXPECT_TRUE(Enabled(Pane::kCompression));
    pane.close();
}

TEST_F(Preview, APreviewOnlySequenceHasNoChoiceOfFrames) {
    auto facts = Facts();
    facts.previewOnly = true;
    MakeColored(kOne, 4, facts);
    MakeColored(kTwo, 4);
    Show(kOne);
    const int frameControls[] = {Pane::kThumbnailFrame, Pane::kThumbnailFrameSpin,
                                 Pane::kFrameCountCaption, Pane::kFrameCount};
    EXPECT_TRUE(Shown(Pane::kPreviewOnly));
    for (const int id : frameControls)
        EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(Pane::kKeywords));
    EXPECT_TRUE(Enabled(Pane::kNotes));
    EXPECT_TRUE(Enabled(Pane::kCompression));
    EXPECT_EQ(Middle(), QColor(Qt::red));

    pane.UpdateSelection(kTwo);
    EXPECT_FALSE(Shown(Pane::kPreviewOnly));
    for (const int id : frameControls)
        EXPECT_TRUE(Enabled(id)) << id;
    pane.close();
}

TEST_F(Preview, TriesToWriteThenReadsAndWaitsMeanwhile) {
    MakeColored(kOne, 4);
    NotingLibrary noting(library);
    const k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(noting);
    const std::string before = home.Read("drives/A/7x16.Mono1.LED.Sign/Default.Lib/One.SQ4");
    const auto time = std::filesystem::last_write_time(Native(kOne));
    Show(kOne);
    EXPECT_THAT(noting.calls, ElementsAre("write waiting", "read waiting"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(home.Read("drives/A/7x16.Mono1.LED.Sign/Default.Lib/One.SQ4"), before);
    EXPECT_EQ(std::filesystem::last_write_time(Native(kOne)), time);

    noting.calls.clear();
    Type(Pane::kKeywords, "new");
    pane.UpdateSelection("");
    EXPECT_THAT(noting.calls, ElementsAre("close", "write waiting", "save", "close"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    pane.close();
}

TEST_F(Preview, LetsTheFileGoWhenItIsClosed) {
    MakeColored(kOne, 4);
    Show(kOne);
    pane.close();
    // With the file open, its frames could still be drawn.
    pane.Frame2DIB(2);
    pane.UpdateThumbPicture();
    EXPECT_EQ(Middle(), QColor(Qt::red));
}

TEST_F(Preview, LongTextsOfAFileAreShownWhole) {
    auto facts = Facts();
    facts.keywords = std::string(400, 'k');
    facts.notes = std::string(400, 'n');
    MakeColored(kOne, 1, facts);
    Show(kOne);
    EXPECT_EQ(Text(Pane::kKeywords).size(), 400u);
    EXPECT_EQ(Notes().size(), 400u);
    pane.close();
    EXPECT_EQ(Stored(kOne)->GetPtrToComments(), facts.notes);
}

TEST_F(Preview, LongKeywordsOfAFileMayOnlyBecomeShorter) {
    auto facts = Facts();
    facts.keywords = std::string(260, 'k');
    MakeColored(kOne, 1, facts);
    Show(kOne);
    auto* field = At<QLineEdit>(Pane::kKeywords);
    field->setFocus();
    QTest::keyClicks(field, QStringLiteral("x"));
    EXPECT_EQ(Text(Pane::kKeywords), facts.keywords);
    field->setCursorPosition(5);
    PressKey(pane, Qt::Key_Delete);
    EXPECT_EQ(field->cursorPosition(), 5);
    QTest::keyClicks(field, QStringLiteral("x"));
    EXPECT_EQ(Text(Pane::kKeywords), std::string(259, 'k'));
    for (int i = 0; i < 6; ++i)
        PressKey(pane, Qt::Key_Delete);
    QTest::keyClicks(field, QStringLiteral("xyz"));
    EXPECT_EQ(Text(Pane::kKeywords), "kkkkkxy" + std::string(248, 'k'));
    pane.UpdateSelection("");
    EXPECT_EQ(Stored(kOne)->GetPtrToKeywords(), "kkkkkxy" + std::string(248, 'k') + "; ");
    pane.close();
}

TEST_F(Preview, OpenFileOpensTheFileThatIsNamed) {
    MakeColored(kOne, 1);
    EXPECT_EQ(pane.OpenFile(kOne), 1);
    messages.Expect(CannotOpen(kTwo));
    EXPECT_EQ(pane.OpenFile(kTwo), 0);
    Show(kOne);
    messages.Expect(CannotOpen(kTwo));
    EXPECT_EQ(pane.OpenFile(kTwo), 0);
    pane.close();
}

TEST_F(Preview, FieldsTake255Characters) {
    MakeColored(kOne, 1);
    Show(kOne);
    Type(Pane::kKeywords, std::string(300, 'k').c_str());
    TypeNotes(std::string(300, 'n').c_str());
    EXPECT_EQ(Text(Pane::kKeywords).size(), 255u);
    EXPECT_EQ(Notes().size(), 255u);
    pane.close();
    EXPECT_EQ(Stored(kOne)->GetPtrToKeywords(), std::string(255, 'k') + "; ");
    EXPECT_EQ(Stored(kOne)->GetPtrToComments(), std::string(255, 'n'));
}

}  // namespace
}  // namespace k4test

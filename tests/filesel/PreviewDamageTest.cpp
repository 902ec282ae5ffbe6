#include "tests/filesel/PreviewFixture.h"
#include "tests/suite/platform/OrdinaryUser.h"

namespace k4test {
namespace {

constexpr char kOne[] = "A:\\One.SQ4";
constexpr char kBad[] = "A:\\Bad.SQ4";
constexpr char kBadFile[] = "drives/A/Bad.SQ4";

/// A sound file that is shown, and one in whose place the tests put bad ones.
class PreviewDamage : public Preview {
 protected:
    void SetUp() override {
        MakeColored(kOne, 3);
        Show(kOne);
    }
    void TearDown() override { pane.close(); }

    /// Shows the bad file, which can't be opened: a message, and nothing to see.
    void ExpectRefused(const std::string& path = kBad) {
        messages.Expect(CannotOpen(path));
        pane.UpdateSelection(path);
        EXPECT_EQ(messages.Pending(), 0u);
        for (const int id : {Pane::kFileName, Pane::kFrameSize, Pane::kPixelTech, Pane::kColorTech,
                             Pane::kDuration, Pane::kFrames, Pane::kKeywords, Pane::kThumbnailFrame,
                             Pane::kFrameCount})
            EXPECT_EQ(Text(id), "") << id;
        EXPECT_EQ(Notes(), "");
        EXPECT_EQ(Level(), -1);
        ExpectNoPicture();
        EXPECT_TRUE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
        EXPECT_TRUE(At<QPlainTextEdit>(Pane::kNotes)->isReadOnly());
        EXPECT_TRUE(At<QLineEdit>(Pane::kThumbnailFrame)->isReadOnly());
        EXPECT_FALSE(Enabled(Pane::kCompression));
        EXPECT_FALSE(Shown(Pane::kPreviewOnly));
    }
    /// A file of 3 frames with a number of the file's bytes changed.
    void MakePatched(std::size_t offset, unsigned char byte, tag_K4_COMPRESS_TYPE level) {
        auto facts = Facts();
        facts.level = level;
        MakeColored(kBad, 3, facts);
        std::string content = home.Read(kBadFile);
        content[offset] = static_cast<char>(byte);
        home.Write(kBadFile, content);
    }
};

TEST_F(PreviewDamage, AFileThatIsNotThereIsToldOf) {
    ExpectRefused();
    EXPECT_EQ(pane.windowTitle(), QStringLiteral("Properties for Bad.SQ4"));
    EXPECT_FALSE(std::filesystem::exists(Native(kBad))) << "trying to write makes none";
}

TEST_F(PreviewDamage, WhatIsNoSequenceIsToldOf) {
    for (const std::string& content : {std::string(), std::string("text"), std::string(9999, '\0'),
                                       home.Read("drives/A/One.SQ4").substr(0, 2000)}) {
        home.Write(kBadFile, content);
        ExpectRefused();
        EXPECT_EQ(home.Read(kBadFile), content);
    }
}

TEST_F(PreviewDamage, AFolderIsToldOf) {
    std::filesystem::create_directories(Native(kBad));
    ExpectRefused();
}

TEST_F(PreviewDamage, PathsThatLeadNowhereAreToldOf) {
    for (const char* path : {"no place", "A:", "\\\\", "A:\\%s%n.SQ4", "A:\\\xff\xfe.SQ4"})
        ExpectRefused(path);
}

TEST_F(PreviewDamage, AFileThatMayNotBeReadIsToldOf) {
    MakeColored(kBad, 3);
    std::filesystem::permissions(Native(kBad), std::filesystem::perms::none);
    const OrdinaryUser user(home.Path());
    ExpectRefused();
}

TEST_F(PreviewDamage, AGoodFileAfterABadOneIsShownWhole) {
    ExpectRefused();
    pane.UpdateSelection(kOne);
    EXPECT_EQ(Text(Pane::kKeywords), "summer; sale; ");
    EXPECT_FALSE(At<QLineEdit>(Pane::kKeywords)->isReadOnly());
    EXPECT_TRUE(Enabled(Pane::kCompression));
    EXPECT_EQ(Middle(), QColor(Qt::red));
}

TEST_F(PreviewDamage, AFrameThatCannotBeUnpackedSaysWhy) {
    MakePatched(2652 + 8 + 52 + 3, 0x55, K4_COMPRESS_MEDIUM);
    pane.UpdateSelection(kBad);
    EXPECT_EQ(Text(Pane::kFrames), " 3");
    EXPECT_TRUE(HasInk(Box()));
    EXPECT_EQ(BoxColor(0, 0), QColor(Qt::white));
    const auto said = At<QWidget>(Pane::kThumbnail)->accessibleDescription().toStdString();
    EXPECT_THAT(said, testing::HasSubstr("offset"));
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    EXPECT_EQ(At<QWidget>(Pane::kThumbnail)->accessibleDescription(), QString());
    Type(Pane::kThumbnailFrame, "1");
    EXPECT_EQ(At<QWidget>(Pane::kThumbnail)->accessibleDescription().toStdString(), said);
}

TEST_F(PreviewDamage, AFileCutShortShowsTheFramesThatAreThere) {
    MakeColored(kBad, 3);
    const std::string content = home.Read(kBadFile);
    home.Write(kBadFile, content.substr(0, content.size() - 100));
    pane.UpdateSelection(kBad);
    EXPECT_EQ(Middle(), QColor(Qt::red));
    Type(Pane::kThumbnailFrame, "2");
    EXPECT_EQ(Middle(), QColor(Qt::green));
    Type(Pane::kThumbnailFrame, "3");
    EXPECT_EQ(Middle(), QColor(Qt::green)) << "there is no third one";
    messages.Expect("The file is cut short: it ends at offset " +
                    std::to_string(content.size() - 100) + " and should end at " +
                    std::to_string(content.size()) + ".");
    pane.UpdateSelection(kOne);
}

TEST_F(PreviewDamage, EveryByteOfTheHeadMayBeAnother) {
    MakeColored(kBad, 2);
    const std::string good = home.Read(kBadFile);
    for (std::size_t offset = 0; offset < 2652; offset += offset >= 2604 || offset < 24 ? 1 : 97) {
        std::string content = good;
        content[offset] = static_cast<char>(~content[offset]);
        home.Write(kBadFile, content);
        auto file = library.Create();
        if (!file->Open(kBad, K4_OPEN_READ))
            messages.Expect(CannotOpen(kBad));
        pane.UpdateSelection(kBad);
        pane.grab();
        EXPECT_EQ(messages.Pending(), 0u) << offset;
    }
    pane.UpdateSelection("");
    EXPECT_EQ(home.Read(kBadFile).size(), good.size());
}

TEST_F(PreviewDamage, WithoutASequenceLibraryNothingCanBeOpened) {
    k4cmn::Provided<k4cmn::SequenceLibrary>::Install(nullptr);
    ExpectRefused(kOne);
    pane.UpdateSelection("");
    k4cmn::Provided<k4cmn::SequenceLibrary>::Install(&library);
}

TEST_F(PreviewDamage, WithoutAConversionAFrameSaysSo) {
    k4cmn::Provided<K4BulbCv>::Install(nullptr);
    pane.UpdateSelection(kOne);
    EXPECT_EQ(At<QWidget>(Pane::kThumbnail)->accessibleDescription(),
              QStringLiteral("The frame can't be made a picture."));
    k4cmn::Provided<K4BulbCv>::Install(&bulbCv);
}

TEST_F(PreviewDamage, TextsThatAreNoUtf8AreShownAndKeptFromHarm) {
    auto facts = Facts();
    facts.keywords = "gr\xfc\xdf";
    facts.notes = "\xff\xfe\x80";
    MakeColored(kBad, 1, facts);
    pane.UpdateSelection(kBad);
    EXPECT_FALSE(Text(Pane::kKeywords).empty());
    pane.UpdateSelection(kOne);
    EXPECT_EQ(Stored(kBad)->GetPtrToKeywords(), facts.keywords) << "nothing was changed";
}

}  // namespace
}  // namespace k4test

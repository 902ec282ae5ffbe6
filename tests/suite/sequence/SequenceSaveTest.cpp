#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <thread>

#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::HeadJournal;
using k4suite::SequenceFile;
using k4suite::SequenceHead;
using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::SequenceFixture;

namespace {

/// Keeps files of this process from growing over a size, as a full disk does.
class FullDisk {
 public:
    explicit FullDisk(std::uint64_t size) {
        m_formerHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_former);
        rlimit limit = m_former;
        limit.rlim_cur = size;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_formerHandler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

 private:
    rlimit m_former{};
    void (*m_formerHandler)(int) = SIG_DFL;
};

/// Makes this process a user without special rights for the life of a scope.
class OrdinaryUser {
 public:
    OrdinaryUser() : m_former(geteuid()) {
        if (m_former == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_former), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
    const uid_t m_former;
};

class SequenceSave : public SequenceFixture {
 protected:
    void SetUp() override {
        Make(Facts(), [](SequenceWriter& writer) {
            ASSERT_TRUE(writer.AddChunk(k4cmn::FourCharacterCode("own "), Bytes(7, 'o')));
            for (int i = 0; i < 3; ++i)
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 10, Bytes(16, 5)));
        });
        m_old = Content();
    }

    static void Change(SequenceFile& file) {
        ASSERT_EQ(file.SetKeywordsString("winter; "), 1);
        ASSERT_EQ(file.SetCommentsString("new notes"), 1);
        file.SosData()->thumbnailFrame = 3;
        file.RiffHdr()->compressionLevel = 30;
    }

    void ExpectNewValues() const {
        const auto file = Opened();
        EXPECT_STREQ(file->GetPtrToKeywords(), "winter; ");
        EXPECT_STREQ(file->GetPtrToComments(), "new notes");
        EXPECT_EQ(file->SosData()->thumbnailFrame, 3);
        EXPECT_EQ(file->RiffHdr()->compressionLevel, 30U);
        EXPECT_EQ(file->FrameCount(), 3);
        EXPECT_NE(file->Frame(3), nullptr);
    }

    void ExpectOldValues() const {
        const auto file = Opened();
        EXPECT_STREQ(file->GetPtrToKeywords(), "summer; sale; ");
        EXPECT_STREQ(file->GetPtrToComments(), "Two lines\nof notes");
        EXPECT_EQ(file->SosData()->thumbnailFrame, 0);
        EXPECT_EQ(file->RiffHdr()->compressionLevel, 0U);
    }

    /// The file's content after a whole saving.
    std::string SavedContent() const {
        const auto file = Opened(K4_OPEN_READWRITE);
        Change(*file);
        EXPECT_EQ(file->Save(), 1) << file->GetPtrToErrorString();
        return Content();
    }

    std::string JournalOf(const std::string& content) const {
        SequenceHead head;
        std::memcpy(&head, content.data(), sizeof head);
        const HeadJournal journal = k4suite::MakeJournal(head);
        return {reinterpret_cast<const char*>(&journal), sizeof journal};
    }

    std::string m_old;
};

TEST_F(SequenceSave, NewValuesAreThereAndNothingElseChanged) {
    const std::string content = SavedContent();
    ExpectNewValues();
    ASSERT_EQ(content.size(), m_old.size());
    EXPECT_EQ(content.substr(2652), m_old.substr(2652));
    for (std::size_t i = 0; i < 2652; ++i) {
        const bool mayChange = (i >= 536 && i < 540) || (i >= 548 && i < 1572) ||
                               (i >= 1580 && i < 2604) || (i >= 2644 && i < 2646);
        ASSERT_TRUE(mayChange || content[i] == m_old[i]) << i;
    }
    EXPECT_TRUE(k4suite::CheckSequence(Path()).empty());
}

TEST_F(SequenceSave, FactsOfFramesAreNotSaved) {
    const auto file = Opened(K4_OPEN_READWRITE);
    file->SosData()->rows = 100;
    file->SosData()->frameCount = 9;
    EXPECT_EQ(file->FrameCount(), 3);
    file->SosData()->runTime = 77;
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Opened()->SosData()->rows, 7);
    EXPECT_EQ(Opened()->SosData()->frameCount, 3);
    EXPECT_EQ(Opened()->SosData()->runTime, 77U);
}

TEST_F(SequenceSave, ShorterTextsLeaveNothingOfTheLongerOnes) {
    auto file = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(file->SetKeywordsString(std::string(1023, 'k')), 1);
    ASSERT_EQ(file->Save(), 1);
    ASSERT_EQ(file->SetKeywordsString(""), 1);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Content().substr(548, 1024), std::string(1024, '\0'));
}

TEST_F(SequenceSave, TextsThatDontFitAreRefused) {
    const auto file = Opened(K4_OPEN_READWRITE);
    EXPECT_EQ(file->SetKeywordsString(std::string(1024, 'k')), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The text is too long.");
    EXPECT_EQ(file->SetCommentsString(std::string("a\0b", 3)), 0);
    EXPECT_STREQ(file->GetPtrToKeywords(), "summer; sale; ");
}

TEST_F(SequenceSave, FileThatIsReadOnlyOpenIsNotSaved) {
    const auto file = Opened(K4_OPEN_READ);
    Change(*file);
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The file isn't open for writing.");
    EXPECT_EQ(Content(), m_old);
}

TEST_F(SequenceSave, WithoutPermissionTheFileOpensForReadingAlone) {
    ASSERT_EQ(chmod(m_folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(Path().c_str(), 0444), 0);
    const OrdinaryUser user;
    EXPECT_EQ(OpenFailure(K4_OPEN_READWRITE), "Cannot open \"" + Path() + "\": Permission denied.");
    EXPECT_NE(Opened(K4_OPEN_READ)->SosData(), nullptr);
}

TEST_F(SequenceSave, FullDiskAtEveryByteOfTheJournalLeavesTheOldValues) {
    for (std::uint64_t room = 0; room < sizeof(HeadJournal); room += room < 40 ? 1 : 97) {
        const auto file = Opened(K4_OPEN_READWRITE);
        Change(*file);
        {
            const FullDisk disk(m_old.size() + room);
            ASSERT_EQ(file->Save(), 0) << room;
        }
        ASSERT_STREQ(file->GetPtrToErrorString(), "Cannot write the file: File too large.");
        ASSERT_EQ(Content(), m_old) << room;
        ExpectOldValues();
        // With room again, the same object saves.
        if (room == 0) {
            ASSERT_EQ(file->Save(), 1);
            ExpectNewValues();
            SetContent(m_old);
        }
    }
}

TEST_F(SequenceSave, EndOfTheProgramInsideOfTheJournalLeavesTheOldValues) {
    const std::string journal = JournalOf(SavedContent());
    for (std::size_t length = 0; length < journal.size(); length += length < 40 ? 1 : 101) {
        SetContent(m_old + journal.substr(0, length));
        ExpectOldValues();
    }
    std::string damaged = journal;
    damaged[2000] ^= 1;
    SetContent(m_old + damaged);
    ExpectOldValues();
}

TEST_F(SequenceSave, EndOfTheProgramInsideOfTheHeadLeavesTheNewValues) {
    const std::string content = SavedContent();
    const std::string journal = JournalOf(content);
    for (std::size_t length = 0; length <= 2652; length += 17) {
        SetContent(content.substr(0, length) + m_old.substr(length) + journal);
        ExpectNewValues();
    }
}

TEST_F(SequenceSave, NextSavingFinishesTheEarlierOne) {
    const std::string content = SavedContent();
    SetContent(content.substr(0, 600) + m_old.substr(600) + JournalOf(content));
    const auto file = Opened(K4_OPEN_READWRITE);
    EXPECT_STREQ(file->GetPtrToKeywords(), "winter; ");
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Content(), content);

    // Also where there is no room for a journal of its own.
    SetContent(content.substr(0, 600) + m_old.substr(600) + JournalOf(content));
    const auto again = Opened(K4_OPEN_READWRITE);
    ASSERT_EQ(again->SetKeywordsString("third"), 1);
    {
        const FullDisk disk(m_old.size() + 10);
        EXPECT_EQ(again->Save(), 0);
    }
    EXPECT_EQ(Content(), content);
    ExpectNewValues();
}

TEST_F(SequenceSave, BytesBehindTheEndAreKept) {
    SetContent(m_old + "behind");
    const std::string content = SavedContent();
    ExpectNewValues();
    EXPECT_EQ(content.substr(m_old.size()), "behind");
}

TEST_F(SequenceSave, FileCutShortIsNotSaved) {
    SetContent(m_old.substr(0, m_old.size() - 1));
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    EXPECT_EQ(file->Save(), 0);
    EXPECT_EQ(file->GetPtrToErrorString(),
              "The file is cut short: it ends at offset " + std::to_string(m_old.size() - 1) +
                  " and should end at " + std::to_string(m_old.size()) + ".");
    EXPECT_EQ(Content(), m_old.substr(0, m_old.size() - 1));
}

TEST_F(SequenceSave, FileThatBecameSomethingElseIsLeftAlone) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    SetContent(std::string(5000, 'x'));
    EXPECT_EQ(file->Save(), 0);
    EXPECT_STREQ(file->GetPtrToErrorString(), "The file has changed and is no sequence any more.");
    EXPECT_EQ(Content(), std::string(5000, 'x'));
}

TEST_F(SequenceSave, FramesThatAnotherProgramWroteStay) {
    const auto file = Opened(K4_OPEN_READWRITE);
    Change(*file);
    std::string other = m_old;
    k4test::PutNumber(other, 2640, 4, 1234);
    k4test::PutNumber(other, 2632, 4, 1);
    SetContent(other);
    ASSERT_EQ(file->Save(), 1);
    EXPECT_EQ(Opened()->SosData()->color, 1U);
}

TEST_F(SequenceSave, ReadersSeeOneSavingWhole) {
    std::atomic<bool> isSaving = true;
    std::thread saver([&] {
        const auto file = Opened(K4_OPEN_READWRITE);
        for (int round = 0; round < 20; ++round) {
            const std::string text(1000, static_cast<char>('a' + round));
            EXPECT_EQ(file->SetKeywordsString(text), 1);
            EXPECT_EQ(file->SetCommentsString(text), 1);
            EXPECT_EQ(file->Save(), 1) << file->GetPtrToErrorString();
        }
        isSaving = false;
    });
    int differing = 0;
    while (isSaving) {
        const auto file = Opened();
        const std::string keywords = file->GetPtrToKeywords();
        differing += keywords != "summer; sale; " && keywords != file->GetPtrToComments();
    }
    saver.join();
    EXPECT_EQ(differing, 0);
    EXPECT_EQ(Opened()->GetPtrToKeywords(), std::string(1000, 't'));
}

class SequenceMaking : public SequenceFixture {
 protected:
    std::size_t FilesInFolder() const {
        std::size_t count = 0;
        for ([[maybe_unused]] const auto& entry :
             std::filesystem::directory_iterator(m_folder.Path()))
            ++count;
        return count;
    }
};

TEST_F(SequenceMaking, UnfinishedFileGoesAndLeavesTheFormerOne) {
    SetContent("former");
    {
        SequenceWriter writer(Path(), Facts());
        ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16)));
        EXPECT_EQ(FilesInFolder(), 2U);
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
}

TEST_F(SequenceMaking, FinishedFileReplacesTheFormerOneForEveryoneWhoMayReadNewFiles) {
    SetContent("former");
    MakeGraphic(1);
    EXPECT_EQ(FilesInFolder(), 1U);
    struct stat facts {};
    ASSERT_EQ(stat(Path().c_str(), &facts), 0);
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(facts.st_mode & 0777, 0666 & ~mask);
}

TEST_F(SequenceMaking, FullDiskLeavesTheFormerFile) {
    SetContent("former");
    {
        const FullDisk disk(4000);
        SequenceWriter writer(Path(), Facts());
        for (int i = 0; i < 200; ++i)
            writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(16));
        EXPECT_FALSE(writer.Finish());
        EXPECT_EQ(writer.Problem(), "Cannot write \"" + Path() + "\": File too large.");
    }
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Content(), "former");
}

TEST_F(SequenceMaking, FolderThatIsNotThereIsTold) {
    const std::string path = (m_folder / "none/Test.SQ4").string();
    SequenceWriter writer(path, Facts());
    EXPECT_FALSE(writer.Finish());
    EXPECT_EQ(writer.Problem(), "Cannot make \"" + path + "\": No such file or directory.");
}

struct BadUse {
    const char* name;
    void (*use)(SequenceWriter&);
    const char* words;
};

class BadMaking : public SequenceMaking, public testing::WithParamInterface<BadUse> {};

TEST_P(BadMaking, IsToldAndMakesNothing) {
    {
        SequenceWriter writer(Path(), Facts());
        GetParam().use(writer);
        EXPECT_EQ(writer.Problem(), GetParam().words);
        EXPECT_FALSE(writer.Finish());
    }
    EXPECT_EQ(FilesInFolder(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadMaking,
    testing::Values(
        BadUse{"Size",
               [](SequenceWriter& writer) {
                   EXPECT_FALSE(writer.AddGraphic(k4cmn::kGraphicFrame, 1, Bytes(15)));
               },
               "The bulb data has 15 bytes where the sign needs 16."},
        BadUse{"Type",
               [](SequenceWriter& writer) {
                   EXPECT_FALSE(writer.AddGraphic(k4cmn::kIncludeFrame, 1, Bytes(16)));
               },
               "The type isn't a graphic frame's."},
        BadUse{"IncludePath",
               [](SequenceWriter& writer) {
                   const k4suite::IncludeField field[] = {{1, std::string(65536, 'p')}};
                   EXPECT_FALSE(writer.AddInclude(field));
               },
               "A path of the include frame is too long."},
        BadUse{
            "Include",
            [](SequenceWriter& writer) {
                const std::vector<k4suite::IncludeField> fields(17, {1, std::string(65535, 'p')});
                EXPECT_FALSE(writer.AddInclude(fields));
            },
            "The include frame is too long."},
        BadUse{"Frames",
               [](SequenceWriter& writer) {
                   for (int i = 0; i < 65535; ++i)
                       ASSERT_TRUE(writer.AddChunk(k4cmn::kGraphicFrame, {}));
                   EXPECT_FALSE(writer.AddChunk(k4cmn::kGraphicFrame, {}));
               },
               "A sequence can't have more than 65535 frames."}),
    [](const auto& row) { return row.param.name; });

TEST_F(SequenceMaking, FactsThatCantBeAreTold) {
    k4suite::SequenceFacts facts = Facts();
    facts.rows = 0;
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(),
              "A sign of 0 rows and 16 columns has no lamps.");
    facts = Facts();
    facts.maker = std::string(512, 'm');
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(), "A text is too long.");
    facts = Facts();
    facts.notes = std::string(1024, 'n');
    EXPECT_EQ(SequenceWriter(Path(), facts).Problem(), "A text is too long.");
    EXPECT_EQ(FilesInFolder(), 0U);
}

}  // namespace

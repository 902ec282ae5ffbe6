#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/MemoryBytes.h"
#include "tests/suite/sequence/SequenceFixture.h"

using k4suite::SequenceWriter;
using k4test::Bytes;
using k4test::SequenceFixture;

namespace {

/// Bytes that remember how much of them was read.
class CountingBytes final : public k4suite::ByteSource {
 public:
    explicit CountingBytes(k4suite::ByteSource& bytes) : m_bytes(bytes) {}

    std::uint64_t Size() override { return m_bytes.Size(); }
    std::size_t ReadAt(std::uint64_t offset, std::span<std::uint8_t> bytes) override {
        const std::size_t count = m_bytes.ReadAt(offset, bytes);
        read += count;
        furthest = std::max(furthest, offset + count);
        return count;
    }

    std::uint64_t read = 0;
    std::uint64_t furthest = 0;

 private:
    k4suite::ByteSource& m_bytes;
};

/// Bytes that this process has read so far, by any call.
std::uint64_t BytesReadByProcess() {
    std::ifstream facts("/proc/self/io");
    std::string name;
    std::uint64_t count = 0;
    facts >> name >> count;
    EXPECT_EQ(name, "rchar:");
    return count;
}

class SequenceCost : public SequenceFixture {
 protected:
    static constexpr std::uint32_t kFrames = 60000;

    void SetUp() override { MakeGraphic(kFrames); }
};

TEST_F(SequenceCost, OpeningSixtyThousandFramesReadsTheHeadAlone) {
    std::string problem;
    const auto bytes = k4suite::FileBytes::Open(Path(), false, problem);
    ASSERT_NE(bytes, nullptr) << problem;
    CountingBytes counting(*bytes);
    const auto head = k4suite::ReadCountingHead(counting);
    ASSERT_TRUE(head);
    k4suite::SequenceReader reader(counting, *head);
    EXPECT_EQ(counting.read, sizeof(k4suite::SequenceHead));
    EXPECT_EQ(counting.furthest, sizeof(k4suite::SequenceHead));

    k4suite::SequenceDefect defect;
    ASSERT_TRUE(reader.Find(1, defect));
    EXPECT_LE(counting.read, 2 * 4096U);
    ASSERT_TRUE(reader.Find(kFrames, defect));
    const std::uint64_t once = counting.read;
    EXPECT_LE(once, 2 * std::filesystem::file_size(Path()));
    for (const std::uint32_t number : {1U, 30000U, kFrames})
        ASSERT_TRUE(reader.Find(number, defect));
    EXPECT_EQ(counting.read, once) << "chunks are looked through once";
}

TEST_F(SequenceCost, FactsAndTextsOfSixtyThousandFramesCostAFewPages) {
    k4suite::SequenceFile file;
    const std::uint64_t before = BytesReadByProcess();
    ASSERT_EQ(file.Open(Path(), K4_OPEN_READ), 1);
    EXPECT_EQ(file.FrameCount(), static_cast<int>(kFrames));
    EXPECT_STREQ(file.GetPtrToKeywords(), "summer; sale; ");
    ASSERT_NE(file.Frame(1), nullptr);
    // What /proc/self/io itself was read with counts too.
    EXPECT_LE(BytesReadByProcess() - before, 3 * 4096U);
}

TEST_F(SequenceCost, EveryFrameOfSixtyThousandIsThere) {
    const auto file = Opened();
    EXPECT_EQ(file->CalcRunTime(), file->SosData()->runTime);
    auto* last = dynamic_cast<CK4GphFrame*>(file->Frame(kFrames));
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->GphHdr()->dwell, 100U + kFrames - 1);
    EXPECT_EQ(std::memcmp(last->BulbData(), k4test::NoiseBytes(16, kFrames - 1).data(), 16), 0);
}

}  // namespace

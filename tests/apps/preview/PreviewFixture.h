#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "apps/preview/PreviewSuite.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// A data home of the test's own with sequences on its drive A:, and the parts of the suite over
/// it.
class PreviewFixture : public testing::Test {
 protected:
    using Bytes = std::vector<std::uint8_t>;
    using Fill = std::function<void(k4suite::SequenceWriter&)>;

    static constexpr std::uint16_t kRows = 7;
    static constexpr std::uint16_t kColumns = 16;
    /// Where the content of the first frame begins, and how many bytes lie between two of them.
    static constexpr std::size_t kFirstContent = 2660;
    static constexpr std::size_t kFrameBytes = 8 + 52 + 16;

    static k4suite::SequenceFacts Facts() {
        k4suite::SequenceFacts facts;
        facts.rows = kRows;
        facts.columns = kColumns;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.keywords = "summer; sale; ";
        return facts;
    }

    /// Frames of one shade whose first lamps are a number.
    static Bytes Lamps(std::uint32_t number) {
        Bytes bytes(16, 0);
        bytes[0] = static_cast<std::uint8_t>(number);
        bytes[1] = 0x80;
        return bytes;
    }
    static void AddFrame(k4suite::SequenceWriter& writer, std::uint32_t dwell,
                         std::uint32_t number = 0) {
        EXPECT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, dwell, Lamps(number)))
            << writer.Problem();
    }
    static void AddInclude(k4suite::SequenceWriter& writer, const std::vector<std::string>& paths) {
        std::vector<k4suite::IncludeField> fields;
        for (const std::string& path : paths)
            fields.push_back({1, path});
        EXPECT_TRUE(writer.AddInclude(fields)) << writer.Problem();
    }

    std::string Native(const std::string& name) const {
        return (home.Drives() / "A" / name).string();
    }
    static std::string Path(const std::string& name) { return "A:\\" + name; }

    /// Makes or replaces a sequence. @return its path in the store.
    std::string Make(const std::string& name, const Fill& fill,
                     const k4suite::SequenceFacts& facts = Facts()) const {
        std::filesystem::create_directories(std::filesystem::path(Native(name)).parent_path());
        k4suite::SequenceWriter writer(Native(name), facts);
        fill(writer);
        EXPECT_TRUE(writer.Finish()) << writer.Problem();
        return Path(name);
    }
    /// Makes a sequence of frames that stand for these times.
    std::string MakeFrames(const std::string& name,
                           const std::vector<std::uint32_t>& dwells) const {
        return Make(name, [&](auto& writer) {
            for (const std::uint32_t dwell : dwells)
                AddFrame(writer, dwell);
        });
    }
    std::string MakeEqualFrames(const std::string& name, std::size_t count,
                                std::uint32_t dwell) const {
        return MakeFrames(name, std::vector<std::uint32_t>(count, dwell));
    }

    /// Changes a byte of a file where it lies.
    void Patch(const std::string& name, std::size_t offset, char byte) const {
        std::string content = folder.Read("home/drives/A/" + name);
        ASSERT_LT(offset, content.size());
        content[offset] = byte;
        folder.Write("home/drives/A/" + name, content);
    }
    void CutTo(const std::string& name, std::uintmax_t size) const {
        std::filesystem::resize_file(Native(name), size);
    }

    const TempFolder folder;
    const k4suite::DataHome home{folder / "home"};
    preview::PreviewSuite suite{home};
};

}  // namespace k4test

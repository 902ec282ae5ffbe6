#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/CK4GphFrame.h"
#include "k4cmndlg/filestore/contracts/CK4IncFrame.h"
#include "suite/sequence/SequenceFile.h"
#include "suite/sequence/SequenceHead.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/support/TempFolder.h"

namespace k4test {

using Bytes = std::vector<std::uint8_t>;

/// Bytes that look like nothing, the same ones for the same seed.
inline Bytes NoiseBytes(std::size_t count, std::uint32_t seed) {
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes) {
        seed = seed * 1664525 + 1013904223;
        byte = static_cast<std::uint8_t>(seed >> 24);
    }
    return bytes;
}

/// A number of the file's bytes, low byte first.
inline std::uint32_t NumberAt(const std::string& bytes, std::size_t offset, int width) {
    std::uint32_t number = 0;
    for (int i = width - 1; i >= 0; --i)
        number =
            number << 8 | static_cast<std::uint8_t>(bytes[offset + static_cast<std::size_t>(i)]);
    return number;
}

inline void PutNumber(std::string& bytes, std::size_t offset, int width, std::uint32_t number) {
    for (int i = 0; i < width; ++i, number >>= 8)
        bytes[offset + static_cast<std::size_t>(i)] = static_cast<char>(number);
}

/// Sequences in a folder of the test's own.
class SequenceFixture : public testing::Test {
 protected:
    static k4suite::SequenceFacts Facts() {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.maker = "test";
        facts.keywords = "summer; sale; ";
        facts.notes = "Two lines\nof notes";
        return facts;
    }

    std::string Path() const { return (m_folder / "Test.SQ4").string(); }

    /// Makes the file with what `fill` adds to it.
    void Make(const k4suite::SequenceFacts& facts,
              const std::function<void(k4suite::SequenceWriter&)>& fill) const {
        k4suite::SequenceWriter writer(Path(), facts);
        fill(writer);
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }

    /// Makes a file of graphic frames of 7 by 16 lamps: 16 bytes, so each chunk has 76.
    void MakeGraphic(std::uint32_t count, k4suite::SequenceFacts facts = Facts()) const {
        Make(facts, [&](k4suite::SequenceWriter& writer) {
            for (std::uint32_t i = 0; i < count; ++i)
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 100 + i, NoiseBytes(16, i)));
        });
    }

    std::string Content() const { return m_folder.Read("Test.SQ4"); }
    void SetContent(const std::string& content) const { m_folder.Write("Test.SQ4", content); }

    /// Changes a number in the file.
    void Patch(std::size_t offset, int width, std::uint32_t number) const {
        std::string content = Content();
        ASSERT_LE(offset + static_cast<std::size_t>(width), content.size());
        PutNumber(content, offset, width, number);
        SetContent(content);
    }

    /// Opens the file; the test fails if that fails.
    std::unique_ptr<k4suite::SequenceFile> Opened(K4OpenFlags flags = K4_OPEN_READ) const {
        auto file = std::make_unique<k4suite::SequenceFile>();
        EXPECT_EQ(file->Open(Path(), flags), 1) << file->GetPtrToErrorString();
        return file;
    }

    /// The words with which opening fails.
    std::string OpenFailure(K4OpenFlags flags = K4_OPEN_READ) const {
        k4suite::SequenceFile file;
        EXPECT_EQ(file.Open(Path(), flags), 0);
        EXPECT_EQ(file.SosData(), nullptr);
        return file.GetPtrToErrorString();
    }

    /// The first frame's place in a file without chunks before it.
    static constexpr std::size_t kFirstFrame = 2652;
    static constexpr std::size_t kFirstContent = kFirstFrame + 8;

    TempFolder m_folder;
};

}  // namespace k4test

#pragma once

#include <string>
#include <string_view>

#include "suite/sequence/SequenceCheck.h"
#include "tests/suite/sequence/SequenceFixture.h"

namespace k4test {

/// Asks an open file for all it has. Nothing may crash, whatever the file holds.
/// @return how many frames are sound.
inline int ReadAll(k4suite::SequenceFile& file) {
    int sound = 0;
    for (int number = 1; number <= file.FrameCount(); ++number) {
        CK4Frame* frame = file.Frame(number);
        if (auto* graphic = dynamic_cast<CK4GphFrame*>(frame)) {
            const bool isSound = graphic->BulbData() != nullptr;
            EXPECT_TRUE(isSound || file.GetPtrToErrorString()[0]);
            sound += isSound;
        } else if (auto* include = dynamic_cast<CK4IncFrame*>(frame)) {
            for (int field = 0; field < include->GetFieldCount(); ++field)
                EXPECT_NE(include->GetPtrToFieldPath(field), nullptr);
            ++sound;
        } else {
            EXPECT_NE(std::string(file.GetPtrToErrorString()), "");
            // What can't be found now isn't found by asking for later frames either.
            if (std::string_view(file.GetPtrToErrorString()).find("The file ends") == 0)
                break;
        }
    }
    file.CalcRunTime();
    return sound;
}

/// Files with something wrong, and the words about it.
class SequenceDamage : public SequenceFixture {
 protected:
    /// Patches the head of a sound file and gives the words of opening it.
    std::string WordsOfPatched(std::size_t offset, int width, std::uint32_t number) {
        MakeGraphic(2);
        Patch(offset, width, number);
        const std::string words = OpenFailure();
        const auto defects = k4suite::CheckSequence(Path());
        EXPECT_EQ(defects.size(), 1U);
        EXPECT_EQ(defects.empty() ? "" : DefectText(defects[0]), words);
        return words;
    }

    /// The words of a frame's data in a file that opens.
    std::string WordsOfFrame(int number = 1) {
        const auto file = Opened();
        auto* frame = dynamic_cast<CK4GphFrame*>(file->Frame(number));
        if (frame) {
            EXPECT_EQ(frame->BulbData(), nullptr);
            Bytes buffer(1 << 16);
            EXPECT_EQ(frame->GetBulbObj()->Unpack(buffer.data(), 0, 1), 0);
        }
        const std::string words = file->GetPtrToErrorString();
        bool isChecked = false;
        for (const auto& defect : k4suite::CheckSequence(Path()))
            isChecked = isChecked || DefectText(defect) == words;
        EXPECT_TRUE(isChecked) << words;
        return words;
    }
};

}  // namespace k4test

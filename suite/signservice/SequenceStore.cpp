#include "suite/signservice/SequenceStore.h"

#include <string_view>

#include "suite/signservice/FileNames.h"
#include "suite/signservice/ScheduleFile.h"
#include "suite/signservice/SequenceFrames.h"
#include "suite/signservice/TestPattern.h"

namespace k4suite {

namespace {

/// The name that the test pattern's look goes by.
constexpr char kTestPatternLook[] = "test pattern.sq4";

bool IsTestPattern(std::string_view name) {
    return IsSameAscii(name, kTestPatternFile);
}

}  // namespace

std::unique_ptr<FrameSource> SequenceStore::Open(const std::string& file,
                                                 const k4cmn::SignSettings& sign) const {
    if (IsTestPattern(file))
        return std::make_unique<TestPattern>(kTestPatternLook, sign);
    if (!IsFileName(file) || !IsSequenceName(file))
        return nullptr;
    return SequenceFrames::Open(m_files, file, sign);
}

std::string SequenceStore::SequenceOfSchedule(const std::string& sequence,
                                              const std::string& schedule) const {
    return IsTestPattern(sequence) ? sequence : m_files.GetFullPath(sequence, schedule);
}

std::optional<std::vector<std::uint8_t>> SequenceStore::ReadSchedule(
    const std::string& file) const {
    if (!IsFileName(file) || !IsScheduleName(file))
        return std::nullopt;
    const std::string native = m_files.NativePath(file);
    std::string ignored;  // the reply has no room for words
    return native.empty() ? std::nullopt : ReadScheduleFile(native, ignored);
}

}  // namespace k4suite

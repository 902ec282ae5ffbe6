#include "suite/signservice/SequenceStore.h"

#include <algorithm>

#include "suite/settings/NameText.h"
#include "suite/signservice/ScheduleFile.h"
#include "suite/signservice/SequenceFrames.h"
#include "suite/signservice/TestPattern.h"

namespace k4suite {

namespace {

bool IsSameAscii(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

bool EndsIn(std::string_view name, std::string_view ending) {
    return name.size() > ending.size() &&
           IsSameAscii(name.substr(name.size() - ending.size()), ending);
}

/// The name that the test pattern's look goes by.
constexpr char kTestPatternLook[] = "test pattern.sq4";

bool IsTestPattern(std::string_view name) {
    return IsSameAscii(name, kTestPatternFile);
}

}  // namespace

bool IsFileName(std::string_view name) {
    const auto isControl = [](char byte) {
        return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
    };
    return !name.empty() && name.size() <= kLongestFileName &&
           std::none_of(name.begin(), name.end(), isControl) && IsUtf8(name);
}

bool IsSequenceName(std::string_view name) {
    return EndsIn(name, ".SQ4");
}

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
    if (!IsFileName(file) || !EndsIn(file, ".SD4"))
        return std::nullopt;
    const std::string native = m_files.NativePath(file);
    std::string ignored;  // the reply has no room for words
    return native.empty() ? std::nullopt : ReadScheduleFile(native, ignored);
}

}  // namespace k4suite

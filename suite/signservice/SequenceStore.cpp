#include "suite/signservice/SequenceStore.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "suite/settings/NameText.h"
#include "suite/signservice/TestPattern.h"

namespace k4suite {

namespace {

namespace fs = std::filesystem;

bool IsSameAscii(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

bool EndsIn(std::string_view name, std::string_view ending) {
    return name.size() > ending.size() &&
           IsSameAscii(name.substr(name.size() - ending.size()), ending);
}

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

bool SequenceStore::HasFile(const std::string& file) const {
    const std::string native = m_files.NativePath(file);
    std::error_code ignored;
    return !native.empty() && fs::is_regular_file(native, ignored);
}

bool SequenceStore::HasSequence(const std::string& file) const {
    if (!IsFileName(file))
        return false;
    return IsTestPattern(file) || ((EndsIn(file, ".SQ4") || EndsIn(file, ".AVI")) && HasFile(file));
}

std::unique_ptr<FrameSource> SequenceStore::Open(const std::string& file,
                                                 const k4cmn::SignSettings& sign) const {
    if (!HasSequence(file))
        return nullptr;
    // One name in two spellings is one sequence, and looks the same.
    std::string name = IsTestPattern(file) ? kTestPatternFile : file;
    std::transform(name.begin(), name.end(), name.begin(), LowerAscii);
    return std::make_unique<TestPattern>(name, sign);
}

std::unique_ptr<FrameSource> SequenceStore::OpenTestPattern(const k4cmn::SignSettings& sign) {
    std::string name = kTestPatternFile;
    std::transform(name.begin(), name.end(), name.begin(), LowerAscii);
    return std::make_unique<TestPattern>(name, sign);
}

std::optional<std::vector<std::uint8_t>> SequenceStore::ReadSchedule(
    const std::string& file) const {
    if (!IsFileName(file) || !EndsIn(file, ".SD4") || !HasFile(file))
        return std::nullopt;
    std::ifstream stream(m_files.NativePath(file), std::ios::binary);
    std::vector<std::uint8_t> bytes(kLongestSchedule + 1);
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    if (stream.bad() || bytes.size() > kLongestSchedule || (stream.fail() && !stream.eof()))
        return std::nullopt;
    return bytes;
}

}  // namespace k4suite

#include "suite/sequence/RunLength.h"

#include <cstring>

namespace k4suite {

namespace {

constexpr std::size_t kWord = 2;
constexpr std::size_t kLongestCopy = 128;
constexpr std::size_t kLongestRun = 129;
constexpr std::uint8_t kFirstRunControl = 128;

/// How many times the word at `at` stands there, the first time counted.
std::size_t RunAt(std::span<const std::uint8_t> data, std::size_t at) {
    std::size_t count = 1;
    while (count < kLongestRun && at + (count + 1) * kWord <= data.size() &&
           std::memcmp(&data[at], &data[at + count * kWord], kWord) == 0)
        ++count;
    return count;
}

/// Ends the words that are waiting to be copied as they stand.
void PutCopy(std::span<const std::uint8_t> words, std::vector<std::uint8_t>& packed) {
    if (words.empty())
        return;
    packed.push_back(static_cast<std::uint8_t>(words.size() / kWord - 1));
    packed.insert(packed.end(), words.begin(), words.end());
}

}  // namespace

std::vector<std::uint8_t> PackRuns(std::span<const std::uint8_t> data) {
    std::vector<std::uint8_t> packed;
    std::size_t copyFrom = 0;
    std::size_t at = 0;
    while (at + kWord <= data.size()) {
        const std::size_t run = RunAt(data, at);
        // A run of two inside of a copy saves nothing, since the copy then needs a second head.
        if (run >= 3 || (run == 2 && copyFrom == at)) {
            PutCopy(data.subspan(copyFrom, at - copyFrom), packed);
            packed.push_back(static_cast<std::uint8_t>(run - 2 + kFirstRunControl));
            packed.insert(packed.end(), &data[at], &data[at] + kWord);
            at += run * kWord;
            copyFrom = at;
            continue;
        }
        at += kWord;
        if (at - copyFrom == kLongestCopy * kWord) {
            PutCopy(data.subspan(copyFrom, at - copyFrom), packed);
            copyFrom = at;
        }
    }
    PutCopy(data.subspan(copyFrom, at - copyFrom), packed);
    return packed;
}

bool UnpackRuns(std::span<const std::uint8_t> packed, std::span<std::uint8_t> data,
                SequenceDefect& defect) {
    std::size_t from = 0;
    std::size_t to = 0;
    while (from < packed.size()) {
        const std::size_t packet = from;
        const std::uint8_t control = packed[from++];
        const bool isRun = control >= kFirstRunControl;
        const std::size_t words =
            isRun ? std::size_t{control} - kFirstRunControl + 2 : std::size_t{control} + 1;
        const std::size_t needed = isRun ? kWord : words * kWord;
        if (packed.size() - from < needed) {
            defect = {packet, "The packed data ends inside of a packet."};
            return false;
        }
        if (data.size() - to < words * kWord) {
            defect = {packet, "The packed data holds more than the frame's bulb data."};
            return false;
        }
        if (isRun) {
            for (std::size_t i = 0; i < words; ++i)
                std::memcpy(&data[to + i * kWord], &packed[from], kWord);
        } else {
            std::memcpy(&data[to], &packed[from], needed);
        }
        from += needed;
        to += words * kWord;
    }
    if (to != data.size()) {
        defect = {packed.size(), "The packed data holds less than the frame's bulb data."};
        return false;
    }
    return true;
}

}  // namespace k4suite

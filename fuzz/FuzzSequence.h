#pragma once

#include <cstring>
#include <vector>

#include "fuzz/FuzzInput.h"
#include "suite/sequence/SequenceHead.h"

namespace k4fuzz {

/// A file from an input: the input as it is, or, where its first byte is odd, behind a sound head
/// whose facts come from the next bytes. The heads of few inputs are sound by chance.
inline std::vector<std::uint8_t> SequenceFrom(FuzzInput& input) {
    if (input.Byte() % 2 == 0)
        return {input.Rest().begin(), input.Rest().end()};
    k4suite::SequenceHead head = k4suite::MakeSequenceHead();
    head.start.rows = static_cast<std::uint16_t>(input.Byte() + 1);
    head.start.columns = static_cast<std::uint16_t>(input.Byte() + 1);
    head.start.color = input.Byte();
    head.start.frameCount = input.Word();
    // As many of the last bytes lie behind the form's end, or are missing from it.
    const int behind = static_cast<std::int8_t>(input.Byte());
    const auto rest = input.Rest();
    const auto form = static_cast<std::int64_t>(sizeof head + rest.size()) - behind;
    head.form.size = static_cast<std::uint32_t>(form - 8);
    std::vector<std::uint8_t> file(sizeof head + rest.size());
    std::memcpy(file.data(), &head, sizeof head);
    std::copy(rest.begin(), rest.end(), file.begin() + sizeof head);
    return file;
}

}  // namespace k4fuzz

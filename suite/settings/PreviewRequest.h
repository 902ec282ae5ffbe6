#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace k4suite {

/// The request to the preview application, as the settings of a data home hold it.
/// CK4Registry::SetPreviewOptions() stores it, IniRegistry::ReadPreviewRequest() reads it.
struct PreviewRequest {
    std::string sequence;                 ///< the path; may be empty
    std::optional<std::string> text;      ///< absent where it wasn't given, as the two numbers
    std::optional<std::uint32_t> first;   ///< has no meaning yet
    std::optional<std::uint32_t> second;  ///< kPlay: the sequence begins to play
    std::uint32_t number = 0;             ///< another one with each request; 0: there is none

    /// The value of `second` that starts playing.
    static constexpr std::uint32_t kPlay = 1;

    bool StartsPlaying() const { return second == kPlay; }
    bool operator==(const PreviewRequest&) const = default;
};

}  // namespace k4suite

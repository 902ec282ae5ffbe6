#pragma once

#include <QIcon>
#include <cstdint>

namespace preview {

/// What a button of the player means.
enum class Transport : std::uint8_t { First, Back, Play, Pause, Forward, Last, Loop };

/// The sign of a button, in the colors of the window and sharp at any size.
QIcon TransportIcon(Transport sign);

}  // namespace preview

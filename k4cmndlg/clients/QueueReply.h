#pragma once

#include <cstdint>
#include <string_view>

#include "k4cmndlg/clients/SignServiceTypes.h"

namespace k4cmn {

/// Fills entries from a reply that tells a display queue: a stream of tokens, each entry a tag and
/// the fields of that tag. An unknown tag has no fields; its slot is counted and left as it was.
/// An entry that the reply cuts short ends the reading: it isn't counted, though what it had stays
/// in its slot.
/// @param entries room for `capacity` entries.
/// @return how many were filled.
int ReadQueueReply(std::string_view reply, K4_DISPLAY_QUEUE* entries, std::uint32_t capacity);

}  // namespace k4cmn

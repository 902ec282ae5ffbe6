#pragma once

#include <string>
#include <vector>

#include "suite/sequence/ByteSource.h"
#include "suite/sequence/SequenceDefect.h"

namespace k4suite {

/// Looks at every byte of a sequence file that means something: the head, each chunk, each frame
/// with its data unpacked, and whether what the start record says is so.
/// @return every defect, in the order in which they were met; none for a sound file. A file that
///         can't be opened has one, at offset 0. After 1000 of them it stops.
std::vector<SequenceDefect> CheckSequence(const std::string& path);

/// As above, over bytes.
std::vector<SequenceDefect> CheckSequence(ByteSource& bytes);

}  // namespace k4suite

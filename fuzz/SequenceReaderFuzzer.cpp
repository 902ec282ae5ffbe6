#include <cstddef>
#include <cstdint>

#include "suite/sequence/MemoryBytes.h"
#include "suite/sequence/SequenceCheck.h"

/// Any bytes as a sequence file: the check reads all that a reader can be asked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    k4suite::MemoryBytes bytes({data, size});
    k4suite::CheckSequence(bytes);
    return 0;
}

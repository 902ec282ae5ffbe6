#include "fuzz/FuzzSequence.h"
#include "suite/sequence/MemoryBytes.h"
#include "suite/sequence/SequenceCheck.h"

/// Any bytes as a sequence file: the check reads all that a reader can be asked for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    k4fuzz::FuzzInput input(data, size);
    const std::vector<std::uint8_t> file = k4fuzz::SequenceFrom(input);
    k4suite::MemoryBytes bytes(file);
    for (const k4suite::SequenceDefect& defect : k4suite::CheckSequence(bytes))
        k4fuzz::Require(!defect.words.empty() && defect.offset <= file.size());
    return 0;
}

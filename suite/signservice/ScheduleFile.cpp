#include "suite/signservice/ScheduleFile.h"

#include "suite/sequence/FileBytes.h"
#include "suite/signservice/Schedule.h"

namespace k4suite {

std::optional<std::vector<std::uint8_t>> ReadScheduleFile(const std::string& native,
                                                          std::string& problem) {
    const std::unique_ptr<FileBytes> file = FileBytes::Open(native, false, problem);
    if (!file)
        return std::nullopt;
    std::vector<std::uint8_t> bytes(kLongestSchedule + 1);
    bytes.resize(file->ReadAt(0, bytes));
    if (bytes.size() > kLongestSchedule) {
        problem = "\"" + native + "\" is longer than a schedule can be, " +
                  std::to_string(kLongestSchedule) + " bytes.";
        return std::nullopt;
    }
    return bytes;
}

}  // namespace k4suite

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "suite/settings/MachineSettings.h"
#include "suite/signservice/EngineRpc.h"
#include "suite/signservice/SignEngine.h"
#include "tests/suite/signservice/FolderStore.h"
#include "tests/support/DrivenClock.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// Signs of most kinds: "Local" with six, "North" with two, "Far" with one.
k4suite::MachineSettings RigSettings();

/// What GetStatus tells.
struct StatusReply {
    std::string state, sequence;
    std::uint32_t frame = 0, mode = 0, param = 0, count = 0;
};

/// One lamp of a picture reply.
struct DibPixel {
    int red = 0, green = 0, blue = 0;
    bool operator==(const DibPixel&) const = default;
};

/// A picture reply, taken apart.
struct DibPicture {
    std::int32_t width = 0, height = 0;
    std::vector<DibPixel> pixels;

    const DibPixel& At(int row, int column) const {
        return pixels[static_cast<std::size_t>(row * width + column)];
    }
    bool operator==(const DibPicture&) const = default;
};

/// What "S:\\day.SD4" says: nothing that is in force at once.
inline constexpr char kDaySchedule[] = "K4 schedule 1\nat 20:00 sun next\n";

/// An engine with its surroundings, connected to "Local"; time is driven, and stands still. The
/// store holds the sequences "S:\show.SQ4" and "S:\film.SQ4", made for "Main" with 40 frames of 100
/// ms, and the schedule "S:\day.SD4" (see kDaySchedule).
class EngineRig {
 public:
    explicit EngineRig(k4suite::MachineSettings settings = RigSettings());

    /// Ends the service and starts it anew over the same state.
    void Restart();

    /// A reply of a stub that fills a text buffer; a failure fails the test.
    template <class Stub>
    std::string Text(Stub stub, const std::string& sign) {
        std::string buffer(1024, '\0');
        std::uint32_t length = 0;
        Expect(((*rpc).*stub)(sign.c_str(), buffer.data(), 1024, &length) == 0);
        Expect(length <= 1023 && std::string(buffer.c_str()).size() == length);
        return buffer.c_str();
    }
    StatusReply Status(const std::string& sign = "Main");
    std::vector<std::string> Config(const std::string& sign = "Main");
    /// The fields of a window's line.
    std::vector<std::string> Window(std::size_t window, const std::string& sign = "Main");
    std::string Queue(const std::string& sign = "Main");
    std::uint32_t ChangeFlag(const std::string& sign = "Main");
    std::uint32_t ScheduleFlag(const std::string& sign = "Main");
    std::uint32_t DefaultFlag(const std::string& sign = "Main");
    DibPicture Picture(const std::string& sign = "Main");
    std::vector<std::uint8_t> Bulbs(const std::string& sign = "Main");
    std::int32_t Play(const std::string& file, std::int32_t mode, std::uint32_t param = 0,
                      const std::string& sign = "Main");
    /// Gives "Main" something of everything that a sign keeps; it plays "S:\\show.SQ4" three times.
    void KeepBusy();
    /// The file that keeps a sign's state, relative to the state folder.
    static std::string StateFile(const std::string& sign = "Main") {
        return "Local/" + sign + ".json";
    }

    TempFolder state;
    FolderStore store;
    DrivenClock clock;
    k4suite::MachineSettings settings;
    std::unique_ptr<k4suite::SignEngine> engine;
    std::unique_ptr<k4suite::EngineRpc> rpc;

 private:
    static void Expect(bool holds);
};

std::vector<std::string> SplitAt(const std::string& text, char separator);

}  // namespace k4test

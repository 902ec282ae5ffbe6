#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "suite/settings/MachineSettings.h"
#include "suite/signservice/SequenceStore.h"
#include "suite/signservice/Sign.h"
#include "suite/signservice/SignStateFile.h"

namespace k4suite {

/// One machine's sign service: its signs, what they keep, and their change flags.
/// Threads: one at a time; the engine sees to it.
class Machine {
 public:
    /// Makes the signs and gives each what it kept. A sign whose name or size is impossible is left
    /// out.
    /// @param problems gets words for people for each thing that went wrong.
    Machine(const ServiceSetup& setup, const SequenceStore& store,
            const std::filesystem::path& stateFolder, TimePoint now,
            std::vector<std::string>& problems);

    const std::string& Name() const { return m_name; }
    /// The names of the signs, each on a line.
    std::string ListText() const;

    /// A sign by name, case not counting; null if there is none.
    Sign* Find(std::string_view sign);
    const Sign* Find(std::string_view sign) const;

    /// Brings all signs to the present.
    void AdvanceTo(TimePoint now);
    /// Saves the signs that have changed.
    void Save(std::vector<std::string>& problems);

    /// The sign's change flag, as it is to be told now.
    std::uint32_t ChangeFlag(const Sign& sign, TimePoint now);
    std::uint32_t ScheduleChangeFlag(const Sign& sign) const;

 private:
    struct Post {
        Post(Sign ownSign, SignStateFile ownFile)
            : sign(std::move(ownSign)), file(std::move(ownFile)) {}

        Sign sign;
        SignStateFile file;
        std::uint64_t lastLook = 0;
        std::uint32_t flag = 0;
    };

    void ChooseWindowSigns(const Sign& sign, const SignKept* kept, SignWindows& windows) const;
    void TellEndedSchedule(const SignKept& kept, const Sign& sign,
                           std::vector<std::string>& problems) const;
    Post& PostOf(const Sign& sign);

    std::string m_name;
    std::uint32_t m_firstFlag;  ///< differs from start to start
    std::vector<std::unique_ptr<Post>> m_posts;
};

}  // namespace k4suite

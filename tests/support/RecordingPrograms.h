#pragma once

#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Programs.h"

namespace k4test {

/// Programs that are only noted. Installed for the life of the object.
class RecordingPrograms final : public k4cmn::Programs {
 public:
    RecordingPrograms() : m_use(*this) {}

    bool canStart = true;
    bool keepsRunning = false;         ///< whether what was started still runs
    std::vector<std::string> started;  ///< the paths, in order
    std::vector<int> showStates;

    std::unique_ptr<k4cmn::RunningProgram> Start(const std::string& path, int showState) override {
        started.push_back(path);
        showStates.push_back(showState);
        return canStart ? std::make_unique<Record>(*this) : nullptr;
    }

 private:
    class Record final : public k4cmn::RunningProgram {
     public:
        explicit Record(const RecordingPrograms& programs) : m_programs(programs) {}
        bool IsRunning() override { return m_programs.keepsRunning; }

     private:
        const RecordingPrograms& m_programs;
    };

    k4cmn::ScopedProvider<k4cmn::Programs> m_use;
};

}  // namespace k4test

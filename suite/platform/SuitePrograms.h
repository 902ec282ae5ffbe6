#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Programs.h"

namespace k4suite {

class ChildProcess;

/// Starts the suite's programs: "/usr/bin\K4Prevu.exe" is the executable "/usr/bin/K4Prevu".
/// Without a folder in front ("\K4Prevu.exe") it is the one beside the running program.
///
/// A program stays when this one goes, and when its record goes. It has a session of its own and no
/// input or output. Show states are up to the programs.
/// Threads: the user interface thread.
class SuitePrograms final : public k4cmn::Programs {
 public:
    /// @param environment what the programs find in their environment beside this process's own.
    explicit SuitePrograms(std::map<std::string, std::string> environment);
    ~SuitePrograms() override;

    std::unique_ptr<k4cmn::RunningProgram> Start(const std::string& path, int showState) override;

    /// The executable that stands for a program.
    /// @param path as Start() takes it. @return empty where it names none.
    static std::string ExecutableOf(const std::string& path);

 private:
    /// Reaps what has ended.
    void Forget();

    std::map<std::string, std::string> m_environment;
    std::vector<std::shared_ptr<ChildProcess>> m_children;
};

}  // namespace k4suite

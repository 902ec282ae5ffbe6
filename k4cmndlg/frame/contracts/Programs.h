#pragma once

#include <memory>
#include <string>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

inline constexpr int SW_RESTORE = 9;  ///< show state: as an ordinary window

/// A program that was started: its process record. Destroying the record leaves the program alone.
class RunningProgram {
 public:
    virtual ~RunningProgram() = default;
    /// Whether it still runs.
    virtual bool IsRunning() = 0;
};

/// Starts programs of the suite, each as a process of its own.
/// Threads: the user interface thread.
class K4CMNCORE_EXPORT Programs {
 public:
    virtual ~Programs();

    /// Starts a program without a command line.
    /// @param path a composed path of an executable: CK4Registry::GetExePath(), '\' and its name,
    ///        such as "\K4Prevu.exe"; the platform knows what stands for it here.
    /// @param showState how its window is to begin.
    /// @return its record, or null if it can't be started.
    virtual std::unique_ptr<RunningProgram> Start(const std::string& path, int showState) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, Programs)

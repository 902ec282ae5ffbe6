#pragma once

#include <cstdint>

#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

inline constexpr std::uint32_t EWX_SHUTDOWN = 1;  ///< ExitSystem(): power down
inline constexpr std::uint32_t EWX_REBOOT = 2;    ///< ExitSystem(): start again

/// Ending the system, in the steps that a platform with privileges asks for. The order is the
/// caller's: open, look up, enable, exit, disable.
/// Threads: one caller at a time. Each step blocks until the platform has answered.
class K4CMNCORE_EXPORT PowerControl {
 public:
    virtual ~PowerControl();

    /// Opens the process's own rights, for adjusting and querying. @return 1 or 0.
    virtual int OpenProcessToken() = 0;
    /// Looks a privilege up by its name ("SeShutdownPrivilege"). @return 1 or 0.
    virtual int LookupPrivilege(const char* name) = 0;
    /// Switches the privilege that was looked up on (1) or off (0).
    /// @return the platform's last error: 0 when all of it was done.
    virtual std::uint32_t AdjustPrivilege(int enable) = 0;
    /// Starts the end of the system. @param how EWX_SHUTDOWN or EWX_REBOOT. @return 1 or 0.
    virtual int ExitSystem(std::uint32_t how) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, PowerControl)

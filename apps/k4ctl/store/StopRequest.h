#pragma once

#include <csignal>

namespace k4ctl {

/// For its life, Ctrl+C and a request to end are noted instead of ending the process, so that work
/// stops where it leaves nothing half done. One at a time, on the main thread.
class StopRequest {
 public:
    StopRequest();
    ~StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;

    /// Whether one came since the present object was made; false without one.
    static bool Came();

    /// Waits for input, or for a request, also one that comes just before the waiting begins.
    /// @return whether there is input (or its end) to read.
    static bool WaitForInput(int descriptor);

 private:
    struct sigaction m_interrupt;
    struct sigaction m_terminate;
};

}  // namespace k4ctl

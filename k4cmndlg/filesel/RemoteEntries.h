#pragma once

#include <string>

#include "k4cmndlg/filesel/ConnectedEntries.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The phone book entries that the installed stubs of the remote service (K4rsRpc) tell of.
///
/// The process has one connection to that service, which is dropped when a reading is over. So a
/// reading takes turns with the clients of other threads, by CK4CmnRS::m_cs.
/// Threads: any.
class K4CMNCORE_EXPORT RemoteEntries final : public ConnectedEntries {
 public:
    /// A reply that fills the room for it ends there, terminated or not.
    /// @return 0 as well where a stub throws; `reply` is as it was after a failure.
    int Read(std::string& reply) override;
};

}  // namespace k4cmn

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/frame/contracts/Clock.h"
#include "suite/settings/DataHome.h"
#include "suite/signservice/ServicesHolder.h"

namespace k4suite {

class FileOperationUi;
class FolderFiles;
class RemoteEngine;
class SignEngine;

/// Everything that the library requires of other programs, working on this machine over one data
/// home, without a window: store, settings, profile, sign and remote service, named events, shell,
/// programs, power, pictures of bulb data. Made once at the start of a program; it installs itself
/// behind the library's contracts, and takes itself away when it goes. Each contract may be
/// replaced afterwards by installing another object.
///
/// One process at a time runs the services of a data home. Where another one does, this object
/// stands all the same with all but the services: the clients then say "Sign service unavailable."
/// and "Remote service unavailable.", and Holder() says which process it is.
///
/// Threads: made and destroyed on the main thread; what it installs keeps the contracts' rules.
class EmbeddedSuite {
 public:
    /// @param home    the data home; made if it doesn't exist.
    /// @param program the name of this program, for its profile and for others to see.
    /// @param ui      questions and progress of file operations; must outlive the object.
    ///                Null: every question is answered No and nothing is shown.
    /// @param clock   the time; must outlive the object. Null: the system's.
    EmbeddedSuite(DataHome home, const std::string& program, FileOperationUi* ui = nullptr,
                  k4cmn::Clock* clock = nullptr);
    ~EmbeddedSuite();
    EmbeddedSuite(const EmbeddedSuite&) = delete;
    EmbeddedSuite& operator=(const EmbeddedSuite&) = delete;

    const DataHome& Home() const;
    FolderFiles& Files();

    /// Whether this process runs the services.
    bool RunsServices() const;
    /// The process that runs them, where it isn't this one.
    ServicesHolder Holder() const;
    /// The sign service's engine; null where another process runs the services.
    SignEngine* Engine();
    /// The remote service's engine; null where another process runs the services.
    RemoteEngine* Remote();

    /// What went wrong while reading settings and states, for people: damaged files set aside,
    /// states that couldn't be written.
    std::vector<std::string> Problems() const;

 private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace k4suite

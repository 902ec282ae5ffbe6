#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/settings/DataHome.h"
#include "suite/settings/IniFile.h"
#include "suite/settings/MachineSettings.h"
#include "suite/settings/PreviewRequest.h"

namespace k4suite {

/// The suite's settings over two INI files of a data home: the user's part, which dialogs read and
/// write, and the machine's part (see MachineSettings), which they read.
///
/// User's part. A key is the levels of its name, with '\' between them; the first one is a section
/// of the file. A key exists when it was made or when something lies below it; the root, with an
/// empty name, always does. Names keep their case. A number is kept as its decimal digits, so that
/// a text of digits reads as a number too. See IniName.h for how names are written.
///
/// The request to the preview application lies under the key "Preview\Request": "Sequence" (the
/// path), "Text", "First" and "Second" (each absent where it wasn't given), and "Number", which
/// grows by one with each request, so that the same request twice is seen twice.
///
/// Several processes may work on one home. Threads: any.
class IniRegistry final : public k4cmn::RegistryProvider {
 public:
    explicit IniRegistry(DataHome home);
    ~IniRegistry() override;

    std::unique_ptr<k4cmn::RegistryKey> OpenUserKey(const std::string& key,
                                                    const std::string& subkey, int create) override;
    /// The two names with '\' between them, where both are there.
    std::string BuildKey(const std::string& key, const std::string& subkey) override;

    /// An empty service is "Local". 0 if there is no such service at that phone book entry.
    int GetServers(std::vector<std::string>& servers, const std::string& service,
                   const std::string& phoneBookEntry) override;
    /// The services of that phone book entry. Without an entry "Local" is among them, configured or
    /// not: it is this system.
    int GetServices(std::vector<std::string>& services, const std::string& phoneBookEntry) override;
    int GetLocalSigns(std::vector<std::string>& signs) override;
    int GetSignSettings(const std::string& sign, k4cmn::SignSettings& settings) override;

    int GetDataPath(std::string& path) override;
    int GetExePath(std::string& path) override;
    int SetPreviewOptions(const std::string& sequencePath,
                          const k4cmn::PreviewOptions& options) override;
    /// The request that was stored last, all of it from one moment.
    /// @return 1, also where there is none yet; 0 with `request` as it was if it can't be read.
    int ReadPreviewRequest(PreviewRequest& request);

    /// What went wrong with the files, for people: each damaged one that was set aside.
    std::vector<std::string> Problems() const;

 private:
    int ReadMachine(MachineSettings& settings);

    const DataHome m_home;
    const std::shared_ptr<IniFile> m_user;
    mutable std::mutex m_mutex;
    std::vector<std::string> m_machineProblems;
};

}  // namespace k4suite

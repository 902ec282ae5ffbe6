#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Provided.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// One open key of the user's part of the suite's settings.
/// Ownership: the opener's; destroying it closes the key. Threads: one at a time.
class K4CMNCORE_EXPORT RegistryKey {
 public:
    virtual ~RegistryKey();

    /// @return 1 and the text, or 0 with `text` left as it was.
    virtual int GetString(const std::string& name, std::string* text) = 0;
    /// @return 1 if it is stored.
    virtual int SetString(const std::string& name, const std::string& text) = 0;
    /// @return 1 and the number, or 0 with `value` left as it was.
    virtual int GetDword(const std::string& name, std::uint32_t* value) = 0;
    /// @return 1 if it is stored.
    virtual int SetDword(const std::string& name, std::uint32_t value) = 0;
    /// The names of the subkeys.
    /// @return 1 and the names, what the list held being replaced; or 0 with the list left as it
    /// was
    ///         if they can't be read.
    virtual int Subkeys(std::vector<std::string>& names) = 0;
};

/// What a machine's settings say about one sign.
struct SignSettings {
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    std::vector<std::string> texts;      ///< further settings, up to 32 entries
    std::vector<std::uint32_t> numbers;  ///< further settings, up to 32 entries
    tag_K4_OUTPUT_ORIENTATION orientation = K4_OUTPUT_ORIENTATION_NORMAL;
};

/// What a request to the preview application holds beside the sequence's path.
struct PreviewOptions {
    const std::string* text = nullptr;      ///< optional
    const std::uint32_t* first = nullptr;   ///< optional
    const std::uint32_t* second = nullptr;  ///< optional
};

/// What stands behind CK4Registry: the suite's settings, a user part and a machine part.
/// Threads: any; an implementation guards itself, also against other processes. An int result is 1
/// for success and 0 for failure, and a failed read leaves its targets as they were.
class K4CMNCORE_EXPORT RegistryProvider {
 public:
    virtual ~RegistryProvider();

    /// Opens a key of the user's part.
    /// @param key, subkey the pair of names; `subkey` may be empty, and '\' in a name separates
    ///                    levels.
    /// @param create      not 0 makes the key if it isn't there.
    /// @return the open key, or null if it doesn't exist or can't be made.
    virtual std::unique_ptr<RegistryKey> OpenUserKey(const std::string& key,
                                                     const std::string& subkey, int create) = 0;
    /// The full key text of a pair of names.
    virtual std::string BuildKey(const std::string& key, const std::string& subkey) = 0;

    /// The server texts of a service and phone book entry; with both empty those of this system.
    virtual int GetServers(std::vector<std::string>& servers, const std::string& service,
                           const std::string& phoneBookEntry) = 0;
    /// The names of the configured services, among them "Local".
    virtual int GetServices(std::vector<std::string>& services,
                            const std::string& phoneBookEntry) = 0;
    /// The names of the signs configured on this system.
    virtual int GetLocalSigns(std::vector<std::string>& signs) = 0;
    /// The settings of a sign of this system.
    virtual int GetSignSettings(const std::string& sign, SignSettings& settings) = 0;

    /// The suite's data folder.
    virtual int GetDataPath(std::string& path) = 0;
    /// The folder of the suite's executables.
    virtual int GetExePath(std::string& path) = 0;
    /// Passes a request to the preview application.
    virtual int SetPreviewOptions(const std::string& sequencePath,
                                  const PreviewOptions& options) = 0;
};

}  // namespace k4cmn

K4_DECLARE_PROVIDED(K4CMNCORE_EXPORT, RegistryProvider)

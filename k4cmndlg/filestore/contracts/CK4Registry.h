#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {
class RegistryKey;
}

/// The suite's settings, as dialogs use them: a short-lived local object that opens one key at a
/// time, over whatever RegistryProvider is installed. With none installed everything answers 0.
/// An int result is 1 for success and 0 for failure. Threads: an object belongs to one thread.
class K4CMNCORE_EXPORT CK4Registry {
 public:
    /// The most entries that the text and number lists of GetSignConfigEx() hold.
    static constexpr std::size_t kMaxFurtherSettings = 32;

    CK4Registry();
    ~CK4Registry();
    CK4Registry(const CK4Registry&) = delete;
    CK4Registry& operator=(const CK4Registry&) = delete;

    /// Opens a key of the user's part. A key that was open is closed first.
    /// @return 1 if the key exists and is now open.
    int OpenUserRegistryKey(const std::string& key, const std::string& subkey = {});
    /// @return 1 if the key exists or was made, and is now open.
    int CreateUserRegistryKey(const std::string& key, const std::string& subkey = {});
    /// Closes the open key, if there is one.
    void CloseRegistryKey();

    /// Reads a text of the open key. On failure `text` keeps its value.
    int GetRegistryString(const std::string& name, std::string* text) const;
    /// Stores a text in the open key.
    int SetRegistryString(const std::string& name, const std::string& text);
    /// Reads a number of the open key. On failure the target keeps its value.
    int GetRegistryDword(const std::string& name, std::uint32_t* value) const;
    /// Stores a number in the open key.
    int SetRegistryDword(const std::string& name, const std::uint32_t* value);

    /// All server names of a service and connection, the list being replaced; with both null those
    /// of the local system. @return 0 if they can't be read.
    static int GetRegistryServers(std::vector<std::string>& servers,
                                  const std::string* service = nullptr,
                                  const std::string* phoneBookEntry = nullptr);
    /// The names of the configured services, among them "Local", the list being replaced.
    static int GetRegistryServices(std::vector<std::string>& services,
                                   const std::string* phoneBookEntry = nullptr);
    /// The names of the signs configured on this system, the list being replaced.
    static int GetLocalSignList(std::vector<std::string>& signs);

    /// Fills what is asked of a sign's settings; a null pointer skips that value.
    static int GetSignConfig(const std::string& sign, std::uint32_t* rows, std::uint32_t* columns,
                             tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel);
    /// As GetSignConfig(), with the further settings; the lists hold up to 32 entries.
    static int GetSignConfigEx(const std::string& sign, std::uint32_t* rows, std::uint32_t* columns,
                               tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel,
                               std::vector<std::string>* texts, std::vector<std::uint32_t>* numbers,
                               tag_K4_OUTPUT_ORIENTATION* orientation);

    /// The suite's data folder.
    static int GetDataPath(std::string& path);
    /// The folder of the suite's executables.
    static int GetExePath(std::string& path);
    /// Passes a request to the preview application; a null pointer leaves that value out.
    static int SetPreviewOptions(const std::string& sequencePath, const std::string* text = nullptr,
                                 const std::uint32_t* first = nullptr,
                                 const std::uint32_t* second = nullptr);
    /// The full key text of a pair of names.
    static std::string BuildRegistryKey(const std::string& key, const std::string& subkey = {});
    /// The names of an open key's subkeys that begin with `prefix` (null: all), the list being
    /// replaced. @return 0 with the list as it was if no key is open or the names can't be read.
    static int EnumerateKeys(const CK4Registry& openKey, std::vector<std::string>& names,
                             const std::string* prefix = nullptr);

 private:
    int Open(const std::string& key, const std::string& subkey, int create);

    std::unique_ptr<k4cmn::RegistryKey> m_key;
};

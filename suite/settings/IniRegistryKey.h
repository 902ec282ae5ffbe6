#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/settings/IniFile.h"

namespace k4suite {

/// One open key in an INI file. It shares the file, and so may outlive the registry that opened it.
class IniRegistryKey final : public k4cmn::RegistryKey {
 public:
    /// @param key the key's place, as EncodeKey() gives it.
    IniRegistryKey(std::shared_ptr<IniFile> file, QString key);

    int GetString(const std::string& name, std::string* text) override;
    int SetString(const std::string& name, const std::string& text) override;
    int GetDword(const std::string& name, std::uint32_t* value) override;
    int SetDword(const std::string& name, std::uint32_t value) override;
    int Subkeys(std::vector<std::string>& names) override;

 private:
    const std::shared_ptr<IniFile> m_file;
    const QString m_key;
};

}  // namespace k4suite

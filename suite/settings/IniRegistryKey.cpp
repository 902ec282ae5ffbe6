#include "suite/settings/IniRegistryKey.h"

#include <QStringList>
#include <utility>

#include "suite/settings/IniName.h"
#include "suite/settings/IniValue.h"

namespace k4suite {

IniRegistryKey::IniRegistryKey(std::shared_ptr<IniFile> file, QString key)
    : m_file(std::move(file)), m_key(std::move(key)) {}

int IniRegistryKey::GetString(const std::string& name, std::string* text) {
    int found = 0;
    if (text)
        m_file->Read(
            [&](QSettings& file) { found = ReadText(file, EncodeValue(m_key, name), *text); });
    return found;
}

int IniRegistryKey::SetString(const std::string& name, const std::string& text) {
    if (!IsStorable(text))
        return 0;
    return m_file->Update(
        [&](QSettings& file) { WriteText(file, EncodeValue(m_key, name), text); });
}

int IniRegistryKey::GetDword(const std::string& name, std::uint32_t* value) {
    int found = 0;
    if (value)
        m_file->Read(
            [&](QSettings& file) { found = ReadNumber(file, EncodeValue(m_key, name), *value); });
    return found;
}

int IniRegistryKey::SetDword(const std::string& name, std::uint32_t value) {
    return m_file->Update(
        [&](QSettings& file) { WriteNumber(file, EncodeValue(m_key, name), value); });
}

int IniRegistryKey::Subkeys(std::vector<std::string>& names) {
    return m_file->Read([&](QSettings& file) {
        names.clear();
        file.beginGroup(m_key);
        for (const QString& group : file.childGroups())
            names.push_back(DecodeName(group));
        file.endGroup();
    });
}

}  // namespace k4suite

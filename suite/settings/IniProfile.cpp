#include "suite/settings/IniProfile.h"

#include <utility>

#include "suite/settings/IniName.h"
#include "suite/settings/IniValue.h"

namespace k4suite {

IniProfile::IniProfile(std::filesystem::path file) : m_file(std::move(file)) {}

std::string IniProfile::GetString(const std::string& section, const std::string& name,
                                  const std::string& fallback) {
    std::string text = fallback;
    m_file.Read(
        [&](QSettings& file) { ReadText(file, EncodeValue(EncodeKey(section), name), text); });
    return text;
}

int IniProfile::WriteString(const std::string& section, const std::string& name,
                            const std::string& text) {
    if (!IsStorable(text))
        return 0;
    return m_file.Update(
        [&](QSettings& file) { WriteText(file, EncodeValue(EncodeKey(section), name), text); });
}

}  // namespace k4suite

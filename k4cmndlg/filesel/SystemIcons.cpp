#include "k4cmndlg/filesel/SystemIcons.h"

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/FolderRows.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/FileKinds.h"
#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

int SystemIcons::IndexOf(const std::string& path) {
    const std::string theme = Provided<FileKinds>::Current().IconName(path);
    const bool isThemed = !theme.empty() && QIcon::hasThemeIcon(ToQt(theme));
    const std::string name = path.substr(path.find_last_of('\\') + 1);
    const std::string extension = WithoutCase(FolderRows::ExtensionOf(name));
    const auto [entry, isNew] =
        m_indexes.try_emplace(isThemed ? theme : "." + extension, static_cast<int>(m_icons.size()));
    if (isNew)
        m_icons.push_back(isThemed ? QIcon::fromTheme(ToQt(theme))
                                   : FileImages::OfExtension(extension));
    return entry->second;
}

QIcon SystemIcons::At(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < m_icons.size() ? m_icons[at] : QIcon();
}

}  // namespace k4cmn

#include "apps/preview/FileWatch.h"

#include <QSet>
#include <QStringList>
#include <filesystem>
#include <utility>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/frame/Text.h"

namespace preview {

namespace fs = std::filesystem;

FileWatch::FileWatch(QObject* parent) : QObject(parent) {
    m_timer.setInterval(kLookEvery);
    connect(&m_timer, &QTimer::timeout, this, &FileWatch::Look);
    connect(&m_system, &QFileSystemWatcher::directoryChanged, this, &FileWatch::Look);
}

void FileWatch::Watch(std::map<std::string, FileStamp> places) {
    m_places = std::move(places);
    WatchFolders();
    if (m_places.empty())
        m_timer.stop();
    else
        m_timer.start();
    Look();
}

void FileWatch::WatchFolders() {
    auto& files = k4cmn::Provided<k4cmn::FilesProvider>::Current();
    QSet<QString> folders;
    for (const auto& [path, stamp] : m_places) {
        const fs::path native = files.NativePath(path);
        std::error_code ignored;
        if (native.has_parent_path() && fs::is_directory(native.parent_path(), ignored))
            folders.insert(k4cmn::ToQt(native.parent_path().string()));
    }
    const QStringList now = m_system.directories();
    const QSet<QString> watched(now.begin(), now.end());
    const QSet<QString> old = watched - folders;
    const QSet<QString> added = folders - watched;
    if (!old.isEmpty())
        m_system.removePaths(old.values());
    if (!added.isEmpty())
        m_system.addPaths(added.values());
}

void FileWatch::Look() {
    bool changed = false;
    for (auto& [path, stamp] : m_places) {
        const FileStamp now = FileStamp::Of(path);
        changed |= now != std::exchange(stamp, now);
    }
    if (changed)
        Q_EMIT Changed();
}

}  // namespace preview

#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <map>
#include <string>

#include "apps/preview/FileStamp.h"

namespace preview {

/// Tells when one of some files is changed, replaced, removed, or there at last. The system tells
/// of what happens in their folders at once; a look at the files themselves finds the rest, also on
/// file systems that tell nothing.
/// Threads: the one that made it, which must run an event loop.
class FileWatch final : public QObject {
    Q_OBJECT

 public:
    /// How often it looks.
    static constexpr std::chrono::milliseconds kLookEvery{300};

    explicit FileWatch(QObject* parent = nullptr);

    /// Watches other files, instead of those before.
    /// @param places paths of this machine or of the store, each with its stamp: what differs from
    ///               it is a change.
    void Watch(std::map<std::string, FileStamp> places);

 Q_SIGNALS:
    /// One or more of the files have changed since the last time.
    void Changed();

 private:
    void Look();
    void WatchFolders();

    std::map<std::string, FileStamp> m_places;
    QFileSystemWatcher m_system;
    QTimer m_timer;
};

}  // namespace preview

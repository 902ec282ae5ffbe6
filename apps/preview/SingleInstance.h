#pragma once

#include <QLocalServer>
#include <QObject>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "suite/platform/Descriptor.h"
#include "suite/settings/DataHome.h"
#include "suite/settings/FileLock.h"

namespace preview {

/// Sees to it that one preview runs on a data home. The first one holds the home's lock
/// "preview.lock" and listens at "preview.socket"; a later one asks it to come to the front, gives
/// it the file that it was started with, and ends. The system takes the lock away when its process
/// ends, however it ends; a socket that was left behind is replaced.
///
/// Threads: the one that made it, which must run an event loop.
class SingleInstance final : public QObject {
    Q_OBJECT

 public:
    /// How long a later one waits for the first one's answer.
    static constexpr std::chrono::milliseconds kPatience{3000};

    /// @param home made if it doesn't exist.
    explicit SingleInstance(const k4suite::DataHome& home, QObject* parent = nullptr);
    ~SingleInstance() override;

    /// @param file the path that this process was started with, absolute; may be empty.
    /// @return true if this process is to go on: it is the first one, or the first one doesn't
    ///         answer, or the home has no place for a lock. False if another one has taken over.
    bool Start(const std::string& file);

 Q_SIGNALS:
    /// A later one was started.
    /// @param file the path that it was started with, absolute; may be empty.
    void StartedAgain(const std::string& file);

 private:
    bool TryLock();
    void Listen();
    void Accept();
    void Read(QLocalSocket& socket);
    bool HandOver(const std::string& file) const;
    QString SocketPath() const;

    const std::filesystem::path m_home;
    const k4suite::Descriptor m_folder;  ///< the home
    std::unique_ptr<k4suite::FileLock> m_lock;
    QLocalServer m_server;
};

}  // namespace preview

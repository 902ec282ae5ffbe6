#include "apps/preview/SingleInstance.h"

#include <fcntl.h>

#include <QElapsedTimer>
#include <QLocalSocket>
#include <thread>

namespace preview {

namespace fs = std::filesystem;

namespace {

// A message is a path and a zero byte, and so is the answer, with this text.
constexpr char kAnswer[] = "ok";
constexpr qint64 kLongestMessage = 64 * 1024;
constexpr int kAnswerWithin = 1000;  // milliseconds, for one attempt
constexpr std::chrono::milliseconds kPause{20};

int OpenFolder(const fs::path& folder) {
    std::error_code ignored;  // opening tells
    fs::create_directories(folder, ignored);
    return open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

SingleInstance::SingleInstance(const k4suite::DataHome& home, QObject* parent)
    : QObject(parent), m_home(home.Path()), m_folder(OpenFolder(home.Path())) {
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::Accept);
}

SingleInstance::~SingleInstance() {
    // While the lock is held, so that the socket of the next one stays.
    m_server.close();
}

QString SingleInstance::SocketPath() const {
    // By way of the open folder: a socket's address has room for 107 bytes only.
    return QStringLiteral("/proc/self/fd/%1/preview.socket").arg(m_folder.Get());
}

bool SingleInstance::TryLock() {
    m_lock =
        std::make_unique<k4suite::FileLock>(m_home / "preview.lock", std::chrono::milliseconds(0));
    return m_lock->IsHeld();
}

bool SingleInstance::Start(const std::string& file) {
    if (!m_folder)
        return true;
    QElapsedTimer time;
    time.start();
    // The first one may just be starting, or ending.
    do {
        if (TryLock()) {
            Listen();
            return true;
        }
        if (HandOver(file))
            return false;
        std::this_thread::sleep_for(kPause);
    } while (!time.hasExpired(kPatience.count()));
    return true;
}

void SingleInstance::Listen() {
    QLocalServer::removeServer(SocketPath());
    m_server.listen(SocketPath());
}

void SingleInstance::Accept() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { Read(*socket); });
        Read(*socket);
    }
}

void SingleInstance::Read(QLocalSocket& socket) {
    const QByteArray message = socket.peek(kLongestMessage);
    const qsizetype end = message.indexOf('\0');
    if (end < 0) {
        if (message.size() == kLongestMessage)
            socket.abort();
        return;
    }
    socket.skip(end + 1);
    socket.write(kAnswer, sizeof kAnswer);
    socket.flush();
    Q_EMIT StartedAgain(message.first(end).toStdString());
}

bool SingleInstance::HandOver(const std::string& file) const {
    QLocalSocket socket;
    socket.connectToServer(SocketPath());
    if (!socket.waitForConnected(kAnswerWithin))
        return false;
    socket.write(file.c_str(), static_cast<qint64>(file.size()) + 1);
    while (socket.bytesAvailable() < qint64{sizeof kAnswer}) {
        if (!socket.waitForReadyRead(kAnswerWithin))
            return false;
    }
    return true;
}

}  // namespace preview

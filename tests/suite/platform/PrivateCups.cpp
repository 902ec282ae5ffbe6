#include "tests/suite/platform/PrivateCups.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <algorithm>
#include <cstring>
#include <filesystem>

#include "suite/platform/Descriptor.h"

namespace k4test {

namespace fs = std::filesystem;

namespace {

constexpr char kScheduler[] = "/usr/sbin/cupsd";
constexpr char kServer[] = "CUPS_SERVER";

/// Whom the scheduler is for. It refuses to be the administrator's.
std::string UserName() {
    return geteuid() == 0 ? "lp" : getpwuid(geteuid())->pw_name;
}

std::string GroupName() {
    return geteuid() == 0 ? "lp" : getgrgid(getegid())->gr_name;
}

bool Answers(const std::string& path) {
    const k4suite::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

}  // namespace

PrivateCups::PrivateCups(bool accepts) : m_before(qgetenv(kServer)) {
    Configure(accepts);
    const std::string socket = (m_folder / "socket").string();
    qputenv(kServer, QByteArray::fromStdString(socket));
    m_scheduler.setProcessChannelMode(QProcess::MergedChannels);
    m_scheduler.start(
        QString::fromLatin1(kScheduler),
        {QStringLiteral("-f"), QStringLiteral("-c"),
         QString::fromStdString((m_folder / "cupsd.conf").string()), QStringLiteral("-s"),
         QString::fromStdString((m_folder / "cups-files.conf").string())});
    const QDeadlineTimer deadline(20'000);
    do {
        m_isRunning = Answers(socket);
    } while (!m_isRunning && !m_scheduler.waitForFinished(20) && !deadline.hasExpired());
    EXPECT_TRUE(m_isRunning) << m_scheduler.errorString().toStdString() << " "
                             << m_scheduler.readAll().toStdString();
}

PrivateCups::~PrivateCups() {
    m_scheduler.terminate();
    if (!m_scheduler.waitForFinished())
        m_scheduler.kill();
    m_scheduler.waitForFinished();
    if (m_before.isNull())
        qunsetenv(kServer);
    else
        qputenv(kServer, m_before);
}

void PrivateCups::Configure(bool accepts) const {
    const std::string top = m_folder.Path().string();
    for (const char* folder : {"spool/tmp", "cache", "state", "log", "root/ppd"})
        fs::create_directories(m_folder / folder);
    m_folder.Write("cups-files.conf", "SystemGroup " + std::string(geteuid() == 0 ? "root" : "lp") +
                                          "\nUser " + UserName() + "\nGroup " + GroupName() +
                                          "\nFileDevice Yes\nSandboxing relaxed\nAccessLog " + top +
                                          "/log/access\nErrorLog " + top + "/log/error\nPageLog " +
                                          top + "/log/page\nCacheDir " + top + "/cache\nStateDir " +
                                          top + "/state\nRequestRoot " + top + "/spool\nTempDir " +
                                          top + "/spool/tmp\nServerRoot " + top + "/root\n");
    m_folder.Write("cupsd.conf",
                   "Listen " + top +
                       "/socket\nBrowsing No\nWebInterface No\nDefaultAuthType None\n<Location />\n"
                       "Order allow,deny\nAllow all\n</Location>\n<Policy default>\n<Limit All>\n"
                       "Order deny,allow\n</Limit>\n</Policy>\n");
    m_folder.Write("root/printers.conf",
                   "<DefaultPrinter paper>\nUUID urn:uuid:11111111-1111-1111-1111-111111111111\n"
                   "Info Paper\nDeviceURI file:///dev/null\nState Stopped\nStateTime 1\n"
                   "ConfigTime 1\nType 4\nAccepting " +
                       std::string(accepts ? "Yes" : "No") +
                       "\nShared No\nJobSheets none none\nOpPolicy default\n"
                       "ErrorPolicy stop-printer\n</DefaultPrinter>\n");
}

std::vector<std::string> PrivateCups::Documents() const {
    std::vector<std::string> documents;
    for (const auto& entry : fs::directory_iterator(m_folder / "spool"))
        if (entry.path().filename().string().starts_with('d'))
            documents.push_back(entry.path().string());
    std::sort(documents.begin(), documents.end());
    return documents;
}

}  // namespace k4test

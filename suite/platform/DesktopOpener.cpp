#include "suite/platform/DesktopOpener.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <string_view>
#include <utility>

#include "suite/platform/DesktopEntry.h"
#include "suite/platform/FileSystem.h"
#include "suite/platform/PrintableFile.h"

namespace k4suite {

namespace {

struct CodeRow {
    int from;
    OpenCode code;
};

// Why a program can't be started.
constexpr CodeRow kStartCodes[] = {
    {ENOENT, kOpenNoFile}, {ENOTDIR, kOpenNoPath},  {EACCES, kOpenDenied},
    {EPERM, kOpenDenied},  {ENOMEM, kOpenNoMemory}, {ENOEXEC, kOpenNoExecutable},
};

// What the opener says when it ends.
constexpr CodeRow kOpenerCodes[] = {
    {0, kOpenDone},      {2, kOpenNoFile},  // the file went in the meantime
    {3, kOpenNoProgram},                    // nothing on this desktop that could open it
    {4, kOpenNoProgram},                    // the program for it failed to start
    {-1, kOpenDone},                        // still at it
};

template <std::size_t N>
OpenCode Lookup(const CodeRow (&rows)[N], int from, OpenCode otherwise) {
    for (const CodeRow& row : rows)
        if (row.from == from)
            return row.code;
    return otherwise;
}

/// Whether a text begins with a link's scheme. A single letter is a drive.
bool HasScheme(const std::string& text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos || colon < 2 ||
        !std::isalpha(static_cast<unsigned char>(text[0])))
        return false;
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon),
                       [](char byte) {
                           return std::isalnum(static_cast<unsigned char>(byte)) || byte == '+' ||
                                  byte == '-' || byte == '.';
                       });
}

bool BeginsWith(const std::string& text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           strncasecmp(text.c_str(), beginning.data(), beginning.size()) == 0;
}

/// Whether a file or folder is there to be opened: kOpenDone, or why not.
OpenCode LookAt(const std::string& path) {
    struct stat status;
    if (path.empty())
        return kOpenNoFile;
    if (stat(path.c_str(), &status) == 0)
        return faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) == 0 ? kOpenDone : kOpenDenied;
    if (errno == EACCES)
        return kOpenDenied;
    if (errno == ENOENT && stat(FolderOf(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode))
        return kOpenNoFile;
    return kOpenNoPath;
}

/// The text of a desktop entry by its id, in which a '-' may stand for a folder.
std::string DesktopEntryText(QString id) {
    while (true) {
        const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id);
        QFile file(path);
        if (!path.isEmpty() && file.open(QIODevice::ReadOnly))
            return file.readAll().toStdString();
        const qsizetype dash = id.indexOf(QLatin1Char('-'));
        if (dash < 0)
            return {};
        id[dash] = QLatin1Char('/');
    }
}

}  // namespace

DesktopOpener::DesktopOpener(std::function<std::string(const std::string&)> nativePath,
                             DesktopTools tools)
    : m_nativePath(std::move(nativePath)), m_tools(std::move(tools)) {}

std::uint32_t DesktopOpener::Open(const std::string& text) {
    std::string path = text;
    if (BeginsWith(text, "file:")) {
        const QUrl link(QString::fromStdString(text));
        if (!link.isLocalFile() || !link.host().isEmpty())
            return RunOpener(text);
        path = link.toLocalFile().toStdString();
    } else if (HasScheme(text)) {
        return RunOpener(text);
    } else {
        path = AbsolutePath(m_nativePath(text));
    }

    const OpenCode found = LookAt(path);
    if (found != kOpenDone && BeginsWith(text, "www."))
        return RunOpener("http://" + text);
    return found == kOpenDone ? RunOpener(path) : found;
}

std::uint32_t DesktopOpener::RunOpener(const std::string& what) {
    const ProcessLauncher::Result result =
        m_launcher.Start({m_tools.opener, what}, m_tools.patience);
    return result.error ? kOpenNoProgram : Lookup(kOpenerCodes, result.exitCode, kOpenNoProgram);
}

std::uint32_t DesktopOpener::Print(const std::string& path) {
    const std::string native = AbsolutePath(m_nativePath(path));
    const OpenCode found = LookAt(native);
    if (found != kOpenDone)
        return found;
    if (!IsPrintable(native))
        return kOpenNoProgram;
    const ProcessLauncher::Result result =
        m_launcher.Start({m_tools.printer, "--", native}, m_tools.patience);
    const bool isTaken = result.error == 0 && (result.exitCode == 0 || result.exitCode == -1);
    return isTaken ? kOpenDone : kOpenNoProgram;
}

std::string DesktopOpener::CommandFor(const std::string& extension) const {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(
        QStringLiteral("document") + QString::fromStdString(extension),
        QMimeDatabase::MatchExtension);
    if (type.isDefault())
        return {};

    QProcess query;
    query.start(QString::fromStdString(m_tools.mimeQuery),
                {QStringLiteral("query"), QStringLiteral("default"), type.name()});
    if (!query.waitForFinished(static_cast<int>(m_tools.patience.count()))) {
        query.kill();
        query.waitForFinished();
        return {};
    }
    const QString answer = QString::fromUtf8(query.readAllStandardOutput()).trimmed();
    const QString id = answer.section(QLatin1Char('\n'), 0, 0).section(QLatin1Char(';'), 0, 0);
    return id.isEmpty() ? std::string() : CommandOfDesktopEntry(DesktopEntryText(id));
}

std::uint32_t DesktopOpener::Execute(const std::string& command) {
    const ProcessLauncher::Result result =
        m_launcher.Start(SplitCommand(command), std::chrono::milliseconds(0));
    return result.error ? Lookup(kStartCodes, result.error, kOpenNoResources) : kOpenDone;
}

}  // namespace k4suite

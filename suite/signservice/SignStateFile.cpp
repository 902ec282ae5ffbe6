#include "suite/signservice/SignStateFile.h"

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QString>
#include <system_error>

#include "k4cmndlg/frame/Format.h"
#include "suite/platform/WholeFile.h"
#include "suite/signservice/NameHash.h"
#include "suite/signservice/SignState.h"

namespace k4suite {

namespace {

namespace fs = std::filesystem;
using k4cmn::Format;

constexpr std::size_t kLongestFile = 200;
/// A state is some kilobytes, and a schedule of its greatest length in base64.
constexpr qint64 kLargestState = 1024 * 1024;

bool StaysInFileName(char byte, bool isFirst) {
    const bool isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
    return isLetter || (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' ||
           (!isFirst && (byte == '.' || byte == ' '));
}

QString QtPath(const fs::path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

}  // namespace

std::string StateFileName(std::string_view name) {
    std::string file;
    for (const char byte : name)
        file += StaysInFileName(byte, file.empty())
                    ? std::string(1, byte)
                    : Format("%%%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
    if (file.size() > kLongestFile) {
        file.resize(kLongestFile);
        file += Format("~%016llx", static_cast<unsigned long long>(NameHash(name)));
    }
    return file;
}

SignStateFile::SignStateFile(const fs::path& folder, std::string_view machine,
                             std::string_view sign)
    : m_path(folder / StateFileName(machine) / (StateFileName(sign) + ".json")) {}

std::optional<SignKept> SignStateFile::Read(std::string& problem) const {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(m_path, error)))
        return std::nullopt;
    QFile file(QtPath(m_path));
    if (!fs::is_regular_file(m_path, error) || !file.open(QIODevice::ReadOnly)) {
        problem = SetAside("can't be read");
        return std::nullopt;
    }
    const QByteArray bytes = file.read(kLargestState + 1);
    const QJsonDocument document =
        bytes.size() <= kLargestState ? QJsonDocument::fromJson(bytes) : QJsonDocument();
    if (!document.isObject()) {
        file.close();
        problem = SetAside("is damaged");
        return std::nullopt;
    }
    return FromJson(document.object());
}

std::string SignStateFile::SetAside(const char* reason) const {
    std::string words = Format("The sign state \"%s\" %s.", m_path.c_str(), reason);
    for (int number = 1; number < 10000; ++number) {
        const fs::path aside = Format("%s.damaged-%d", m_path.c_str(), number);
        std::error_code error;
        if (fs::exists(fs::symlink_status(aside, error)))
            continue;
        fs::rename(m_path, aside, error);
        if (!error)
            return words + Format(" It was set aside as \"%s\".", aside.filename().c_str());
        break;
    }
    return words + " It couldn't be set aside.";
}

bool SignStateFile::Write(const SignKept& kept, std::string& problem) const {
    std::error_code error;
    fs::create_directories(m_path.parent_path(), error);
    QSaveFile file(QtPath(m_path));
    const QByteArray bytes = QJsonDocument(ToJson(kept)).toJson();
    if (WriteWholeFile(file, bytes))
        return true;
    problem = Format("The sign state \"%s\" can't be written: %s.", m_path.c_str(),
                     file.errorString().toStdString().c_str());
    return false;
}

}  // namespace k4suite

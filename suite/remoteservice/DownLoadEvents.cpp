#include "suite/remoteservice/DownLoadEvents.h"

#include <QString>
#include <optional>

#include "k4cmndlg/frame/Format.h"
#include "suite/settings/IniValue.h"

namespace k4suite {

namespace {

QString Line(std::size_t number, const char* name) {
    return QStringLiteral("DownLoad%1/%2").arg(number).arg(QLatin1String(name));
}

}  // namespace

DownLoadEvents::DownLoadEvents(const std::filesystem::path& file) : m_file(file) {
    m_file.Read([this](QSettings& ini) { Read(ini); });
}

void DownLoadEvents::Read(QSettings& file) {
    for (std::size_t number = 1; number <= kMost; ++number) {
        std::string path;
        std::string when;
        const bool hasPath = ReadText(file, Line(number, "Path"), path) != 0;
        const bool hasWhen = ReadText(file, Line(number, "When"), when) != 0;
        if (!hasPath && !hasWhen)
            continue;
        m_last = number;
        if (const std::optional<DownLoadEvent> event = DownLoadEventAt(path, when))
            m_events.push_back(*event);
        else
            m_problems.push_back(k4cmn::Format(
                "The download event %zu is left out: its path or its time is not possible.",
                number));
    }
}

// Behind all that the file holds, so that what couldn't be understood stays for people to see.
bool DownLoadEvents::Add(const DownLoadEvent& event) {
    if (m_last >= kMost || !IsStorable(event.path))
        return false;
    const bool isStored = m_file.Update([&](QSettings& file) {
        WriteText(file, Line(m_last + 1, "Path"), event.path);
        WriteText(file, Line(m_last + 1, "When"), WhenText(event));
    }) != 0;
    if (isStored) {
        ++m_last;
        m_events.push_back(event);
    }
    return isStored;
}

std::vector<std::string> DownLoadEvents::Problems() const {
    std::vector<std::string> problems = m_file.Problems();
    problems.insert(problems.end(), m_problems.begin(), m_problems.end());
    return problems;
}

}  // namespace k4suite

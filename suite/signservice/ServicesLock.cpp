#include "suite/signservice/ServicesLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <system_error>
#include <utility>

namespace k4suite {

namespace {

/// What one line can show.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F; }, ' ');
    return text;
}

bool WriteAll(int file, const std::string& text) {
    return ftruncate(file, 0) == 0 &&
           pwrite(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
}

}  // namespace

ServicesLock::ServicesLock(const DataHome& home, std::string program)
    : m_path(home.ServicesLock()), m_program(OneLine(std::move(program))) {}

ServicesLock::~ServicesLock() {
    if (m_file < 0)
        return;
    // A file that names nobody misleads nobody; if it can't be emptied, the lock still goes.
    static_cast<void>(WriteAll(m_file, {}));
    close(m_file);
}

bool ServicesLock::TryAcquire() {
    if (m_file >= 0)
        return true;
    std::error_code error;  // opening tells
    std::filesystem::create_directories(m_path.parent_path(), error);
    const int file = open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    if (flock(file, LOCK_EX | LOCK_NB) != 0) {
        close(file);
        return false;
    }
    m_file = file;
    // Others only lose the name if the disk is full; the lock holds.
    static_cast<void>(WriteAll(m_file, std::to_string(getpid()) + "\t" + m_program + "\n"));
    return true;
}

ServicesHolder ServicesLock::Holder() const {
    std::ifstream stream(m_path);
    std::string line;
    std::getline(stream, line);
    const std::size_t tab = line.find('\t');
    ServicesHolder holder;
    if (tab == std::string::npos)
        return holder;
    const auto [end, error] = std::from_chars(line.data(), line.data() + tab, holder.pid);
    if (error != std::errc() || end != line.data() + tab || holder.pid <= 0)
        return {};
    holder.program = OneLine(line.substr(tab + 1));
    return holder;
}

}  // namespace k4suite

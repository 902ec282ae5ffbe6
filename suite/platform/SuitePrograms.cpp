#include "suite/platform/SuitePrograms.h"

#include <strings.h>
#include <sys/stat.h>

#include <filesystem>
#include <string_view>
#include <utility>

#include "suite/platform/ChildProcess.h"
#include "suite/platform/CleanStart.h"

namespace k4suite {

namespace {

constexpr std::string_view kSuffix = ".exe";

/// A process record. The programs know of the process too, and reap it should the record be gone.
class Record final : public k4cmn::RunningProgram {
 public:
    explicit Record(std::shared_ptr<ChildProcess> child) : m_child(std::move(child)) {}
    bool IsRunning() override { return m_child->IsRunning(); }

 private:
    std::shared_ptr<ChildProcess> m_child;
};

std::string FolderOfThisProgram() {
    std::error_code failed;
    return std::filesystem::read_symlink("/proc/self/exe", failed).parent_path().string();
}

bool IsFile(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

SuitePrograms::SuitePrograms(std::map<std::string, std::string> environment)
    : m_environment(std::move(environment)) {}

SuitePrograms::~SuitePrograms() {
    Forget();
}

std::string SuitePrograms::ExecutableOf(const std::string& path) {
    const std::size_t slash = path.rfind('\\');
    if (slash == std::string::npos || path.find('\0') != std::string::npos)
        return {};
    std::string folder = path.substr(0, slash);
    std::string name = path.substr(slash + 1);
    if (name.size() > kSuffix.size() &&
        strcasecmp(name.c_str() + name.size() - kSuffix.size(), kSuffix.data()) == 0)
        name.resize(name.size() - kSuffix.size());
    if (folder.empty())
        folder = FolderOfThisProgram();
    if (name.empty() || name.find('/') != std::string::npos || !folder.starts_with('/'))
        return {};
    return folder + "/" + name;
}

std::unique_ptr<k4cmn::RunningProgram> SuitePrograms::Start(const std::string& path, int) {
    Forget();
    const std::string executable = ExecutableOf(path);
    pid_t process = 0;
    if (!IsFile(executable) || StartClean({executable}, m_environment, process) != 0)
        return nullptr;
    m_children.push_back(std::make_shared<ChildProcess>(process));
    return std::make_unique<Record>(m_children.back());
}

void SuitePrograms::Forget() {
    std::erase_if(m_children, [](const auto& child) { return !child->IsRunning(); });
}

}  // namespace k4suite

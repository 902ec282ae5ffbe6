#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

namespace {

constexpr std::uint32_t kNoProgram = 31;

}  // namespace

Shell::~Shell() = default;

std::uint32_t Shell::PrintVerb(const std::string&) {
    return kNoProgram;
}

std::string PackPaths(const std::vector<std::string>& paths) {
    std::size_t length = 1;
    for (const std::string& path : paths)
        length += path.size() + 1;

    std::string packed;
    packed.reserve(length);
    for (const std::string& path : paths)
        packed.append(path.c_str(), path.size() + 1);
    packed.push_back('\0');
    return packed;
}

std::vector<std::string> UnpackPaths(const std::string& packed) {
    std::vector<std::string> paths;
    std::size_t at = 0;
    while (at < packed.size() && packed[at] != '\0') {
        paths.emplace_back(packed.c_str() + at);
        at += paths.back().size() + 1;
    }
    return paths;
}

namespace {

constexpr std::uint32_t kFailed = 1;

class AbsentShell final : public Shell {
 public:
    int GetMajorVersion(std::uint32_t*) override { return 0; }
    std::uint32_t FileOperation(std::uint32_t, const std::string&, const std::string&,
                                std::uint16_t) override {
        return kFailed;
    }
    int DeleteFile(const std::string&) override { return 0; }
    std::uint32_t OpenVerb(const std::string&, int) override { return kNoProgram; }
    std::string OpenCommand(const std::string&) override { return {}; }
    std::uint32_t Execute(const std::string&, int) override { return kNoProgram; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Shell, AbsentShell)

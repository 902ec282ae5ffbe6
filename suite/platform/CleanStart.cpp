#include "suite/platform/CleanStart.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <unistd.h>

#include <string_view>

namespace k4suite {

namespace {

/// What a started program takes over from this one: nothing open, no signal blocked or ignored.
class Attributes {
 public:
    Attributes() {
        posix_spawn_file_actions_init(&m_files);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_files, stream, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);

        sigset_t signals;
        posix_spawnattr_init(&m_attributes);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        sigaddset(&signals, SIGXFSZ);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(
            &m_attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Attributes() {
        posix_spawn_file_actions_destroy(&m_files);
        posix_spawnattr_destroy(&m_attributes);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    int Spawn(pid_t& process, char* const* arguments, char* const* environment) {
        return posix_spawnp(&process, arguments[0], &m_files, &m_attributes, arguments,
                            environment);
    }

 private:
    posix_spawn_file_actions_t m_files;
    posix_spawnattr_t m_attributes;
};

/// The pointers that the system takes: one to each text, and a null behind the last.
std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

/// This process's environment, with the given variables in place of those of their names.
std::vector<std::string> EnvironmentWith(const std::map<std::string, std::string>& variables) {
    std::vector<std::string> all;
    for (char** entry = environ; entry && *entry; ++entry) {
        const std::string_view text = *entry;
        if (!variables.contains(std::string(text.substr(0, text.find('=')))))
            all.emplace_back(text);
    }
    for (const auto& [name, value] : variables)
        all.push_back(name + "=" + value);
    return all;
}

}  // namespace

int StartClean(const std::vector<std::string>& arguments,
               const std::map<std::string, std::string>& environment, pid_t& process) {
    const std::vector<std::string> variables = EnvironmentWith(environment);
    return Attributes().Spawn(process, Pointers(arguments).data(), Pointers(variables).data());
}

}  // namespace k4suite

#include "tests/suite/platform/SmallDisk.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

namespace k4test {

namespace {

bool Put(const char* file, const std::string& text) {
    std::ofstream out(file);
    out << text;
    return static_cast<bool>(out.flush());
}

/// Mounts of the process's own: for the administrator just so, for anybody else in a world where
/// they are the only user.
bool LeaveTheMounts() {
    if (unshare(CLONE_NEWNS) == 0)
        return true;
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && Put("/proc/self/setgroups", "deny") &&
           Put("/proc/self/uid_map", user + " " + user + " 1") &&
           Put("/proc/self/gid_map", group + " " + group + " 1");
}

bool Mount(const std::string& folder, const std::string& size) {
    if (!LeaveTheMounts())
        return false;
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", folder.c_str(), "tmpfs", 0, ("mode=0777,size=" + size).c_str()) == 0;
}

}  // namespace

int WithSmallDisk(const std::string& folder, const std::string& size,
                  const std::function<void()>& body) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0)
        return -1;
    if (child == 0) {
        if (!Mount(folder, size))
            _exit(kNoMounts);
        body();
        std::fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

}  // namespace k4test

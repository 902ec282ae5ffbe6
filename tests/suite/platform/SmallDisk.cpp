#include "tests/suite/platform/SmallDisk.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

namespace k4test {

namespace {

bool Mount(const std::string& folder, const std::string& size) {
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
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

#include "suite/settings/DataHome.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace k4suite {

namespace fs = std::filesystem;

namespace {

/// The value of an environment variable; an empty one counts as none.
std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

fs::path UserFolder() {
    if (const std::string home = Environment("HOME"); !home.empty())
        return home;
    const passwd* entry = getpwuid(getuid());
    return entry && entry->pw_dir ? fs::path(entry->pw_dir) : fs::path("/");
}

fs::path UserDataFolder() {
    // A relative XDG_DATA_HOME is invalid by its own rules and counts as none.
    if (const fs::path data = Environment("XDG_DATA_HOME"); data.is_absolute())
        return data;
    return UserFolder() / ".local" / "share";
}

}  // namespace

DataHome DataHome::FromEnvironment() {
    const std::string named = Environment("K4_HOME");
    if (named.empty())
        return DataHome(UserDataFolder() / "k4400");
    std::error_code failed;
    const fs::path absolute = fs::absolute(named, failed);
    return DataHome(failed ? fs::path(named) : absolute);
}

}  // namespace k4suite

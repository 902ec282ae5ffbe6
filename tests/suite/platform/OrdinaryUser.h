#pragma once

#include <unistd.h>

#include <filesystem>

namespace k4test {

/// For the life of a scope, the rights of a user who isn't the administrator, whom permissions
/// wouldn't stop. A folder of the test is handed over to that user first.
class OrdinaryUser {
 public:
    static constexpr uid_t kNobody = 65534;

    explicit OrdinaryUser(const std::filesystem::path& folder) : m_isRoot(geteuid() == 0) {
        if (!m_isRoot)
            return;
        Hand(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            Hand(entry.path());
        m_isRoot = seteuid(kNobody) == 0;
    }
    ~OrdinaryUser() {
        if (m_isRoot && seteuid(0) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
    static void Hand(const std::filesystem::path& path) {
        if (lchown(path.c_str(), kNobody, kNobody) != 0)
            std::abort();
    }

    bool m_isRoot;
};

}  // namespace k4test

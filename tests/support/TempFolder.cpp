#include "tests/support/TempFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace k4test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string name = (fs::temp_directory_path() / "k4test-XXXXXX").string();
    if (!mkdtemp(name.data()))
        throw std::runtime_error("no temporary folder");
    m_path = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    for (fs::recursive_directory_iterator it(m_path, ignored), end; it != end;
         it.increment(ignored)) {
        if (it->is_directory(ignored) && !it->is_symlink(ignored))
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(m_path, ignored);
}

fs::path TempFolder::Write(const std::string& name, const std::string& content) const {
    const fs::path path = m_path / name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string TempFolder::Read(const std::string& name) const {
    std::ifstream file(m_path / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace k4test

#pragma once

#include <cerrno>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/StoreAccess.h"

namespace k4test {

/// A store in which folders can be made, but no libraries: for those there is no room. Nor does it
/// know the read-only attribute. Everything else goes on to the store behind it. Installed for the
/// life of the object.
class NoLibraryAccess final : public k4cmn::StoreAccess {
 public:
    explicit NoLibraryAccess(k4cmn::StoreAccess& store) : m_store(store), m_use(*this) {}

    std::vector<std::string> marked;  ///< what was to get the read-only attribute

    int GetStatus(const std::string& path, k4cmn::FileStatus* status) override {
        return m_store.GetStatus(path, status);
    }
    std::vector<std::optional<k4cmn::FileStatus>> StatusIn(
        const std::string& folder, const std::vector<std::string>& names) override {
        return m_store.StatusIn(folder, names);
    }
    std::string IdentityOf(const std::string& path) override { return m_store.IdentityOf(path); }
    int MakeFolder(const std::string& path) override {
        if (!path.ends_with(".Lib"))
            return m_store.MakeFolder(path);
        errno = ENOSPC;
        return 0;
    }
    int RemoveFolder(const std::string& path) override { return m_store.RemoveFolder(path); }
    int Move(const std::string& from, const std::string& to) override {
        return m_store.Move(from, to);
    }
    int MarkReadOnly(const std::string& path) override {
        marked.push_back(path);
        return 0;
    }

 private:
    k4cmn::StoreAccess& m_store;
    k4cmn::ScopedProvider<k4cmn::StoreAccess> m_use;
};

}  // namespace k4test

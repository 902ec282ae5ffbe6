#include "suite/platform/CopyOperation.h"

#include <sys/stat.h>

#include <algorithm>

#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/platform/FileCopy.h"
#include "suite/platform/FileOperationResult.h"
#include "suite/platform/FileSystem.h"
#include "suite/platform/ProgressScope.h"

namespace k4suite {

namespace {

constexpr char kTitle[] = "Copy";

bool IsFolder(const std::string& path) {
    struct stat status;
    return !path.empty() && stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

class CopyOperation {
 public:
    CopyOperation(std::uint16_t flags, FileOperationUi& ui, const PlaceOf& placeOf)
        : m_flags(flags),
          m_ui(ui),
          m_placeOf(placeOf),
          m_progress(flags & k4cmn::FOF_SILENT ? nullptr : &ui, kTitle) {}

    std::uint32_t Run(const std::vector<std::string>& from, const std::string& to) {
        for (const std::string& source : from)
            Plan(source, to);
        m_several = m_items.size() > 1;
        CopyResult result = CopyResult::Done;
        for (const Item& item : m_items) {
            result = Copy(item);
            m_isFailed = m_isFailed || result == CopyResult::Failed;
            if (result == CopyResult::Cancelled || result == CopyResult::DiskFull)
                break;
            m_done += item.size;
        }
        // What was copied before a cancel or the end of the disk stays.
        const CopyResult rest = m_copies.Finish();
        if (result == CopyResult::Cancelled)
            return kFileOperationCancelled;
        m_isFailed = m_isFailed || result == CopyResult::DiskFull || rest != CopyResult::Done;
        return m_isFailed ? kFileOperationFailed : kFileOperationDone;
    }

 private:
    struct Item {
        std::string source;
        std::string target;
        bool isInFolder;  ///< the target was composed from the folder and the source's name
        std::uint64_t size;
        dev_t device;
        ino_t node;
    };

    void Plan(const std::string& source, const std::string& to) {
        struct stat status;
        if (source.empty() || stat(source.c_str(), &status) != 0) {
            m_isFailed = true;
        } else if (S_ISDIR(status.st_mode)) {
            m_isFailed = m_isFailed || !(m_flags & k4cmn::FOF_FILESONLY);
        } else if (!S_ISREG(status.st_mode)) {
            m_isFailed = true;
        } else {
            const std::uint64_t size = static_cast<std::uint64_t>(status.st_size);
            const bool isInFolder = IsFolder(to);
            m_items.push_back({source, isInFolder ? AbsolutePath(to + "/" + NameOf(source)) : to,
                               isInFolder, size, status.st_dev, status.st_ino});
            m_total += size;
        }
    }

    /// Asked for at the last moment, as the file before may be the one that has the name.
    std::string TargetOf(const Item& item) const {
        return item.isInFolder && m_placeOf ? m_placeOf(NameOf(item.source)) : item.target;
    }

    CopyResult Copy(const Item& item) {
        const std::string name = NameOf(item.source);
        if (!m_progress.Report(m_done, m_total, name))
            return CopyResult::Cancelled;

        std::string target = TargetOf(item);
        if (m_copies.IsPending(target)) {
            if (FinishGroup() == CopyResult::DiskFull)
                return CopyResult::DiskFull;
            target = TargetOf(item);
        }
        if (target.empty())
            return CopyResult::Failed;
        struct stat present;
        const bool isThere = lstat(target.c_str(), &present) == 0;
        if (isThere) {
            if (stat(target.c_str(), &present) == 0 &&
                (!S_ISREG(present.st_mode) ||
                 (present.st_dev == item.device && present.st_ino == item.node)))
                return CopyResult::Failed;
            // What is written doesn't wait for an answer, which takes who knows how long.
            if (WillAsk() && FinishGroup() == CopyResult::DiskFull)
                return CopyResult::DiskFull;
            const FileAnswer answer = MayReplace(target);
            if (answer == FileAnswer::Cancel)
                return CopyResult::Cancelled;
            if (answer == FileAnswer::No)
                return CopyResult::Done;
        }
        const CopyResult result =
            m_copies.Copy(item.source, target, isThere, [&](std::uint64_t done) {
                return m_progress.Report(m_done + std::min(done, item.size), m_total, name);
            });
        return result == CopyResult::Done && m_copies.IsFull() ? FinishGroup() : result;
    }

    /// Gives the files that are written their names. @return that of m_copies.Finish(), which is
    /// counted already.
    CopyResult FinishGroup() {
        const CopyResult result = m_copies.Finish();
        m_isFailed = m_isFailed || result != CopyResult::Done;
        return result;
    }

    /// Whether MayReplace() has to ask.
    bool WillAsk() const {
        return !(m_flags & k4cmn::FOF_NOCONFIRMATION) && m_forAll == FileAnswer::Cancel;
    }

    /// Yes, No or Cancel.
    FileAnswer MayReplace(const std::string& target) {
        if (m_flags & k4cmn::FOF_NOCONFIRMATION)
            return FileAnswer::Yes;
        if (m_forAll != FileAnswer::Cancel)
            return m_forAll;
        const FileAnswer answer =
            m_ui.Confirm({kTitle,
                          "The folder '" + FolderOf(target) + "' already has a file named '" +
                              NameOf(target) + "'.\nReplace it?",
                          m_several, true});
        if (answer == FileAnswer::YesToAll)
            m_forAll = FileAnswer::Yes;
        else if (answer == FileAnswer::NoToAll)
            m_forAll = FileAnswer::No;
        else
            return answer;
        return m_forAll;
    }

    std::uint16_t m_flags;
    FileOperationUi& m_ui;
    const PlaceOf& m_placeOf;
    ProgressScope m_progress;
    FileCopies m_copies;
    std::vector<Item> m_items;
    std::uint64_t m_total = 0;
    std::uint64_t m_done = 0;
    bool m_several = false;
    bool m_isFailed = false;
    FileAnswer m_forAll = FileAnswer::Cancel;  ///< Cancel: nothing was answered for all
};

}  // namespace

std::uint32_t CopyFiles(const std::vector<std::string>& from, const std::string& to,
                        std::uint16_t flags, FileOperationUi& ui, const PlaceOf& placeOf) {
    if (from.empty())
        return kFileOperationDone;
    const bool isFolder = IsFolder(to);
    if (to.empty() || (!isFolder && (from.size() > 1 || !IsFolder(FolderOf(to)))))
        return kFileOperationFailed;
    return CopyOperation(flags, ui, placeOf).Run(from, to);
}

}  // namespace k4suite

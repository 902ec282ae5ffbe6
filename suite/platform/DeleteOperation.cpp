#include "suite/platform/DeleteOperation.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/platform/FileOperationResult.h"
#include "suite/platform/ProgressScope.h"
#include "suite/platform/Trash.h"

namespace k4suite {

namespace fs = std::filesystem;

namespace {

constexpr char kTitle[] = "Delete";

bool Exists(const std::string& path) {
    struct stat status;
    return !path.empty() && lstat(path.c_str(), &status) == 0;
}

bool DeleteForGood(const std::string& path) {
    std::error_code failure;
    return fs::path(path).has_relative_path() && fs::remove_all(path, failure) > 0 && !failure;
}

class DeleteOperation {
 public:
    DeleteOperation(const std::vector<std::string>& paths, std::uint16_t flags, FileOperationUi& ui,
                    const TopFolderOf& topFolderOf)
        : m_paths(paths), m_flags(flags), m_ui(ui), m_trash(topFolderOf) {}

    std::uint32_t Run() {
        if (m_paths.empty())
            return kFileOperationDone;
        if (std::none_of(m_paths.begin(), m_paths.end(), Exists))
            return kFileOperationFailed;
        if (!IsConfirmed())
            return kFileOperationCancelled;

        ProgressScope progress(m_flags & k4cmn::FOF_SILENT ? nullptr : &m_ui, kTitle);
        bool isAllGone = true;
        for (std::size_t at = 0; at < m_paths.size(); ++at) {
            if (!progress.Report(at, m_paths.size(), NameOf(m_paths[at])))
                return kFileOperationCancelled;
            isAllGone = Delete(m_paths[at]) && isAllGone;
            if (m_isCancelled)
                return kFileOperationCancelled;
        }
        return isAllGone ? kFileOperationDone : kFileOperationFailed;
    }

 private:
    bool IsUndoable() const { return m_flags & k4cmn::FOF_ALLOWUNDO; }
    bool MayAsk() const { return !(m_flags & k4cmn::FOF_NOCONFIRMATION); }

    bool IsConfirmed() {
        if (!MayAsk())
            return true;
        const auto count = std::count_if(m_paths.begin(), m_paths.end(), Exists);
        const std::string what =
            count == 1 ? "'" + NameOf(*std::find_if(m_paths.begin(), m_paths.end(), Exists)) + "'"
                       : "these " + std::to_string(count) + " items";
        const std::string text = IsUndoable()
                                     ? "Are you sure you want to move " + what + " to the trash?"
                                     : "Are you sure you want to delete " + what + " for good?";
        return m_ui.Confirm({kTitle, text, false, !IsUndoable()}) == FileAnswer::Yes;
    }

    bool Delete(const std::string& path) {
        if (!IsUndoable())
            return DeleteForGood(path);
        const Trash::Result result = m_trash.Move(path);
        if (result.outcome == Trash::Outcome::NoPlace && MayAsk())
            return MayDestroy(path, result.error) && DeleteForGood(path);
        return result.outcome == Trash::Outcome::Moved;
    }

    bool MayDestroy(const std::string& path, int error) {
        if (m_forAll == FileAnswer::Cancel) {
            const FileAnswer answer = m_ui.Confirm(
                {kTitle,
                 "'" + NameOf(path) + "' can't be moved to the trash (" +
                     std::generic_category().message(error) + ").\nDelete it for good?",
                 m_paths.size() > 1, true});
            m_isCancelled = answer == FileAnswer::Cancel;
            if (answer == FileAnswer::YesToAll || answer == FileAnswer::NoToAll)
                m_forAll = answer;
            return answer == FileAnswer::Yes || answer == FileAnswer::YesToAll;
        }
        return m_forAll == FileAnswer::YesToAll;
    }

    const std::vector<std::string>& m_paths;
    std::uint16_t m_flags;
    FileOperationUi& m_ui;
    Trash m_trash;
    FileAnswer m_forAll = FileAnswer::Cancel;  ///< Cancel: nothing was answered for all
    bool m_isCancelled = false;
};

}  // namespace

std::uint32_t DeleteFiles(const std::vector<std::string>& paths, std::uint16_t flags,
                          FileOperationUi& ui, const TopFolderOf& topFolderOf) {
    return DeleteOperation(paths, flags, ui, topFolderOf).Run();
}

}  // namespace k4suite

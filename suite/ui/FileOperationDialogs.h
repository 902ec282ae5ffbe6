#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <chrono>

#include "suite/platform/FileOperationUi.h"

class QLabel;
class QProgressDialog;

namespace k4suite {

/// Questions and progress of file operations as windows. Progress shows up only when an operation
/// takes a while. While a question or the progress is open, the application's other windows wait.
/// Threads: any; the windows are always the user interface thread's, and a call from another thread
/// waits for it.
class FileOperationDialogs final : public FileOperationUi {
 public:
    /// @param showAfter how long an operation may take before its progress is shown.
    explicit FileOperationDialogs(
        std::chrono::milliseconds showAfter = std::chrono::milliseconds(500));
    ~FileOperationDialogs() override;
    FileOperationDialogs(const FileOperationDialogs&) = delete;
    FileOperationDialogs& operator=(const FileOperationDialogs&) = delete;

    FileAnswer Confirm(const FileQuestion& question) override;
    void Begin(const std::string& title) override;
    bool Progress(std::uint64_t done, std::uint64_t total, const std::string& name) override;
    void End() override;

 private:
    FileAnswer Ask(const FileQuestion& question);
    void OpenProgress(const std::string& title);
    bool ShowProgress(std::uint64_t done, std::uint64_t total, const std::string& name);

    std::chrono::milliseconds m_showAfter;
    QElapsedTimer m_sinceBegin;
    QPointer<QProgressDialog> m_progress;
    QPointer<QLabel> m_label;
};

}  // namespace k4suite

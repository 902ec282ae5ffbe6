#pragma once

#include <string>

#include "suite/platform/FileOperationUi.h"

namespace k4suite {

/// Progress of one operation: begun with the object and ended with it, whatever happens between.
/// A silent one shows nothing and always goes on.
class ProgressScope {
 public:
    /// @param ui must outlive the object; null for a silent one.
    ProgressScope(FileOperationUi* ui, const std::string& title) : m_ui(ui) {
        if (m_ui)
            m_ui->Begin(title);
    }
    ~ProgressScope() {
        if (m_ui)
            m_ui->End();
    }
    ProgressScope(const ProgressScope&) = delete;
    ProgressScope& operator=(const ProgressScope&) = delete;

    /// @return whether to go on.
    bool Report(std::uint64_t done, std::uint64_t total, const std::string& name) {
        return !m_ui || m_ui->Progress(done, total, name);
    }

 private:
    FileOperationUi* m_ui;
};

}  // namespace k4suite

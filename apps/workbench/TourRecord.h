#pragma once

#include <QString>
#include <filesystem>
#include <fstream>
#include <string>

class QImage;
class QWidget;

namespace workbench {

/// What a tour leaves behind: numbered pictures and "summary.txt", one line a step, each beginning
/// with "ok" or "FAIL".
class TourRecord {
 public:
    /// @param folder made if it doesn't exist; the pictures of an earlier tour in it are removed.
    explicit TourRecord(std::filesystem::path folder);

    /// Notes the outcome of a step, on the terminal too. @return `passed`.
    bool Step(bool passed, const std::string& what);
    /// Keeps a picture of a window as it looks now.
    void Picture(QWidget& window, const std::string& name);

    int Failures() const { return m_failures; }
    int Steps() const { return m_steps; }

 private:
    std::filesystem::path m_folder;
    std::ofstream m_summary;
    int m_failures = 0;
    int m_steps = 0;
    int m_pictures = 0;
};

}  // namespace workbench

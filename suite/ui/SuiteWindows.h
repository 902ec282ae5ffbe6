#pragma once

#include <memory>

namespace k4suite {

class FileOperationUi;

/// The parts of the suite that show something: messages, help, quick file trees, calendars,
/// printing, and the questions and progress of file operations. Installs itself behind the
/// library's contracts for the life of the object. Made after the application object, on the user
/// interface thread.
class SuiteWindows {
 public:
    SuiteWindows();
    ~SuiteWindows();
    SuiteWindows(const SuiteWindows&) = delete;
    SuiteWindows& operator=(const SuiteWindows&) = delete;

    /// What EmbeddedSuite is given for the questions and the progress of file operations.
    FileOperationUi& FileOperations();

 private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace k4suite

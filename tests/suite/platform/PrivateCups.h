#pragma once

#include <QProcess>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace k4test {

/// A real print scheduler of the test's own, with one printer, "paper", that keeps what it is given
/// and never gets to print it. The programs and libraries of CUPS find it by CUPS_SERVER, which
/// names it for the life of the object.
class PrivateCups {
 public:
    /// @param accepts whether the printer takes documents.
    explicit PrivateCups(bool accepts = true);
    ~PrivateCups();
    PrivateCups(const PrivateCups&) = delete;
    PrivateCups& operator=(const PrivateCups&) = delete;

    /// Whether it answers.
    bool IsRunning() const { return m_isRunning; }
    /// The files of the documents that it was given, in order.
    std::vector<std::string> Documents() const;

 private:
    void Configure(bool accepts) const;

    TempFolder m_folder;
    QProcess m_scheduler;
    QByteArray m_before;
    bool m_isRunning = false;
};

}  // namespace k4test

#pragma once

#include <QString>
#include <QtGlobal>

namespace k4test {

/// Makes every warning of the toolkit or the library that no test announced fail the running test.
void InstallMessageCheck();

/// Announces a warning for the life of a scope: one that contains the text is expected there.
class ExpectWarning {
 public:
    explicit ExpectWarning(const QString& part);
    ~ExpectWarning();
    ExpectWarning(const ExpectWarning&) = delete;
    ExpectWarning& operator=(const ExpectWarning&) = delete;
};

}  // namespace k4test

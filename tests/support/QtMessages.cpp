#include "tests/support/QtMessages.h"

#include <gtest/gtest.h>

#include <QMutex>
#include <QStringList>
#include <cstdio>

namespace k4test {

namespace {

QMutex guard;
QStringList expected;

// What the offscreen platform says of itself on a machine without a screen.
const char* const kOfThePlatform[] = {
    "This plugin does not support",
    "QStandardPaths: XDG_RUNTIME_DIR not set",
    "Session DBus not running",
};

bool IsExpected(const QString& text) {
    for (const char* part : kOfThePlatform)
        if (text.contains(QLatin1String(part)))
            return true;
    const QMutexLocker lock(&guard);
    for (const QString& part : expected)
        if (text.contains(part))
            return true;
    return false;
}

void Check(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    if (!IsExpected(text))
        ADD_FAILURE() << "unannounced warning: " << text.toStdString();
}

}  // namespace

void InstallMessageCheck() {
    qInstallMessageHandler(Check);
}

ExpectWarning::ExpectWarning(const QString& part) {
    const QMutexLocker lock(&guard);
    expected.append(part);
}

ExpectWarning::~ExpectWarning() {
    const QMutexLocker lock(&guard);
    expected.removeLast();
}

}  // namespace k4test

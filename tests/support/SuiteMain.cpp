#include <gmock/gmock.h>

#include <QCoreApplication>

#include "tests/support/QtMessages.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("k4test"));
    k4test::InstallMessageCheck();
    return RUN_ALL_TESTS();
}

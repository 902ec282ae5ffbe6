#include <gmock/gmock.h>

#include <QApplication>
#include <QWidget>

#include "tests/support/QtMessages.h"

namespace {

/// Fails a test that leaves a top-level window behind.
class LeakedWindows final : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible())
                ADD_FAILURE() << "left open: " << window->metaObject()->className() << " "
                              << window->windowTitle().toStdString();
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("k4test"));
    QApplication::setQuitOnLastWindowClosed(false);
    k4test::InstallMessageCheck();
    testing::UnitTest::GetInstance()->listeners().Append(new LeakedWindows);
    return RUN_ALL_TESTS();
}

#include "k4cmndlg/frame/CDialog.h"

#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <functional>
#include <memory>

#include "k4cmndlg/frame/CDataExchange.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"

using k4test::MessageQueue;
using k4test::RunModal;
using testing::ElementsAre;

namespace {

/// A dialog that keeps the order of its events.
class ProbeDialog : public CDialog {
 public:
    explicit ProbeDialog(QWidget* parent = nullptr)
        : CDialog(100, parent),
          m_number(new QLineEdit(this)),
          m_ok(Button("OK", IDOK)),
          m_cancel(Button("Cancel", IDCANCEL)),
          m_help(Button("Help", IDHELP)),
          m_other(Button("Other", 1001)) {
        auto* column = new QVBoxLayout(this);
        for (QWidget* control : {static_cast<QWidget*>(m_number), static_cast<QWidget*>(m_other),
                                 static_cast<QWidget*>(m_ok), static_cast<QWidget*>(m_cancel),
                                 static_cast<QWidget*>(m_help)})
            column->addWidget(control);
        m_number->setProperty("controlId", 1000);
    }

    std::vector<std::string> events;
    int createResult = 0;
    std::function<void()> onInit;
    std::function<void()> onShow;
    std::int32_t value = 7;

    QLineEdit* m_number;
    QPushButton* m_ok;
    QPushButton* m_cancel;
    QPushButton* m_help;
    QPushButton* m_other;

 protected:
    int OnCreate() override {
        events.emplace_back("create");
        return createResult == 0 ? CDialog::OnCreate() : createResult;
    }
    int OnInitDialog() override {
        CDialog::OnInitDialog();
        events.emplace_back("init");
        // It may delete the dialog.
        if (const std::function<void()> act = onInit)
            act();
        return 1;
    }
    void OnDestroy() override {
        events.emplace_back("destroy");
        CDialog::OnDestroy();
    }
    void DoDataExchange(CDataExchange* pDX) override { DDX_Text(pDX, m_number, value); }
    void OnOK() override {
        events.emplace_back("ok");
        CDialog::OnOK();
    }
    void OnCancel() override {
        events.emplace_back("cancel");
        CDialog::OnCancel();
    }
    void OnDlgHelp() override {
        events.emplace_back("help");
        CDialog::OnDlgHelp();
    }
    void showEvent(QShowEvent* event) override {
        events.emplace_back("show");
        CDialog::showEvent(event);
        if (onShow)
            onShow();
    }

 private:
    QPushButton* Button(const char* text, int id) {
        auto* button = new QPushButton(QString::fromUtf8(text), this);
        button->setProperty("controlId", id);
        return button;
    }
};

}  // namespace

TEST(Dialog, EventsComeInTheirOrder) {
    ProbeDialog dialog;
    EXPECT_EQ(RunModal(dialog, [&] { QTest::mouseClick(dialog.m_ok, Qt::LeftButton); }), IDOK);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "ok", "destroy"));
    EXPECT_FALSE(dialog.isVisible());
}

TEST(Dialog, MembersAreInTheControlsWhenInitialised) {
    ProbeDialog dialog;
    QString text;
    dialog.onInit = [&] { text = dialog.m_number->text(); };
    RunModal(dialog, [&] { dialog.EndDialog(IDCANCEL); });
    EXPECT_EQ(text, QStringLiteral("7"));
}

TEST(Dialog, OkReadsTheControls) {
    ProbeDialog dialog;
    RunModal(dialog, [&] {
        dialog.m_number->selectAll();
        QTest::keyClicks(dialog.m_number, QStringLiteral("12"));
        QTest::mouseClick(dialog.m_ok, Qt::LeftButton);
    });
    EXPECT_EQ(dialog.value, 12);
}

TEST(Dialog, OkWithRefusedContentStaysOpen) {
    MessageQueue messages;
    messages.Expect("Enter an integer.");
    ProbeDialog dialog;
    const int result = RunModal(dialog, [&] {
        dialog.m_number->setText(QStringLiteral("x"));
        QTest::mouseClick(dialog.m_ok, Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseClick(dialog.m_cancel, Qt::LeftButton);
    });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(dialog.value, 7);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "ok", "cancel", "destroy"));
}

TEST(Dialog, EnterPressesTheDefaultButton) {
    ProbeDialog dialog;
    const int result = RunModal(dialog, [&] {
        EXPECT_TRUE(dialog.m_ok->isDefault());
        QTest::keyClick(dialog.m_number, Qt::Key_Return);
    });
    EXPECT_EQ(result, IDOK);
}

TEST(Dialog, EnterOnAnotherButtonPressesThatButton) {
    ProbeDialog dialog;
    int pressed = 0;
    QObject::connect(dialog.m_other, &QPushButton::clicked, [&] { ++pressed; });
    RunModal(dialog, [&] {
        dialog.m_other->setFocus();
        QTest::keyClick(dialog.m_other, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_EQ(pressed, 1);
}

TEST(Dialog, EnterDoesNothingWhileOkIsDisabled) {
    ProbeDialog dialog;
    RunModal(dialog, [&] {
        dialog.m_ok->setEnabled(false);
        QTest::keyClick(dialog.m_number, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        dialog.EndDialog(5);
    });
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "destroy"));
}

TEST(Dialog, EscapeCancels) {
    ProbeDialog dialog;
    const int result = RunModal(dialog, [&] { QTest::keyClick(dialog.m_number, Qt::Key_Escape); });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "cancel", "destroy"));
}

TEST(Dialog, CloseButtonCancels) {
    ProbeDialog dialog;
    EXPECT_EQ(RunModal(dialog, [&] { dialog.close(); }), IDCANCEL);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "cancel", "destroy"));
}

TEST(Dialog, EscapeAndCloseDoNothingWhileCancelIsDisabled) {
    ProbeDialog dialog;
    const int result = RunModal(dialog, [&] {
        dialog.m_cancel->setEnabled(false);
        QTest::keyClick(dialog.m_number, Qt::Key_Escape);
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        dialog.EndDialog(8);
    });
    EXPECT_EQ(result, 8);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "destroy"));
}

TEST(Dialog, HelpButtonAsksForHelpAndLeavesTheDialogOpen) {
    ProbeDialog dialog;
    RunModal(dialog, [&] {
        QTest::mouseClick(dialog.m_help, Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible());
        dialog.EndDialog(IDCANCEL);
    });
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "help", "destroy"));
}

TEST(Dialog, AnyNumberCanBeTheResult) {
    for (const int wanted : {0, -1, 3, 123456}) {
        ProbeDialog dialog;
        EXPECT_EQ(RunModal(dialog, [&] { dialog.EndDialog(wanted); }), wanted);
    }
}

TEST(Dialog, EndedTwiceTheLaterResultCounts) {
    ProbeDialog dialog;
    const int result = RunModal(dialog, [&] {
        dialog.EndDialog(IDCANCEL);
        dialog.EndDialog(IDOK);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(std::count(dialog.events.begin(), dialog.events.end(), "destroy"), 1);
}

TEST(Dialog, EndedWhileInitialisedItIsNeverShown) {
    ProbeDialog dialog;
    dialog.onInit = [&] { dialog.EndDialog(IDCANCEL); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "destroy"));
}

TEST(Dialog, DeletedWhileInitialisedItGivesCancel) {
    auto* dialog = new ProbeDialog;
    dialog->onInit = [dialog] { delete dialog; };
    EXPECT_EQ(dialog->DoModal(), IDCANCEL);
}

TEST(Dialog, EndedWhileItIsBeingShownItReturns) {
    ProbeDialog dialog;
    dialog.onShow = [&] { dialog.EndDialog(42); };
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "destroy"));
}

TEST(Dialog, RefusedCreationGivesMinusOneAndNothingElseHappens) {
    ProbeDialog dialog;
    dialog.createResult = -1;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_THAT(dialog.events, ElementsAre("create"));
    EXPECT_EQ(dialog.Create(), 0);
}

TEST(Dialog, RunsAgainAfterItHasEnded) {
    ProbeDialog dialog;
    EXPECT_EQ(RunModal(dialog, [&] { QTest::mouseClick(dialog.m_cancel, Qt::LeftButton); }),
              IDCANCEL);
    EXPECT_EQ(RunModal(dialog, [&] { QTest::mouseClick(dialog.m_ok, Qt::LeftButton); }), IDOK);
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "cancel", "destroy", "create",
                                           "init", "show", "ok", "destroy"));
}

TEST(Dialog, EndedBeforeItRunsItStillRuns) {
    ProbeDialog dialog;
    dialog.EndDialog(3);
    EXPECT_EQ(RunModal(dialog, [&] { dialog.EndDialog(4); }), 4);
}

TEST(Dialog, ItsWindowIsDestroyedWhenItHasEnded) {
    class Destroying : public ProbeDialog {
     public:
        void DestroyWindow() override {
            EXPECT_TRUE(HasWindow());
            ++destroyed;
            ProbeDialog::DestroyWindow();
        }
        int destroyed = 0;
    } dialog;
    EXPECT_FALSE(dialog.HasWindow());
    RunModal(dialog, [&] {
        EXPECT_TRUE(dialog.HasWindow());
        dialog.EndDialog(IDOK);
    });
    EXPECT_EQ(dialog.destroyed, 1);
    EXPECT_FALSE(dialog.HasWindow());
}

TEST(Dialog, DestroyedInItsOwnLoopItGivesCancel) {
    auto dialog = std::make_unique<ProbeDialog>();
    CDialog& running = *dialog;
    QTimer::singleShot(0, qApp, [&] { dialog.reset(); });
    EXPECT_EQ(running.DoModal(), IDCANCEL);
}

TEST(ModelessDialog, IsCreatedHiddenAndDestroyedOnce) {
    ProbeDialog dialog;
    EXPECT_EQ(dialog.Create(), 1);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.Create(), 0) << "it stands already";
    EXPECT_EQ(dialog.DoModal(), -1) << "it stands already";
    dialog.show();
    dialog.DestroyWindow();
    EXPECT_FALSE(dialog.isVisible());
    dialog.DestroyWindow();
    EXPECT_THAT(dialog.events, ElementsAre("create", "init", "show", "destroy"));
}

TEST(ModelessDialog, ThatStandsGoesWithItsObjectWithoutHarm) {
    auto dialog = std::make_unique<ProbeDialog>();
    dialog->Create();
    dialog->show();
    const QPointer<QWidget> window(dialog.get());
    dialog.reset();
    EXPECT_TRUE(window.isNull());
}

TEST(Dialog, ControlsAreFoundByTheirIds) {
    ProbeDialog dialog;
    EXPECT_EQ(dialog.GetDlgItem(1000), dialog.m_number);
    EXPECT_EQ(dialog.GetDlgItem(IDOK), dialog.m_ok);
    EXPECT_EQ(dialog.GetDlgItem(4711), nullptr);
    EXPECT_EQ(dialog.GetDlgItem(0), nullptr) << "a control without an id hasn't the id 0";
    EXPECT_EQ(dialog.ResourceId(), 100u);
}

TEST(Dialog, IsAsLargeAsItsContentAndInTheMiddleBeforeItIsShown) {
    ProbeDialog dialog;
    QRect atInit;
    dialog.onInit = [&] { atInit = dialog.geometry(); };
    RunModal(dialog, [&] { dialog.EndDialog(IDCANCEL); });
    EXPECT_GE(atInit.width(), dialog.minimumSizeHint().width());
    EXPECT_GE(atInit.height(), dialog.minimumSizeHint().height());
    EXPECT_GT(atInit.left(), 0);
    EXPECT_GT(atInit.top(), 0);
}

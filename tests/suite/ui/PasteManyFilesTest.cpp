#include <gmock/gmock.h>

#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <filesystem>

#include "k4cmndlg/filesel/FilePaste.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/platform/FreedesktopShell.h"
#include "suite/ui/FileOperationDialogs.h"
#include "tests/suite/ui/ModalScript.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::FileClipboard;
using k4cmn::Format;

constexpr int kMany = 1000;
constexpr int kSome = 60;

const std::string kFrom = std::string("A:\\") + k4test::kType + ".Sign\\From.Lib\\";
const std::string kTo = std::string("A:\\") + k4test::kType + ".Sign\\To.Lib\\";

/// Looks at the progress of an operation whenever a person could.
class ProgressWatch {
 public:
    /// @param look given the name that is shown.
    explicit ProgressWatch(std::function<void(QProgressDialog&, const std::string&)> look)
        : m_look(std::move(look)) {
        m_timer.callOnTimeout([this] {
            auto* const progress =
                qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            if (!progress || !progress->isVisible())
                return;
            ++seen;
            isRising = isRising && progress->value() >= m_last;
            m_last = progress->value();
            m_look(*progress, progress->labelText().toStdString());
        });
        m_timer.start(0);
    }

    int seen = 0;
    bool isRising = true;

 private:
    std::function<void(QProgressDialog&, const std::string&)> m_look;
    QTimer m_timer;
    int m_last = 0;
};

/// A library of many files, pasted into another one through the real shell and its windows.
class PasteManyFiles : public k4test::StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder(kFrom);
        MakeFolder(kTo);
    }
    void Fill(int count) {
        for (int i = 0; i < count; ++i) {
            names.push_back(Format("s%04d.SQ4", i));
            MakeFile(kFrom + names.back(), ContentOf(names.back()));
        }
    }
    static std::string ContentOf(const std::string& name) {
        std::string content;
        for (int i = 0; i < 200; ++i)
            content += name;
        return content;
    }
    bool Paste(bool cut) {
        clipboard = {kFrom, names, "A:", k4test::kType, "From", cut};
        const FileLocation place{"A:", k4test::kType, "To", "", "SQ4"};
        return k4cmn::FilePaste(place, clipboard, prompt).Run();
    }
    /// How many files a library has. Each of them must be whole, and nothing else be there.
    int WholeFiles(const std::string& library) {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(Native(library))) {
            const std::string name = entry.path().filename().string();
            EXPECT_TRUE(std::find(names.begin(), names.end(), name) != names.end()) << name;
            EXPECT_TRUE(Content(library + name) == ContentOf(name)) << name;
            ++count;
        }
        return count;
    }

    std::vector<std::string> names;
    FileClipboard clipboard;
    k4test::ScriptedPrompt prompt;
    k4suite::FileOperationDialogs dialogs{std::chrono::milliseconds(0)};
    k4suite::FreedesktopShell shell{
        dialogs, [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::Shell> useShell{shell};
};

TEST_F(PasteManyFiles, ShowsItsProgress) {
    Fill(kMany);
    std::vector<std::string> shown;
    const ProgressWatch watch([&](QProgressDialog& progress, const std::string& name) {
        EXPECT_EQ(progress.windowTitle(), QStringLiteral("Copy"));
        shown.push_back(name);
    });
    EXPECT_TRUE(Paste(false));
    EXPECT_EQ(WholeFiles(kTo), kMany);
    EXPECT_GT(watch.seen, 100);
    EXPECT_TRUE(watch.isRising);
    EXPECT_TRUE(std::find(shown.begin(), shown.end(), names[kMany / 2]) != shown.end());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PasteManyFiles, CancelLeavesWholeFilesOnly) {
    Fill(kMany);
    const ProgressWatch watch([&](QProgressDialog& progress, const std::string& name) {
        if (name >= names[300])
            QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton);
    });
    prompt.Expect(k4cmn::PlainMessage("Paste failed"));
    Paste(false);
    const int copied = WholeFiles(kTo);
    EXPECT_GE(copied, 300);
    EXPECT_LE(copied, 302);
    EXPECT_EQ(WholeFiles(kFrom), kMany);
}

TEST_F(PasteManyFiles, ACancelledMoveTakesNothingAway) {
    Fill(kSome);
    const ProgressWatch watch([&](QProgressDialog& progress, const std::string& name) {
        if (name >= names[10])
            QTest::keyClick(&progress, Qt::Key_Escape);
    });
    prompt.Expect(k4cmn::PlainMessage("Paste failed"));
    Paste(true);
    EXPECT_LT(WholeFiles(kTo), kSome);
    EXPECT_EQ(WholeFiles(kFrom), kSome);
}

TEST_F(PasteManyFiles, AMoveTakesAllAway) {
    Fill(kSome);
    EXPECT_TRUE(Paste(true));
    EXPECT_EQ(WholeFiles(kTo), kSome);
    EXPECT_EQ(WholeFiles(kFrom), 0);
}

TEST_F(PasteManyFiles, OneAnswerIsEnoughForAll) {
    Fill(kSome);
    for (const std::string& name : names)
        MakeFile(kTo + name, "the one before");
    int asked = 0;
    const k4test::ModalScript<QMessageBox> script([&](QMessageBox& box) {
        ++asked;
        EXPECT_NE(box.text().indexOf(QStringLiteral("s0000.SQ4")), -1) << box.text().toStdString();
        QTest::mouseClick(box.button(QMessageBox::YesToAll), Qt::LeftButton);
    });
    EXPECT_TRUE(Paste(false));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(WholeFiles(kTo), kSome);
}

TEST_F(PasteManyFiles, OneRefusalIsEnoughForAll) {
    Fill(kSome);
    for (const std::string& name : names)
        MakeFile(kTo + name, "the one before");
    const k4test::ModalScript<QMessageBox> script([](QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::NoToAll), Qt::LeftButton);
    });
    Paste(false);
    for (const std::string& name : {names.front(), names[30], names.back()})
        EXPECT_EQ(Content(kTo + name), "the one before");
    EXPECT_EQ(WholeFiles(kFrom), kSome);
}

}  // namespace

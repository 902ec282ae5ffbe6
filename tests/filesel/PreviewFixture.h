#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"
#include "k4cmndlg/filesel/FileListOwner.h"
#include "k4cmndlg/filesel/LimitedTextEdit.h"
#include "k4cmndlg/filesel/ThumbnailBox.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "suite/store/FolderFiles.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// A list of files that notes what it is asked for.
class RecordingListOwner final : public k4cmn::FileListOwner {
 public:
    int GetListFile() override { return Note("GetListFile", onGetListFile); }
    int ShowFilesList() override { return Note("ShowFilesList", onShowFilesList); }
    void PropertiesButtonPressed() override { Note("PropertiesButtonPressed", onProperties); }

    std::vector<std::string> calls;
    std::function<void()> onGetListFile;
    std::function<void()> onShowFilesList;
    std::function<void()> onProperties;

 private:
    int Note(const char* call, const std::function<void()>& then) {
        calls.emplace_back(call);
        if (then)
            then();
        return 1;
    }
};

/// The preview pane with what derived classes reach.
class ProbePane final : public CK4CmnDlgFileSelPrev {
 public:
    using CK4CmnDlgFileSelPrev::CalcDuration;
    using CK4CmnDlgFileSelPrev::CK4CmnDlgFileSelPrev;
    using CK4CmnDlgFileSelPrev::Frame2DIB;
    using CK4CmnDlgFileSelPrev::LoadSequenceInfo;
    using CK4CmnDlgFileSelPrev::OpenFile;
    using CK4CmnDlgFileSelPrev::SaveKeyWords;
    using CK4CmnDlgFileSelPrev::UpdateThumbPicture;
};

/// The preview pane over sequences on the drive A: of a store of the test's own.
class Preview : public testing::Test {
 protected:
    using Pane = CK4CmnDlgFileSelPrev;

    static k4suite::SequenceFacts Facts(std::uint16_t rows = 16, std::uint16_t columns = 64,
                                        tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_RGB16M) {
        k4suite::SequenceFacts facts;
        facts.rows = rows;
        facts.columns = columns;
        facts.color = color;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.keywords = "summer; sale; ";
        facts.notes = "Two lines\nof notes";
        return facts;
    }

    std::string Native(const std::string& path) { return files.NativePath(path); }

    using Fill = std::function<void(k4suite::SequenceWriter&)>;
    void Make(const std::string& path, const k4suite::SequenceFacts& facts, const Fill& fill) {
        const std::filesystem::path native = Native(path);
        std::filesystem::create_directories(native.parent_path());
        k4suite::SequenceWriter writer(native.string(), facts);
        fill(writer);
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    /// Makes a sequence of frames with one color each: red, green, blue, and again.
    /// @param facts of the color RGB16M, for colors; of another one all lamps are lit.
    void MakeColored(const std::string& path, int frames,
                     const k4suite::SequenceFacts& facts = Facts()) {
        Make(path, facts, [&](k4suite::SequenceWriter& writer) {
            for (int i = 0; i < frames; ++i)
                ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 500, Lit(facts, i % 3)));
        });
    }
    /// The bulb data of a frame whose lamps are all lit: with RGB16M one color alone.
    static std::vector<std::uint8_t> Lit(const k4suite::SequenceFacts& facts, int color) {
        const auto bytes =
            k4cmn::BytesOfFrame(facts.rows, facts.columns, static_cast<std::uint32_t>(facts.color));
        const bool isRgb = facts.color == K4_SIGN_COLOR_RGB16M;
        std::vector<std::uint8_t> bulbs(static_cast<std::size_t>(bytes), isRgb ? 0 : 0xFF);
        if (isRgb) {
            const std::size_t third = bulbs.size() / 3;
            const auto begin = bulbs.begin() + static_cast<std::ptrdiff_t>(third) * color;
            std::fill(begin, begin + static_cast<std::ptrdiff_t>(third), std::uint8_t{0xFF});
        }
        return bulbs;
    }

    /// Creates the window and shows it.
    void Show(CK4CmnDlgFileSelPrev& any, QWidget* parent = nullptr) {
        ASSERT_EQ(any.Create(Pane::kTemplate, parent), 1);
        any.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(any.window()));
    }
    void Show() { Show(pane); }
    /// Shows the window, and a file in it.
    void Show(const std::string& path) {
        Show();
        pane.UpdateSelection(path);
    }

    template <class Control>
    Control* At(int id) const {
        return Item<Control>(pane, id);
    }
    std::string Text(int id) const { return TextOf(pane, id); }
    std::string Notes() const { return At<k4cmn::LimitedTextEdit>(Pane::kNotes)->Text(); }
    bool Enabled(int id) const { return At<QWidget>(id)->isEnabled(); }
    bool Shown(int id) const { return At<QWidget>(id)->isVisible(); }
    int Level() const { return At<QComboBox>(Pane::kCompression)->currentIndex(); }
    void Type(int id, const char* text) { TypeOver(pane, id, QString::fromUtf8(text)); }
    void TypeNotes(const char* text) {
        At<k4cmn::LimitedTextEdit>(Pane::kNotes)->setFocus();
        At<k4cmn::LimitedTextEdit>(Pane::kNotes)->selectAll();
        QTest::keyClicks(At<QWidget>(Pane::kNotes), QString::fromUtf8(text));
    }

    QImage Box() { return At<QWidget>(Pane::kThumbnail)->grab().toImage(); }
    QColor BoxColor(int x, int y) { return Box().pixelColor(x, y); }
    /// The color in the middle of the picture box.
    QColor Middle() {
        const QImage box = Box();
        return box.pixelColor(box.width() / 2, box.height() / 2);
    }
    /// There is no picture: words on white.
    void ExpectNoPicture() {
        EXPECT_EQ(At<QWidget>(Pane::kThumbnail)->accessibleDescription(),
                  QStringLiteral("Non Graphic Frame"));
        const QImage box = Box();
        EXPECT_EQ(box.pixelColor(2, box.height() - 1), QColor(Qt::white));
        EXPECT_EQ(box.pixelColor(box.width() - 1, box.height() - 1), QColor(Qt::white));
        EXPECT_TRUE(HasInk(box));
    }
    static bool HasInk(const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != QColor(Qt::white))
                    return true;
            }
        }
        return false;
    }

    /// What a file holds now.
    std::unique_ptr<CK4SequenceFile> Stored(const std::string& path) {
        auto file = library.Create();
        EXPECT_EQ(file->Open(path, K4_OPEN_READ), 1) << file->GetPtrToErrorString();
        return file;
    }
    static k4cmn::Message CannotOpen(const std::string& path) {
        return {"Error opening Sequence: \n" + path,
                {},
                k4cmn::MessageButtons::Ok,
                k4cmn::MessageIcon::Stop};
    }

    MessageQueue messages;
    TempFolder home;
    k4suite::FolderFiles files{k4suite::DataHome(home.Path())};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4suite::PlaneBulbCv bulbCv;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles{files};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};
    k4cmn::ScopedProvider<K4BulbCv> useBulbCv{bulbCv};
    RecordingListOwner owner;
    ProbePane pane{nullptr};
};

}  // namespace k4test

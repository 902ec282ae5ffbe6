#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/ThumbnailBox.h"
#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "suite/store/FolderFiles.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MessageQueue.h"
#include "tests/support/ModalDriver.h"
#include "tests/support/TempFolder.h"

namespace k4test {

/// A window that keeps the numbers of the messages it gets.
class ToldWindow final : public QWidget {
 public:
    std::vector<std::uint32_t> told;
    std::uintptr_t parameter = 0;                           ///< the first one of the last message
    std::function<void(const k4cmn::WindowMessage&)> then;  ///< after each message

    bool event(QEvent* event) override {
        const k4cmn::WindowMessage* message = k4cmn::WindowMessage::From(event);
        if (!message)
            return QWidget::event(event);
        told.push_back(message->number);
        parameter = message->wParam;
        if (then)
            then(*message);
        return true;
    }
};

/// Sequences on the drive A: of a home of the test's own, and what a properties sheet needs.
class Properties : public testing::Test {
 protected:
    enum : int {
        kOk = 1,
        kCancel = 2,
        kApply = 3,
        kFileName = 1201,
        kFrameSize = 1202,
        kPixelTech = 1203,
        kColorTech = 1204,
        kDuration = 1205,
        kFrames = 1206,
        kPreviewOnly = 1207,
        kCompression = 1221,
        kKeywords = 1222,
        kNotes = 1223,
        kFrame = 1241,
        kFrameSpin = 1242,
        kFrameCount = 1244,
        kBox = 1245,
    };
    static constexpr auto kModal = CK4CmnPSProperties::MODAL;
    static constexpr auto kModeless = CK4CmnPSProperties::MODELESS;
    static constexpr int kGeneral = CK4CmnPSProperties::GENERAL_PAGE;
    static constexpr int kThumbnail = CK4CmnPSProperties::THUMBNAIL_PAGE;
    static constexpr int kAdvanced = CK4CmnPSProperties::ADVANCED_PAGE;

    static k4suite::SequenceFacts Facts() {
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 16;
        facts.pixel = K4_PIXEL_TECH_LED;
        facts.thumbnailFrame = 2;
        facts.keywords = "summer; sale; ";
        facts.notes = "Two lines\nof notes";
        return facts;
    }

    using Fill = std::function<void(k4suite::SequenceWriter&)>;

    /// Makes a sequence: by default of three frames of 500 milliseconds, the first one dark, the
    /// second one all lit, the third one with its left half lit.
    void Make(const std::string& path, const k4suite::SequenceFacts& facts = Facts(),
              const Fill& fill = {}) const {
        std::filesystem::create_directories(std::filesystem::path(Native(path)).parent_path());
        k4suite::SequenceWriter writer(Native(path), facts);
        if (fill)
            fill(writer);
        else
            AddFrames(writer, facts);
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    static void AddFrames(k4suite::SequenceWriter& writer, const k4suite::SequenceFacts& facts) {
        const auto bytes = static_cast<std::size_t>(k4cmn::BytesOfFrame(
            facts.rows, facts.columns, static_cast<std::uint32_t>(facts.color)));
        const std::vector<std::uint8_t> dark(bytes);
        const std::vector<std::uint8_t> lit(bytes, 0xFF);
        std::vector<std::uint8_t> half(bytes);
        for (std::size_t at = 0; at < bytes; at += 2)
            half[at + 1] = 0xFF;
        for (const auto& bulbs : {dark, lit, half})
            ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 500, bulbs)) << writer.Problem();
    }

    std::string Native(const std::string& path) const { return files.NativePath(path); }
    /// A file of the store, open for reading.
    std::unique_ptr<CK4SequenceFile> Opened(const std::string& path) {
        auto file = library.Create();
        EXPECT_EQ(file->Open(path, K4_OPEN_READ), 1) << file->GetPtrToErrorString();
        return file;
    }
    std::string KeywordsIn(const std::string& path) { return Opened(path)->GetPtrToKeywords(); }
    std::string NotesIn(const std::string& path) { return Opened(path)->GetPtrToComments(); }
    std::uint32_t LevelIn(const std::string& path) {
        return Opened(path)->RiffHdr()->compressionLevel;
    }
    int ThumbnailIn(const std::string& path) { return Opened(path)->SosData()->thumbnailFrame; }

    static k4cmn::Message Question() {
        return {"Do you wish to save the changes to the file properties?",
                {},
                k4cmn::MessageButtons::YesNo,
                k4cmn::MessageIcon::Exclamation};
    }
    static k4cmn::Message CantOpen(const std::string& path) {
        return {"Error opening Sequence: " + path + "\n",
                {},
                k4cmn::MessageButtons::Ok,
                k4cmn::MessageIcon::Stop};
    }

    /// Shows a page as a person does, by a click on its tab.
    static void ShowPage(CPropertySheet& sheet, int index) {
        auto* bar = sheet.findChild<QTabBar*>();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    /// Shows the page "Thumbnail", and waits for its picture or words.
    static void ShowThumbnail(CPropertySheet& sheet) {
        ShowPage(sheet, kThumbnail);
        EXPECT_TRUE(QTest::qWaitFor([&] { return IsFilled(sheet); }));
    }
    static bool IsFilled(const CPropertySheet& sheet) {
        const k4cmn::ThumbnailBox& box = Box(sheet);
        return box.HasPicture() || !box.toolTip().isEmpty();
    }
    static k4cmn::ThumbnailBox& Box(const CPropertySheet& sheet) {
        return *static_cast<k4cmn::ThumbnailBox*>(Item<QWidget>(sheet, kBox));
    }
    /// A colour of the thumbnail as it is painted, at a place of the box.
    static QColor Painted(const CPropertySheet& sheet, QPoint place) {
        return Box(sheet).grab().toImage().pixelColor(place);
    }
    static void TypeNotes(const CPropertySheet& sheet, const QString& text) {
        auto* notes = Item<QPlainTextEdit>(sheet, kNotes);
        notes->setFocus();
        notes->selectAll();
        QTest::keyClicks(notes, text);
    }
    static std::string NotesOf(const CPropertySheet& sheet) {
        return Item<QPlainTextEdit>(sheet, kNotes)->toPlainText().toStdString();
    }
    static void ChooseCompression(const CPropertySheet& sheet, int index) {
        auto* combo = Item<QComboBox>(sheet, kCompression);
        combo->setFocus();
        while (combo->currentIndex() != index)
            QTest::keyClick(combo, combo->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
    static int CompressionOf(const CPropertySheet& sheet) {
        return Item<QComboBox>(sheet, kCompression)->currentIndex();
    }
    static bool Enabled(const CPropertySheet& sheet, int controlId) {
        return Item<QWidget>(sheet, controlId)->isEnabled();
    }

    MessageQueue messages;
    TempFolder home;
    mutable k4suite::FolderFiles files{k4suite::DataHome(home.Path())};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4suite::PlaneBulbCv bulbCv;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles{files};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};
    k4cmn::ScopedProvider<K4BulbCv> useBulbCv{bulbCv};
    ToldWindow parent;
};

}  // namespace k4test

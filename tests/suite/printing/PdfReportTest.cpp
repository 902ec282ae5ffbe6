#include <gmock/gmock.h>

#include <filesystem>

#include "k4cmndlg/filesel/FileListReport.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/printing/PdfSurface.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/suite/signservice/SequenceFiles.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::Format;
using k4test::PdfReader;
using testing::ElementsAre;

constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05:09 UTC
constexpr double kPitch = 4.57;                // points
constexpr k4cmn::RowLabelSize kLabel{120, 17};

const std::string kLib = std::string("A:\\") + k4test::kType + ".Sign\\Default.Lib\\";
const std::string kHeading =
    "Name               Size(KB)     Date        Time      Frames    Color         Size      "
    "Dur.(s)";

/// The report of a real library as a real file.
class PdfReport : public k4test::StoreFixture {
 protected:
    void SetUp() override {
        StoreFixture::SetUp();
        MakeFolder(kLib);
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 80;
        k4suite::SequenceWriter writer((home / "first.SQ4").string(), facts);
        ASSERT_TRUE(
            writer.AddGraphic(k4cmn::kGraphicFrame, 12345,
                              std::vector<std::uint8_t>(static_cast<std::size_t>(
                                  k4cmn::BytesOfFrame(7, 80, static_cast<std::uint32_t>(0))))));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
    }
    void Sequence(const std::string& name) {
        const fs::path native = Native(kLib + name + ".SQ4");
        fs::copy_file(home / "first.SQ4", native);
        const timespec times[2] = {{kTime, 0}, {kTime, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), times, 0), 0);
    }
    bool Print() {
        const FileLocation place{"A:", k4test::kType, "Default", "", "SQ4"};
        k4cmn::FileRows rows;
        rows.Fill(place, "K4400 Seq", 4, k4cmn::LastModifiedFilter(-1, kTime));
        k4suite::PdfSurface surface(report);
        const bool isDone =
            k4cmn::FileListReport(rows, place, "Sequences").Print(surface, kLabel, kTime, prompt);
        EXPECT_EQ(surface.IsPrinted(), isDone) << surface.Problem();
        return isDone;
    }
    std::string Row(const std::string& shownName) {
        return Format(
            "%s    %5u     07-31-26    02:05 PM        1    Mono1          7x80       "
            "12.34",
            shownName.c_str(), static_cast<unsigned>(fs::file_size(home / "first.SQ4") / 1024));
    }

    k4test::ScopedTimeZone zone{"UTC0"};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};
    k4test::ScriptedPrompt prompt;
    const std::string report = (home / "report.pdf").string();
};

TEST_F(PdfReport, ReadsAsItWasDrawn) {
    Sequence("a");
    Sequence("sixteen letters.");
    Sequence("seventeen letters");
    Sequence("Größe & Ω");
    ASSERT_TRUE(Print());
    EXPECT_THAT(
        PdfReader(report).Lines(1, kPitch),
        ElementsAre("Directory listing for " + kLib, "Friday, July 31, 2026  02:05:09 PM",
                    "Sequences", kHeading, Row("a               "), Row("Größe & Ω       "),
                    Row("seventeen let..."), Row("sixteen letters."),
                    Format("4 file(s)     %u KB     4 frames     49.38 seconds",
                           4 * static_cast<unsigned>(fs::file_size(home / "first.SQ4") / 1024))));
}

TEST_F(PdfReport, OfAnEmptyListHasOnePage) {
    ASSERT_TRUE(Print());
    const PdfReader reader(report);
    EXPECT_EQ(reader.PageCount(), 1);
    EXPECT_THAT(
        reader.Lines(1, kPitch),
        ElementsAre("Directory listing for " + kLib, "Friday, July 31, 2026  02:05:09 PM",
                    "Sequences", kHeading, "0 file(s)     0 KB     0 frames     0.00 seconds"));
}

TEST_F(PdfReport, Has58RowsOnItsFirstPageAndTheNextOnASecond) {
    for (int i = 0; i < 58; ++i)
        Sequence(Format("s%03d", i));
    ASSERT_TRUE(Print());
    ASSERT_EQ(PdfReader(report).PageCount(), 1);
    std::vector<std::string> lines = PdfReader(report).Lines(1, kPitch);
    ASSERT_EQ(lines.size(), 4u + 58 + 1) << "all of it is on the page, the totals as well";
    EXPECT_EQ(lines[4 + 57], Row("s057            "));
    EXPECT_TRUE(lines.back().starts_with("58 file(s)")) << lines.back();

    Sequence("s058");
    ASSERT_TRUE(Print());
    const PdfReader reader(report);
    ASSERT_EQ(reader.PageCount(), 2);
    lines = reader.Lines(1, kPitch);
    ASSERT_EQ(lines.size(), 4u + 58);
    EXPECT_EQ(lines.back(), Row("s057            "));
    lines = reader.Lines(2, kPitch);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], kHeading);
    EXPECT_EQ(lines[1], Row("s058            "));
    EXPECT_TRUE(lines[2].starts_with("59 file(s)")) << lines[2];
}

TEST_F(PdfReport, ThatEndsEarlyLeavesNoFile) {
    Sequence("a");
    MakeFile(kLib + "b.SQ4", "no sequence");
    prompt.Expect({"Error opening Sequence: \n" + kLib + "b.SQ4",
                   {},
                   k4cmn::MessageButtons::Ok,
                   k4cmn::MessageIcon::Stop});
    EXPECT_FALSE(Print());
    EXPECT_FALSE(fs::exists(report));
}

}  // namespace

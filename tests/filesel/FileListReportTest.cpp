#include "k4cmndlg/filesel/FileListReport.h"

#include <gmock/gmock.h>

#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/filesel/ScopedTimeZone.h"
#include "tests/support/ScriptedPrompt.h"
#include "tests/support/StoreFixture.h"

namespace {

using k4cmn::FileListReport;
using k4cmn::Format;
using k4cmn::PrintFont;
using testing::ElementsAre;

constexpr std::int64_t kTime = 1'785'506'709;  // 31 July 2026, 14:05:09 UTC

const std::string kLib = std::string("A:\\") + k4test::kType + ".Sign\\Default.Lib\\";
const std::string kHeading =
    "Name               Size(KB)     Date        Time      Frames    Color         Size      "
    "Dur.(s)";

/// Writes down what is drawn, a line each; "_" stands before underlined text.
class Surface final : public k4cmn::PrintSurface {
 public:
    void StartDocument(const std::string& name) override { lines.push_back("document " + name); }
    void StartPage() override { lines.emplace_back("page"); }
    void DrawText(int x, int y, const std::string& text, PrintFont font) override {
        lines.push_back(Format("%d,%d ", x, y) + Mark(font) + text);
    }
    void DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle, const std::string& text,
                          PrintFont font) override {
        lines.push_back(Format("%d,%d-%d,%d ", rectangle.left, rectangle.top, rectangle.right,
                               rectangle.bottom) +
                        Mark(font) + text);
    }
    void EndPage() override { lines.emplace_back("end of page"); }
    void EndDocument() override { lines.emplace_back("end"); }

    std::vector<std::string> lines;

 private:
    static const char* Mark(PrintFont font) { return font == PrintFont::Underlined ? "_" : ""; }
};

class Report : public k4test::StoreFixture {
 protected:
    void Sequence(const std::string& name, std::uint32_t milliseconds,
                  tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1) {
        MakeFolder(kLib);
        const std::string native = Native(kLib + name + ".SQ4").string();
        k4suite::SequenceFacts facts;
        facts.rows = 7;
        facts.columns = 80;
        facts.color = color;
        k4suite::SequenceWriter writer(native, facts);
        ASSERT_TRUE(
            writer.AddGraphic(k4cmn::kGraphicFrame, milliseconds,
                              std::vector<std::uint8_t>(static_cast<std::size_t>(
                                  k4cmn::BytesOfFrame(7, 80, static_cast<std::uint32_t>(color))))));
        ASSERT_TRUE(writer.Finish()) << writer.Problem();
        const timespec times[2] = {{kTime, 0}, {kTime, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), times, 0), 0);
    }
    void Fill(const std::string& extension = "SQ4") {
        place = {"A:", k4test::kType, "Default", "", extension};
        rows.Fill(place, "K4400 Seq", 4, k4cmn::LastModifiedFilter(-1, kTime));
    }
    unsigned Kilobytes(const std::string& name) {
        return static_cast<unsigned>(std::filesystem::file_size(Native(kLib + name + ".SQ4")) /
                                     1024);
    }
    bool Print() {
        return FileListReport(rows, place, "Sequences").Print(surface, {60, 17}, kTime, prompt);
    }

    k4test::ScopedTimeZone zone{"UTC0"};
    k4suite::RiffSequenceLibrary library{
        [this](const std::string& path) { return files.NativePath(path); }};
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useLibrary{library};
    k4test::ScriptedPrompt prompt;
    Surface surface;
    k4cmn::FileRows rows;
    FileLocation place;
};

TEST_F(Report, OfAnEmptyListHasNoRows) {
    Fill();
    EXPECT_TRUE(Print());
    EXPECT_THAT(surface.lines,
                ElementsAre("document K4FileManager", "page", "40,40 Directory listing for " + kLib,
                            "40,60 Friday, July 31, 2026  02:05:09 PM", "40,100 Sequences",
                            "40,120 _" + kHeading,
                            "40,171 0 file(s)     0 KB     0 frames     0.00 seconds",
                            "end of page", "end"));
}

TEST_F(Report, HasALineForEachSequenceAndTotals) {
    Sequence("one", 12345, K4_SIGN_COLOR_RGB16M);
    Sequence("two", 5);
    Fill();
    EXPECT_TRUE(Print());
    ASSERT_EQ(surface.lines.size(), 11u);
    const unsigned one = Kilobytes("one");
    const unsigned two = Kilobytes("two");
    EXPECT_NE(one, two);
    EXPECT_EQ(surface.lines[6],
              Format("40,138-100,155 one                 %5u     07-31-26    02:05 PM        1    "
                     "RGB16M         7x80       12.34",
                     one));
    EXPECT_EQ(surface.lines[7],
              Format("40,156-100,173 two                 %5u     07-31-26    02:05 PM        1    "
                     "Mono1          7x80        0.50",
                     two));
    EXPECT_EQ(surface.lines[8],
              Format("40,207 2 file(s)     %u KB     2 frames     12.35 seconds", one + two));
}

TEST_F(Report, AFirstPageHolds58RowsAndEveryOther57) {
    for (int i = 0; i < 58; ++i)
        Sequence(Format("s%03d", i), 10);
    Fill();
    EXPECT_TRUE(Print());
    EXPECT_EQ(std::count(surface.lines.begin(), surface.lines.end(), "page"), 1);
    for (int i = 58; i < 58 + 57; ++i)
        Sequence(Format("s%03d", i), 10);
    Fill();
    surface.lines.clear();
    EXPECT_TRUE(Print());
    EXPECT_EQ(std::count(surface.lines.begin(), surface.lines.end(), "page"), 2);
    const auto second = std::find(surface.lines.begin() + 2, surface.lines.end(), "page");
    EXPECT_EQ(*(second - 1), "end of page");
    EXPECT_THAT(*(second - 2), testing::HasSubstr("s057"));
    EXPECT_EQ(*(second + 1), "40,120 _" + kHeading) << "the heading alone";
    EXPECT_THAT(*(second + 2), testing::StartsWith("40,138-100,155 s058"));
    Sequence("s115", 10);
    Fill();
    surface.lines.clear();
    EXPECT_TRUE(Print());
    EXPECT_EQ(std::count(surface.lines.begin(), surface.lines.end(), "page"), 3);
    EXPECT_EQ(surface.lines[surface.lines.size() - 3],
              Format("40,%d 116 file(s)     %u KB     116 frames     1.16 seconds", 155 + 34,
                     116 * Kilobytes("s000")));
}

TEST_F(Report, EndsAtTheFirstFileThatCantBeOpened) {
    Sequence("a", 10);
    MakeFile(kLib + "b.SQ4", "no sequence");
    Sequence("c", 10);
    Fill();
    prompt.Expect({"Error opening Sequence: \n" + kLib + "b.SQ4",
                   {},
                   k4cmn::MessageButtons::Ok,
                   k4cmn::MessageIcon::Stop});
    EXPECT_FALSE(Print());
    EXPECT_THAT(surface.lines.back(), testing::HasSubstr(" a   "))
        << "no end of page, no end of the document";
}

TEST_F(Report, OfFilesThatArentSequencesEndsAtTheFirstRow) {
    MakeFile("A:\\run.SC4", "x");
    place = {"A:", "", "", "", "SC4"};
    rows.Fill(place, "K4400 Script", 6, k4cmn::LastModifiedFilter(-1, kTime));
    prompt.Expect({"Error opening Sequence: \nA:\\.Sign\\.Lib\\run.SC4",
                   {},
                   k4cmn::MessageButtons::Ok,
                   k4cmn::MessageIcon::Stop});
    EXPECT_FALSE(Print());
}

TEST_F(Report, EndsWithoutAWordWhereTheStartRecordIsMissing) {
    /// Opens anything and knows nothing.
    class Headless final : public CK4SequenceFile {
     public:
        tag_K4_RIFF_FILE_DATA* RiffHdr() override { return nullptr; }
        const char* GetPtrToKeywords() const override { return ""; }
        const char* GetPtrToComments() const override { return ""; }
        int SetKeywordsString(const std::string&) override { return 0; }
        int SetCommentsString(const std::string&) override { return 0; }
        const char* GetPtrToErrorString() const override { return ""; }
        void Close() override {}
        int Open(const std::string&, K4OpenFlags) override { return 1; }
        tag_K4_SOS_FRM* SosData() override { return nullptr; }
        int FrameCount() const override { return 0; }
        CK4Frame* Frame(int) override { return nullptr; }
        std::uint32_t CalcRunTime() override { return 0; }
        int IsPreviewOnly() const override { return 0; }
        int Save() override { return 0; }
    };
    class Library final : public k4cmn::SequenceLibrary {
     public:
        std::unique_ptr<CK4SequenceFile> Create() override { return std::make_unique<Headless>(); }
    };
    Library headless;
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> use(headless);
    MakeFile(kLib + "a.SQ4");
    Fill();
    EXPECT_FALSE(Print());
    EXPECT_EQ(surface.lines.back(), "40,120 _" + kHeading);
}

TEST_F(Report, SkipsRowsWithoutText) {
    Sequence("", 10);
    Sequence("a", 10);
    Fill();
    ASSERT_EQ(rows.Rows().size(), 2u);
    EXPECT_TRUE(Print());
    EXPECT_THAT(surface.lines[7], testing::HasSubstr("1 file(s)"));
}

TEST_F(Report, FilesThatVanishEndIt) {
    Sequence("a", 10);
    Fill();
    std::filesystem::remove_all(home / "drives/A");
    prompt.Expect({"Error opening Sequence: \n" + kLib + "a.SQ4",
                   {},
                   k4cmn::MessageButtons::Ok,
                   k4cmn::MessageIcon::Stop});
    EXPECT_FALSE(Print());
}

// Pieces ---------------------------------------------------------------------------------------

TEST(ReportName, IsCutTo16Characters) {
    EXPECT_EQ(FileListReport::ShortName("1234567890123456"), "1234567890123456");
    EXPECT_EQ(FileListReport::ShortName("12345678901234567"), "1234567890123...");
    EXPECT_EQ(FileListReport::ShortName(""), "");
    EXPECT_EQ(FileListReport::ShortName("\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4"
                                        "\xc3\xa4\xc3\xa4"),
              "\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4")
        << "9 characters of 18 bytes";
}

TEST(ReportDuration, TakesTheFirstTwoDigitsOfTheRemainder) {
    const std::pair<std::uint32_t, const char*> texts[] = {
        {0, "   0.00"},       {5, "   0.50"},         {50, "   0.50"},           {500, "   0.50"},
        {99, "   0.99"},      {123, "   0.12"},       {1000, "   1.00"},         {12345, "  12.34"},
        {9999999, "9999.99"}, {10000000, "10000.00"}, {0xFFFFFFFF, "4294967.29"}};
    for (const auto& [milliseconds, text] : texts)
        EXPECT_EQ(FileListReport::DurationText(milliseconds), text);
}

TEST(ReportRow, ShowsWhatHasNoNameAsBlanks) {
    const k4test::ScopedTimeZone zone("UTC0");
    tag_K4_SOS_FRM sos{};
    sos.rows = 65535;
    sos.columns = 3;
    for (const std::uint32_t color : {15u, 16u, 0xFFFFFFFFu}) {
        sos.color = color;
        EXPECT_EQ(FileListReport::RowText("\xc3\xa4", {}, 0, sos),
                  "\xc3\xa4                       0     01-01-70    12:00 AM        0            "
                  "    65535x3         0.00");
    }
}

}  // namespace

#include "k4cmndlg/frame/Format.h"
#include "tests/apps/k4ctl/store/StoreRuns.h"
#include "tests/support/DrivenClock.h"

// The report of `store report` as text.

namespace {

using k4ctl::ExitCode;
using k4test::LibraryOn;
using k4test::Words;
using testing::HasSubstr;

constexpr std::int64_t kNow = 1'785'506'709;  // 31 July 2026, 14:05:09 UTC

class StoreReport : public k4test::StoreRuns {
 protected:
    void SetUp() override {
        StoreRuns::SetUp();
        clock.Set(k4cmn::Clock::TimePoint(std::chrono::seconds(kNow)));
        MakeFolder(Lib());
    }
    static std::string Lib() { return LibraryOn("A:"); }
    static std::string Top() {
        return "Directory listing for " + Lib() +
               "\nFriday, July 31, 2026  02:05:09 PM\nSequences\n";
    }
    static std::string Heading() {
        return "Name               Size(KB)     Date        Time      Frames    Color         Size "
               "     Dur.(s)\n";
    }

    k4test::DrivenClock clock;
    k4cmn::ScopedProvider<k4cmn::Clock> useClock{clock};
};

TEST_F(StoreReport, OfAnEmptyLibraryHasItsTopAndTotals) {
    EXPECT_EQ(Good({"report", Lib()}).out,
              Top() + Heading() + "0 file(s)     0 KB     0 frames     0.00 seconds\n");
}

TEST_F(StoreReport, HasALineForEachSequenceInTheOrderThatIsAskedFor) {
    MakeSequence(Lib() + "one.SQ4", kNow - 3600);
    MakeSequence(Lib() + "a name of 17 chars.SQ4", kNow - 86400);
    const auto kilobytes =
        static_cast<int>(std::filesystem::file_size(Native(Lib() + "one.SQ4")) / 1024);
    ASSERT_GT(kilobytes, 0);
    const auto line = [&](const char* name, const char* time) {
        return k4cmn::Format("%s    %5d     %s        1    Mono1         16x80        1.25\n", name,
                             kilobytes, time);
    };
    const std::string longName = line("a name of 17 ...", "07-30-26    02:05 PM");
    const std::string one = line("one             ", "07-31-26    01:05 PM");
    const std::string totals =
        k4cmn::Format("2 file(s)     %d KB     2 frames     2.50 seconds\n", 2 * kilobytes);
    EXPECT_EQ(Good({"report", Lib()}).out, Top() + Heading() + longName + one + totals);
    EXPECT_EQ(Good({"report", Lib(), "--reverse"}).out,
              Top() + Heading() + one + longName + totals);
    EXPECT_EQ(Good({"report", Lib(), "--sort", "modified", "-r"}).out,
              Top() + Heading() + one + longName + totals);
    EXPECT_THAT(Good({"report", Lib(), "--modified", "today"}).out, HasSubstr("\n1 file(s) "));
    const QJsonObject json = Good({"report", Lib(), "--json"}).Json();
    EXPECT_EQ(json.value(QLatin1String("lines")).toArray().size(), 7);
    EXPECT_EQ(json.value(QLatin1String("done")), QJsonValue(true));
}

TEST_F(StoreReport, EveryPageHasTheHeading) {
    MakeSequence(Lib() + "00.SQ4", kNow);
    for (int file = 1; file < 59; ++file) {
        std::filesystem::copy_file(Native(Lib() + "00.SQ4"),
                                   Native(Lib()) / k4cmn::Format("%02d.SQ4", file));
    }
    const std::string out = Good({"report", Lib()}).out;
    const std::size_t second = out.find("\n\n" + Heading() + "58 ");
    EXPECT_NE(second, std::string::npos) << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3 + 1 + 58 + 1 + 1 + 1 + 1);
}

TEST_F(StoreReport, EndsAtTheFirstFileThatIsNoSequence) {
    MakeSequence(Lib() + "a.SQ4", kNow);
    MakeFile(Lib() + "b.SQ4", "nothing");
    MakeSequence(Lib() + "c.SQ4", kNow);
    const k4test::CommandRun run = Call({"report", Lib()});
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.err, "k4ctl: Error opening Sequence: " + Lib() +
                           "b.SQ4\nk4ctl: The report isn't complete.\n");
    EXPECT_THAT(run.out, HasSubstr("\na "));
    EXPECT_EQ(run.out.find("\nc "), std::string::npos);
    EXPECT_EQ(run.out.find("file(s)"), std::string::npos);
    MakeFile(Lib() + "x.SD4", "daily");
    EXPECT_EQ(
        Call({"report", Lib(), "--type", "SD4", "--json"}).Json().value(QLatin1String("error")),
        QJsonValue(QString::fromStdString("Error opening Sequence: " + Lib() + "x.SD4")));
}

TEST_F(StoreReport, OfATypeNamesItAsTheDialogDoes) {
    EXPECT_THAT(Good({"report", Lib(), "--type", "sd4"}).out, HasSubstr("\nSchedules\n"));
    EXPECT_THAT(Good({"report", Lib(), "--type", "AVI"}).out, HasSubstr(" PM\n\nName "));
    EXPECT_EQ(Call({"report", Lib(), "--type", "SQ4,SD4"}).err,
              "k4ctl: --type: a report is of one type of files\n"
              "k4ctl: see k4ctl store report --help\n");
}

TEST_F(StoreReport, IsOfALibrary) {
    Refused({"report", "A:"}, "\"A:\" is a server, not a library.");
    Refused({"report", LibraryOn("A:", "M")},
            "There is no place \"" + LibraryOn("A:", "M") + "\".");
    Refused({"report"}, "LIBRARY is required\nk4ctl: see k4ctl store report --help",
            ExitCode::Usage);
}

TEST_F(StoreReport, APdfReplacesNothingUnasked) {
    const std::string out = home.Write("there.pdf", "mine").string();
    Refused({"report", Lib(), "--pdf", out},
            "\"" + out +
                "\" is there already; --force replaces it.\nk4ctl: The report isn't "
                "complete.");
    EXPECT_EQ(home.Read("there.pdf"), "mine");
}

}  // namespace

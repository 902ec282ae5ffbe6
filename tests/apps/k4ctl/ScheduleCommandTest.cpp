#include "apps/k4ctl/ScheduleCommand.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <fstream>
#include <iterator>

#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/apps/k4ctl/Examples.h"
#include "tests/support/TempFolder.h"

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using testing::HasSubstr;
using testing::StartsWith;

class ScheduleCheck : public testing::Test {
 protected:
    std::vector<std::unique_ptr<k4ctl::Command>> Commands() const {
        std::vector<std::unique_ptr<k4ctl::Command>> commands;
        commands.push_back(std::make_unique<k4ctl::ScheduleCommand>(
            k4ctl::PlacesOf(k4suite::DataHome(folder / "home"))));
        return commands;
    }
    CommandRun Run(std::vector<std::string> arguments) const {
        return CommandRun(std::move(arguments), Commands());
    }
    CommandRun Check(const std::string& file, bool json = false) const {
        std::vector<std::string> arguments = {"schedule", "check", file};
        if (json)
            arguments.emplace_back("--json");
        return Run(arguments);
    }
    std::string Write(const std::string& lines) const {
        return folder.Write("day.SD4", "K4 schedule 1\n" + lines).string();
    }

    k4test::TempFolder folder;
};

constexpr char kLines[] =
    "# remark\n"
    "at 06:00 mon-fri play \"Good Morning.SQ4\" num-times 3\n"
    "at 20:00:30 sat,sun play A:\\x.SQ4\n"
    "at 21:00 stop\n"
    "at 21:30 default\n"
    "at 22:00 dim manual 96\n"
    "at 22:01 dim photocell -5\n"
    "at 22:02 dim remote\n"
    "at 22:03 next\n"
    "at 23:00 blank\n";

TEST_F(ScheduleCheck, ASoundOneShowsItsEntries) {
    const CommandRun run = Check(Write(kLines));
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out,
              "LINE  TIME      DAYS                 ACTION\n"
              "   3  06:00     mon,tue,wed,thu,fri  play Good Morning.SQ4 num-times 3\n"
              "   4  20:00:30  sat,sun              play A:\\x.SQ4 continuous\n"
              "   5  21:00     daily                stop\n"
              "   6  21:30     daily                default\n"
              "   7  22:00     daily                dim manual 96\n"
              "   8  22:01     daily                dim photocell -5\n"
              "   9  22:02     daily                dim remote photocell\n"
              "  10  22:03     daily                next\n"
              "  11  23:00     daily                blank\n");
}

TEST_F(ScheduleCheck, ASoundOneForMachines) {
    const std::string file = Write(kLines);
    const CommandRun run = Check(file, true);
    EXPECT_EQ(run.code, ExitCode::Done);
    const QJsonObject json = run.Json();
    EXPECT_EQ(json.value(QLatin1String("file")).toString().toStdString(), file);
    EXPECT_EQ(json.value(QLatin1String("sound")), QJsonValue(true));
    const QJsonArray entries = json.value(QLatin1String("entries")).toArray();
    ASSERT_EQ(entries.size(), 9);
    const QJsonObject play = entries.at(0).toObject();
    EXPECT_EQ(play.value(QLatin1String("line")).toInt(), 3);
    EXPECT_EQ(play.value(QLatin1String("time")).toString(), QStringLiteral("06:00"));
    EXPECT_EQ(play.value(QLatin1String("days")).toArray().size(), 5);
    EXPECT_EQ(play.value(QLatin1String("days")).toArray().at(0).toString(), QStringLiteral("mon"));
    EXPECT_EQ(play.value(QLatin1String("action")).toString(), QStringLiteral("play"));
    EXPECT_EQ(play.value(QLatin1String("sequence")).toString(), QStringLiteral("Good Morning.SQ4"));
    EXPECT_EQ(play.value(QLatin1String("mode")).toObject(),
              (QJsonObject{{QStringLiteral("value"), 4},
                           {QStringLiteral("name"), QStringLiteral("Num Times")}}));
    EXPECT_EQ(play.value(QLatin1String("param")).toInt(), 3);
    EXPECT_EQ(entries.at(4).toObject().value(QLatin1String("dimming")).toObject(),
              (QJsonObject{{QStringLiteral("value"), 5},
                           {QStringLiteral("name"), QStringLiteral("manual")},
                           {QStringLiteral("level"), 96}}));
    EXPECT_EQ(entries.at(5)
                  .toObject()
                  .value(QLatin1String("dimming"))
                  .toObject()
                  .value(QLatin1String("offset")),
              QJsonValue(-5));
    EXPECT_EQ(entries.at(8).toObject().value(QLatin1String("days")).toArray().size(), 7);
}

TEST_F(ScheduleCheck, EveryBadLineIsShownWithItsNumberAndWords) {
    const std::string file = Write("at noon stop\nat 06:00 stop\n\nat 07:00 explode\n");
    const CommandRun run = Check(file);
    EXPECT_EQ(run.code, ExitCode::Refused);
    EXPECT_EQ(run.out,
              "LINE  PROBLEM\n"
              "   2  \"noon\" is no time of day; one is written as 06:00 or 06:00:30.\n"
              "   5  \"explode\" is no action; the actions are play, stop, blank, default, next "
              "and dim.\n");
    EXPECT_EQ(run.err, "k4ctl: \"" + file + "\" has 2 bad lines.\n");
    const CommandRun machines = Check(file, true);
    EXPECT_EQ(machines.code, ExitCode::Refused);
    const QJsonObject json = machines.Json();
    EXPECT_EQ(json.value(QLatin1String("sound")), QJsonValue(false));
    EXPECT_FALSE(json.contains(QLatin1String("entries")));
    EXPECT_EQ(json.value(QLatin1String("error")).toString().toStdString(),
              "\"" + file + "\" has 2 bad lines.");
    const QJsonArray problems = json.value(QLatin1String("problems")).toArray();
    ASSERT_EQ(problems.size(), 2);
    EXPECT_EQ(problems.at(1).toObject().value(QLatin1String("line")).toInt(), 5);
    EXPECT_THAT(problems.at(1).toObject().value(QLatin1String("words")).toString().toStdString(),
                StartsWith("\"explode\" is no action"));
}

TEST_F(ScheduleCheck, OneBadLineIsOne) {
    const std::string file = folder.Write("x.SD4", "no schedule").string();
    EXPECT_EQ(Check(file).err, "k4ctl: \"" + file + "\" has 1 bad line.\n");
}

TEST_F(ScheduleCheck, OneWithoutEntriesIsSound) {
    const CommandRun run = Check(Write("# nothing\n"));
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_EQ(run.out, "The schedule has no entries.\n");
}

TEST_F(ScheduleCheck, PathsOfTheStoreAreFoundInTheDataHome) {
    folder.Write("home/drives/A/Lib/day.SD4", "K4 schedule 1\nat 06:00 stop\n");
    folder.Write("home/network/STORE/SIGNS/day.SD4", "K4 schedule 1\nat 07:00 stop\n");
    EXPECT_THAT(Check("A:\\Lib\\day.SD4").out, HasSubstr("06:00"));
    EXPECT_THAT(Check("a:\\lib\\DAY.sd4").out, HasSubstr("06:00"));
    EXPECT_THAT(Check("\\\\STORE\\SIGNS\\day.SD4").out, HasSubstr("07:00"));
}

TEST_F(ScheduleCheck, WhatCantBeReadIsToldInWords) {
    std::filesystem::create_directory(folder / "folder.SD4");
    folder.Write("long.SD4", std::string(64 * 1024 + 1, '\n'));
    struct Row {
        std::string file;
        std::string words;
    };
    const std::string missing = (folder / "missing.SD4").string();
    const std::string inner = (folder / "folder.SD4").string();
    const std::string longer = (folder / "long.SD4").string();
    const Row rows[] = {
        {missing, "Cannot open \"" + missing + "\": No such file or directory."},
        {inner, "\"" + inner + "\" is not a file."},
        {longer, "\"" + longer + "\" is longer than a schedule can be, 65536 bytes."},
        {"\\\\..\\x", "There is no place \"\\\\..\\x\"."},
    };
    for (const Row& row : rows) {
        const CommandRun run = Check(row.file);
        EXPECT_EQ(run.code, ExitCode::Refused) << row.file;
        EXPECT_EQ(run.out, "") << row.file;
        EXPECT_EQ(run.err, "k4ctl: " + row.words + "\n") << row.file;
        EXPECT_EQ(
            Check(row.file, true).Json().value(QLatin1String("error")).toString().toStdString(),
            row.words);
    }
}

TEST_F(ScheduleCheck, ControlCharactersOfTheFileDontReachTheTerminal) {
    const CommandRun run = Check(Write("\x1b[2J\nat 06:00 play \"\xC2\x9B.SQ4\"\n"));
    EXPECT_THAT(run.out, HasSubstr("\\x1b[2J"));
    EXPECT_EQ((run.out + run.err).find('\x1b'), std::string::npos);
}

TEST_F(ScheduleCheck, ALineThatCantBeUnderstoodSaysSo) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"schedule"},
                                                      {"schedule", "check"},
                                                      {"schedule", "run", "day.SD4"},
                                                      {"schedule", "check", "a", "b"},
                                                      {"schedule", "check", "a", "--loud"}}) {
        const CommandRun run = Run(arguments);
        EXPECT_EQ(run.code, ExitCode::Usage) << testing::PrintToString(arguments);
        EXPECT_THAT(run.err, HasSubstr("\nk4ctl: see k4ctl schedule "));
    }
}

TEST_F(ScheduleCheck, TheFormatsExampleIsSound) {
    std::ifstream file(SCHEDULE_FORMAT);
    ASSERT_TRUE(file) << SCHEDULE_FORMAT;
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::string fence = "```\n";
    const std::size_t from = text.find(fence) + fence.size();
    const CommandRun run =
        Check(folder.Write("doc.SD4", text.substr(from, text.find(fence, from) - from)).string());
    EXPECT_EQ(run.code, ExitCode::Done) << run.out;
    EXPECT_THAT(run.out, HasSubstr("play Weekend Welcome.SQ4 continuous\n"));
    EXPECT_THAT(run.out, HasSubstr("dim photocell -10\n"));
}

TEST_F(ScheduleCheck, HasAHelpWithExamples) {
    const CommandRun run = Run({"schedule", "check", "--help"});
    EXPECT_EQ(run.code, ExitCode::Done);
    EXPECT_THAT(run.out, HasSubstr("Examples:\n  k4ctl schedule check Evening.SD4\n"));
    EXPECT_THAT(run.out, HasSubstr("--json"));
    EXPECT_THAT(Run({"--help"}).out, HasSubstr("\n  schedule "));
    EXPECT_FALSE(Commands().front()->UsesServices());
}

}  // namespace

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/apps/k4ctl/K4ctlOnHome.h"

// The real program on a real data home: what each command does, and what holds between runs.

namespace {

using k4test::K4ctlRun;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using K4ctl = k4test::K4ctlOnHome;

TEST_F(K4ctl, MakesAndSeedsADataHomeAndListsItsServices) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    EXPECT_TRUE(std::filesystem::exists(program.Home() / "settings" / "machine.ini"));
    QStringList services;
    for (const auto each : signs) {
        services << each[QLatin1String("service")].toString();
        EXPECT_GT(each[QLatin1String("rows")].toInt(), 0);
        EXPECT_GT(each[QLatin1String("columns")].toInt(), 0);
        EXPECT_FALSE(each[QLatin1String("color")][QLatin1String("name")].toString().isEmpty());
        EXPECT_FALSE(each[QLatin1String("pixel")][QLatin1String("name")].toString().isEmpty());
        EXPECT_FALSE(each[QLatin1String("dimming")][QLatin1String("name")].toString().isEmpty());
    }
    services.removeDuplicates();
    EXPECT_TRUE(services.contains(QStringLiteral("Local")));
    EXPECT_GE(services.size(), 3);
}

TEST_F(K4ctl, ListsTheSameForPeopleAndForMachines) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    const K4ctlRun people = Good({QStringLiteral("signs")});
    std::vector<std::string> lines;
    std::istringstream text(people.out);
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(signs.size()) + 1);
    EXPECT_THAT(lines[0], StartsWith("SERVICE"));
    const std::size_t size = lines[0].find("COLOR");
    for (qsizetype index = 0; index < signs.size(); ++index) {
        const auto& line = lines[static_cast<std::size_t>(index) + 1];
        const auto each = signs[index];
        const std::string service = each[QLatin1String("service")].toString().toStdString();
        const std::string sign = each[QLatin1String("sign")].toString().toStdString();
        const std::string color =
            each[QLatin1String("color")][QLatin1String("name")].toString().toStdString();
        EXPECT_THAT(line, StartsWith(service + " "));
        EXPECT_THAT(line, HasSubstr("  " + sign + " "));
        EXPECT_THAT(line, HasSubstr(std::to_string(each[QLatin1String("rows")].toInt()) + "x" +
                                    std::to_string(each[QLatin1String("columns")].toInt()) + "  "));
        EXPECT_EQ(line.substr(size, color.size()), color);
    }
}

TEST_F(K4ctl, LeavesASeededHomeAsItIs) {
    const K4ctlRun before = Good({QStringLiteral("signs")});
    const QString sign = FirstSign();
    Good({QStringLiteral("dim"), sign, QStringLiteral("scheduled")});
    const K4ctlRun after = Good({QStringLiteral("signs")});
    EXPECT_NE(after.out, before.out);
    EXPECT_THAT(after.out, HasSubstr("scheduled"));
}

struct DimRow {
    QStringList words;
    int mode;
    const char* key;  ///< the value that was set; null: none
    int value;
};

TEST_F(K4ctl, DimmingHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const DimRow rows[] = {
        {{QStringLiteral("manual"), QStringLiteral("200")}, 5, "level", 200},
        {{QStringLiteral("manual"), QStringLiteral("0")}, 5, "level", 0},
        {{QStringLiteral("photocell"), QStringLiteral("-10")}, 2, "offset", -10},
        {{QStringLiteral("photocell"), QStringLiteral("+64")}, 2, "offset", 64},
        {{QStringLiteral("remote")}, 3, nullptr, 0},
        {{QStringLiteral("scheduled")}, 4, nullptr, 0},
    };
    for (const DimRow& row : rows) {
        Good(QStringList{QStringLiteral("dim"), sign} + row.words);
        const QJsonValue dimming =
            GoodJson({QStringLiteral("config"), sign}).value(QLatin1String("dimming"));
        EXPECT_EQ(dimming[QLatin1String("value")].toInt(), row.mode);
        if (row.key) {
            EXPECT_EQ(dimming[QLatin1String(row.key)].toInt(), row.value);
        }
    }
}

TEST_F(K4ctl, ConfigSaysTheSameForPeople) {
    const QString sign = FirstSign();
    Good({QStringLiteral("dim"), sign, QStringLiteral("manual"), QStringLiteral("77")});
    const QJsonObject json = GoodJson({QStringLiteral("config"), sign});
    const K4ctlRun people = Good({QStringLiteral("config"), sign});
    EXPECT_THAT(people.out, StartsWith("Rows              " +
                                       std::to_string(json[QLatin1String("rows")].toInt()) + "\n"));
    EXPECT_THAT(people.out, HasSubstr("\nDimming           manual\nLevel             77\n"));
}

TEST_F(K4ctl, WindowsHoldInTheNextRun) {
    const QString sign = FirstSign();
    const QJsonArray before =
        GoodJson({QStringLiteral("windows"), sign})[QLatin1String("windows")].toArray();
    ASSERT_EQ(before.size(), 16);
    for (int index = 0; index < 16; ++index) {
        EXPECT_EQ(before[index][QLatin1String("window")].toInt(), index + 1);
        EXPECT_GE(before[index][QLatin1String("row")].toInt(), 1);
        EXPECT_GE(before[index][QLatin1String("column")].toInt(), 1);
        EXPECT_FALSE(before[index][QLatin1String("shows")].toString().isEmpty());
    }
    const auto window = [&](int number) {
        return GoodJson({QStringLiteral("windows"), sign})[QLatin1String("windows")][number - 1];
    };
    const QString at = QStringLiteral("--at");
    Good({QStringLiteral("window"), sign, QStringLiteral("16"), QStringLiteral("open"), at,
          QStringLiteral("3,5")});
    EXPECT_EQ(window(16)[QLatin1String("open")].toBool(), true);
    EXPECT_EQ(window(16)[QLatin1String("row")].toInt(), 3);
    EXPECT_EQ(window(16)[QLatin1String("column")].toInt(), 5);

    Good({QStringLiteral("window"), sign, QStringLiteral("16"), QStringLiteral("close")});
    EXPECT_EQ(window(16)[QLatin1String("open")].toBool(), false);
    EXPECT_EQ(window(16)[QLatin1String("row")].toInt(), 3) << "it isn't moved";

    const K4ctlRun people = Good({QStringLiteral("windows"), sign});
    EXPECT_THAT(people.out, StartsWith("WINDOW  STATE "));
    EXPECT_THAT(people.out, HasSubstr("\n    16  closed"));
}

TEST_F(K4ctl, TheQueueHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const QString first = program.AddSequence("First.SQ4");
    const QString second = program.AddSequence("Second.SQ4");
    const QString queue = QStringLiteral("queue");
    EXPECT_EQ(Good({queue, sign}).out, "The queue is empty.\n");
    Good({queue, sign, QStringLiteral("--add"), first, QStringLiteral("--mode"),
          QStringLiteral("num-times"), QStringLiteral("--param"), QStringLiteral("3")});
    Good({queue, sign, QStringLiteral("--add"), second});

    QJsonArray entries = GoodJson({queue, sign})[QLatin1String("queue")].toArray();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0][QLatin1String("sequence")].toString(), first);
    EXPECT_EQ(entries[0][QLatin1String("mode")][QLatin1String("value")].toInt(), 4);
    EXPECT_EQ(entries[0][QLatin1String("param")].toInt(), 3);
    EXPECT_EQ(entries[1][QLatin1String("sequence")].toString(), second);
    EXPECT_EQ(entries[1][QLatin1String("mode")][QLatin1String("name")].toString(),
              QStringLiteral("Continuous"));
    EXPECT_THAT(Good({queue, sign}).out, HasSubstr(" 2  play    A:\\Second.SQ4  Continuous"));

    Good({queue, sign, QStringLiteral("--next")});
    entries = GoodJson({queue, sign})[QLatin1String("queue")].toArray();
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0][QLatin1String("sequence")].toString(), second);
    EXPECT_EQ(GoodJson({QStringLiteral("status"), sign})[QLatin1String("sequence")].toString(),
              first);

    Good({queue, sign, QStringLiteral("--clear")});
    EXPECT_TRUE(GoodJson({queue, sign})[QLatin1String("queue")].toArray().isEmpty());
    const K4ctlRun none = program.Run({queue, sign, QStringLiteral("--next")});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.err, "k4ctl: Could not execute \"Next\" command\n");
}

TEST_F(K4ctl, TheDefaultSequenceHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const QString file = program.AddSequence("Idle.SQ4");
    EXPECT_EQ(GoodJson({QStringLiteral("default"), sign})[QLatin1String("plays")].toBool(), true);
    Good({QStringLiteral("default"), sign, file, QStringLiteral("--mode"),
          QStringLiteral("play-stop"), QStringLiteral("--param"), QStringLiteral("9")});
    const QJsonObject json = GoodJson({QStringLiteral("default"), sign});
    EXPECT_EQ(json[QLatin1String("sequence")].toString(), file);
    EXPECT_EQ(json[QLatin1String("mode")][QLatin1String("value")].toInt(), 5);
    EXPECT_EQ(json[QLatin1String("param")].toInt(), 9);
    EXPECT_THAT(Good({QStringLiteral("default"), sign}).out,
                StartsWith("Sequence  A:\\Idle.SQ4\nMode      Play Stop\nParam     9\n"));
}

TEST_F(K4ctl, WhatPlaysStopsAndIsBlankedHoldsInTheNextRun) {
    const QString sign = FirstSign();
    const std::string name = sign.toStdString();
    const QString file = program.AddSequence("Goal.SQ4");
    const auto status = [&] { return GoodJson({QStringLiteral("status"), sign}); };
    const QString state = QStringLiteral("state");

    EXPECT_EQ(Good({QStringLiteral("play"), sign, file, QStringLiteral("--mode"),
                    QStringLiteral("num-times"), QStringLiteral("--param"), QStringLiteral("999")})
                  .out,
              name + ": plays A:\\Goal.SQ4\n");
    EXPECT_EQ(status()[state].toString(), QStringLiteral("Playing"));
    EXPECT_EQ(status()[QLatin1String("sequence")].toString(), file);
    EXPECT_EQ(status()[QLatin1String("mode")][QLatin1String("name")].toString(),
              QStringLiteral("Num Times"));
    EXPECT_EQ(status()[QLatin1String("param")].toInt(), 999);
    EXPECT_EQ(status()[QLatin1String("defaultPlays")].toBool(), false);
    EXPECT_GE(status()[QLatin1String("frame")].toInt(), 1);
    EXPECT_LE(status()[QLatin1String("frame")].toInt(), status()[QLatin1String("frames")].toInt());
    const K4ctlRun people = Good({QStringLiteral("status"), sign});
    EXPECT_THAT(people.out, StartsWith("State          Playing\n"
                                       "Sequence       A:\\Goal.SQ4\n"
                                       "Schedule\n"
                                       "Frame          "));
    EXPECT_THAT(people.out, EndsWith("Mode           Num Times\n"
                                     "Param          999\n"
                                     "Default plays  no\n"));

    EXPECT_EQ(Good({QStringLiteral("stop"), sign}).out, name + ": stopped\n");
    EXPECT_EQ(status()[state].toString(), QStringLiteral("Stopped"));
    EXPECT_EQ(Good({QStringLiteral("blank"), sign}).out, name + ": blank\n");
    EXPECT_EQ(status()[state].toString(), QStringLiteral("Blank"));
    EXPECT_TRUE(GoodJson({QStringLiteral("stop"), sign})[QLatin1String("done")].toBool());
}

TEST_F(K4ctl, ASchedulePlaysUntilItIsEnded) {
    const QString sign = FirstSign();
    const QString file = program.AddFile("Evening.SD4", "K4 schedule 1\nat 00:00 play Goal.SQ4\n");
    program.AddSequence("Goal.SQ4");
    const auto schedule = [&] {
        return GoodJson({QStringLiteral("status"), sign})[QLatin1String("schedule")].toString();
    };
    Good({QStringLiteral("play"), sign, file});
    EXPECT_EQ(schedule(), file);
    EXPECT_EQ(GoodJson({QStringLiteral("status"), sign})[QLatin1String("sequence")].toString(),
              QStringLiteral("A:\\Goal.SQ4"))
        << "since midnight";
    Good({QStringLiteral("stop"), sign, QStringLiteral("--schedule")});
    EXPECT_EQ(schedule(), QString());
}

TEST_F(K4ctl, AScheduleWithABadLineIsRefusedAndTheCheckSaysWhy) {
    const QString sign = FirstSign();
    const QString file = program.AddFile("Bad.SD4", "K4 schedule 1\nat midnight blank\n");
    K4ctlRun run = program.Run({QStringLiteral("play"), sign, file});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: Could not run schedule\n");
    run = program.Run({QStringLiteral("schedule"), QStringLiteral("check"), file});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: \"A:\\Bad.SD4\" has 1 bad line.\n");
    EXPECT_THAT(run.out, HasSubstr("   2  \"midnight\" is no time of day;"));
}

TEST_F(K4ctl, CheckingAScheduleMakesNoDataHome) {
    const K4ctlRun run = program.Run(
        {QStringLiteral("schedule"), QStringLiteral("check"), QStringLiteral("/nowhere.SD4")});
    EXPECT_EQ(run.code, 1);
    EXPECT_FALSE(std::filesystem::exists(program.Home()));
}

TEST_F(K4ctl, AFilmIsRefused) {
    const QString sign = FirstSign();
    const K4ctlRun run =
        program.Run({QStringLiteral("play"), sign, program.AddFile("Film.AVI", "RIFF")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: Could not play sequence\n");
}

TEST_F(K4ctl, PlaysAScriptWithoutAnEffect) {
    const QString sign = FirstSign();
    EXPECT_EQ(Good({QStringLiteral("play"), sign, QStringLiteral("Any.SC4")}).out,
              sign.toStdString() + ": plays Any.SC4\n");
}

TEST_F(K4ctl, AFileThatCannotBePlayedIsRefused) {
    const QString sign = FirstSign();
    K4ctlRun run = program.Run({QStringLiteral("play"), sign, QStringLiteral("A:\\Nowhere.SQ4")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "k4ctl: Could not play sequence\n");
    run = program.Run({QStringLiteral("play"), sign, program.AddFile("Notes.TXT")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err,
              "k4ctl: \"A:\\Notes.TXT\" can't be played; its name must end in SQ4, AVI, "
              "SD4 or SC4\n");
}

TEST_F(K4ctl, ReachesTheSignsOfOtherServices) {
    const QJsonArray signs = GoodJson({QStringLiteral("signs")})[QLatin1String("signs")].toArray();
    for (const auto each : signs) {
        const QJsonObject config =
            GoodJson({QStringLiteral("config"), QStringLiteral("-s"),
                      each[QLatin1String("service")].toString(), QStringLiteral("--"),
                      each[QLatin1String("sign")].toString()});
        EXPECT_EQ(config[QLatin1String("rows")], each[QLatin1String("rows")]);
        EXPECT_EQ(config[QLatin1String("columns")], each[QLatin1String("columns")]);
        EXPECT_EQ(config[QLatin1String("color")], each[QLatin1String("color")]);
    }
}

}  // namespace

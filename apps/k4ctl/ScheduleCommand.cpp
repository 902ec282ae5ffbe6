#include "apps/k4ctl/ScheduleCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <variant>

#include "apps/k4ctl/Names.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/signservice/ScheduleFile.h"
#include "suite/signservice/ScheduleParser.h"
#include "suite/signservice/ScheduleWords.h"

namespace k4ctl {
namespace {

using k4cmn::ToQt;

/// What an entry does, for people and for machines.
struct ActionWords {
    std::string text;
    QJsonObject json;
};

ActionWords Plain(const char* name) {
    return {name, {{QStringLiteral("action"), QLatin1String(name)}}};
}

ActionWords WordsOf(const k4suite::SchedulePlay& play) {
    const k4suite::PlayOrder& order = play.order;
    ActionWords words = Plain("play");
    words.text += " " + order.sequence + " " + k4suite::WordOfMode(order.mode);
    if (order.param != 0) {
        words.text += " " + std::to_string(order.param);
    }
    words.json.insert(QStringLiteral("sequence"), ToQt(order.sequence));
    words.json.insert(QStringLiteral("mode"), ModeJson(order.mode));
    words.json.insert(QStringLiteral("param"), static_cast<qint64>(order.param));
    return words;
}

ActionWords WordsOf(const k4suite::ScheduleDim& dim) {
    ActionWords words = Plain("dim");
    words.text += " " + DimmingName(dim.mode);
    QJsonObject dimming = NamedValue(dim.mode, DimmingName(dim.mode));
    const bool isManual = dim.mode == K4_SIGN_DIM_MANUAL;
    if (isManual || dim.mode == K4_SIGN_DIM_PHOTOCELL) {
        words.text += " " + std::to_string(dim.value);
        dimming.insert(isManual ? QStringLiteral("level") : QStringLiteral("offset"), dim.value);
    }
    words.json.insert(QStringLiteral("dimming"), dimming);
    return words;
}

ActionWords WordsOf(const k4suite::ScheduleStop&) {
    return Plain("stop");
}

ActionWords WordsOf(const k4suite::ScheduleBlank&) {
    return Plain("blank");
}

ActionWords WordsOf(const k4suite::ScheduleDefault&) {
    return Plain("default");
}

ActionWords WordsOf(const k4suite::ScheduleNext&) {
    return Plain("next");
}

std::string DaysText(const std::vector<std::string>& days) {
    std::string text;
    for (const std::string& day : days) {
        text += (text.empty() ? "" : ",") + day;
    }
    return text;
}

}  // namespace

CommandText ScheduleCommand::Text() const {
    return {"schedule check", "Read a schedule, and show its entries or its bad lines",
            "  k4ctl schedule check Evening.SD4\n"
            "  k4ctl schedule check 'A:\\Evening.SD4' --json\n"};
}

void ScheduleCommand::AddArguments(CLI::App& app) {
    app.add_option("FILE", m_file, "The schedule: a file of this machine, or a path of the store")
        ->required();
}

Answer ScheduleCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("file"), ToQt(m_file));
    const std::string native = m_places(m_file);
    std::string problem = NoPlaceWords(m_file);
    const auto bytes = native.empty() ? std::nullopt : k4suite::ReadScheduleFile(native, problem);
    if (!bytes) {
        answer.Fail(ExitCode::Refused, problem);
        return answer;
    }
    const k4suite::ParsedSchedule schedule =
        k4suite::ParseSchedule({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
    answer.json.insert(QStringLiteral("sound"), schedule.problems.empty());
    if (schedule.problems.empty()) {
        TellEntries(schedule, answer);
    } else {
        TellProblems(schedule, answer);
    }
    return answer;
}

void ScheduleCommand::TellEntries(const k4suite::ParsedSchedule& schedule, Answer& answer) const {
    Table table({{"LINE", Table::Align::Right}, {"TIME"}, {"DAYS"}, {"ACTION"}});
    QJsonArray entries;
    for (const k4suite::ScheduleEntry& entry : schedule.entries) {
        const std::string time = k4suite::WordOfTime(entry.time);
        const std::vector<std::string> days = k4suite::NamesOfDays(entry.days);
        ActionWords words =
            std::visit([](const auto& action) { return WordsOf(action); }, entry.action);
        table.Add({std::to_string(entry.line), time,
                   entry.days == k4suite::kEveryDay ? "daily" : DaysText(days), words.text});
        QJsonArray names;
        for (const std::string& day : days) {
            names.append(ToQt(day));
        }
        words.json.insert(QStringLiteral("line"), static_cast<qint64>(entry.line));
        words.json.insert(QStringLiteral("time"), ToQt(time));
        words.json.insert(QStringLiteral("days"), names);
        entries.append(words.json);
    }
    answer.json.insert(QStringLiteral("entries"), entries);
    if (table.IsEmpty()) {
        answer.Say("The schedule has no entries.");
    } else {
        answer.Say(table);
    }
}

void ScheduleCommand::TellProblems(const k4suite::ParsedSchedule& schedule, Answer& answer) const {
    Table table({{"LINE", Table::Align::Right}, {"PROBLEM"}});
    QJsonArray problems;
    for (const k4suite::ScheduleProblem& problem : schedule.problems) {
        table.Add({std::to_string(problem.line), problem.words});
        problems.append(QJsonObject{{QStringLiteral("line"), static_cast<qint64>(problem.line)},
                                    {QStringLiteral("words"), ToQt(problem.words)}});
    }
    answer.json.insert(QStringLiteral("problems"), problems);
    answer.Say(table);
    const std::size_t count = schedule.problems.size();
    answer.Fail(ExitCode::Refused, "\"" + m_file + "\" has " + std::to_string(count) +
                                       (count == 1 ? " bad line." : " bad lines."));
}

}  // namespace k4ctl

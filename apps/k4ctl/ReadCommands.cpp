#include "apps/k4ctl/ReadCommands.h"

#include <QJsonArray>

#include "apps/k4ctl/Names.h"
#include "apps/k4ctl/SignConfig.h"

namespace k4ctl {
namespace {

/// What status tells.
struct SignStatus {
    std::string state;
    std::string sequence;
    std::string schedule;
    std::uint32_t frame = 0;
    std::uint32_t frames = 0;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 0;
    std::uint32_t defaultPlays = 0;
};

Table Facts() {
    return Table({{}, {}});
}

int Read(CK4CmnSS& client, const std::string& sign, SignStatus& status) {
    return client.GetSignStatus(sign, &status.state, &status.sequence, &status.frame, &status.mode,
                                &status.param, &status.frames) &&
           client.GetSignSchedSeq(sign, &status.schedule, nullptr, nullptr) &&
           client.GetDefaultSeqFlag(sign, &status.defaultPlays);
}

/// One sign window.
struct WindowState {
    std::int32_t open = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::string shows;
};

QJsonObject ToJson(std::uint32_t number, const WindowState* window) {
    QJsonObject object{{QStringLiteral("window"), static_cast<qint64>(number)}};
    if (window) {
        object.insert(QStringLiteral("open"), window->open != 0);
        object.insert(QStringLiteral("row"), window->row);
        object.insert(QStringLiteral("column"), window->column);
        object.insert(QStringLiteral("shows"), QString::fromStdString(window->shows));
    }
    return object;
}

}  // namespace

CommandText StatusCommand::Text() const {
    return {"status", "Show what a sign does",
            "  k4ctl status Ticker\n"
            "  k4ctl status -s \"North Tower\" Weather --json\n"};
}

void StatusCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    SignStatus status;
    if (!Read(client, Sign(), status)) {
        Refused(client, answer);
        return;
    }
    Table table = Facts();
    table.Add({"State", status.state});
    table.Add({"Sequence", status.sequence});
    table.Add({"Schedule", status.schedule});
    table.Add({"Frame", std::to_string(status.frame) + " of " + std::to_string(status.frames)});
    table.Add({"Mode", ModeName(status.mode)});
    table.Add({"Param", std::to_string(status.param)});
    table.Add({"Default plays", status.defaultPlays ? "yes" : "no"});
    answer.Say(table);

    QJsonObject& json = answer.json;
    json.insert(QStringLiteral("state"), QString::fromStdString(status.state));
    json.insert(QStringLiteral("sequence"), QString::fromStdString(status.sequence));
    json.insert(QStringLiteral("schedule"), QString::fromStdString(status.schedule));
    json.insert(QStringLiteral("frame"), static_cast<qint64>(status.frame));
    json.insert(QStringLiteral("frames"), static_cast<qint64>(status.frames));
    json.insert(QStringLiteral("mode"), ModeJson(status.mode));
    json.insert(QStringLiteral("param"), static_cast<qint64>(status.param));
    json.insert(QStringLiteral("defaultPlays"), status.defaultPlays != 0);
}

CommandText ConfigCommand::Text() const {
    return {"config", "Show a sign's size, technologies and dimming",
            "  k4ctl config Ticker\n"
            "  k4ctl config Ticker --json\n"};
}

void ConfigCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    SignConfig config;
    if (!config.Read(client, Sign())) {
        Refused(client, answer);
        return;
    }
    Table table = Facts();
    table.Add({"Rows", std::to_string(config.rows)});
    table.Add({"Columns", std::to_string(config.columns)});
    table.Add({"Color", config.ColorText()});
    table.Add({"Pixel", config.PixelText()});
    table.Add({"Dimming", DimmingName(config.dimMode)});
    table.Add({"Level", std::to_string(config.dimLevel)});
    table.Add({"Photocell offset", std::to_string(config.photocellOffset)});
    answer.Say(table);
    config.AddTo(answer.json);
}

CommandText WindowsCommand::Text() const {
    return {"windows", "Show a sign's windows",
            "  k4ctl windows Ticker\n"
            "  k4ctl windows Ticker --json\n"};
}

void WindowsCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    Table table({{"WINDOW", Table::Align::Right},
                 {"STATE"},
                 {"ROW", Table::Align::Right},
                 {"COLUMN", Table::Align::Right},
                 {"SHOWS"}});
    QJsonArray windows;
    for (std::uint32_t number = 1; number <= K4_MAX_SIGN_WINDOWS; ++number) {
        WindowState window;
        if (client.GetWindowState(Sign(), number, &window.open, &window.row, &window.column,
                                  &window.shows)) {
            table.Add({std::to_string(number), window.open ? "open" : "closed",
                       std::to_string(window.row), std::to_string(window.column), window.shows});
            windows.append(ToJson(number, &window));
        } else if (client.GetLastError().empty()) {
            // The reply doesn't hold this window, or holds it in part.
            table.Add({std::to_string(number), "-", "-", "-", "-"});
            windows.append(ToJson(number, nullptr));
        } else {
            Refused(client, answer);
            return;
        }
    }
    answer.Say(table);
    answer.json.insert(QStringLiteral("windows"), windows);
}

}  // namespace k4ctl

#include "apps/k4ctl/QueueCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <vector>

#include "apps/k4ctl/Names.h"

namespace k4ctl {
namespace {

/// A queue's reply holds no more than 1024 bytes, and an entry takes two of them at least.
constexpr std::uint32_t kMostEntries = 512;

/// A row or column of a queued move counts from 0; people count from 1.
std::int64_t FromOne(std::uint32_t place) {
    return std::int64_t{place} + 1;
}

std::vector<std::string> ToCells(const K4_DISPLAY_QUEUE& entry) {
    switch (entry.dwType) {
        case K4_QUEUE_SEQUENCE:
            return {"play", entry.sequence.szSequence, ModeName(entry.sequence.ePlayMode),
                    std::to_string(entry.sequence.dwPlayParam)};
        case K4_QUEUE_WINDOW_ENABLE:
            return {entry.window.bOpen ? "open" : "close", "", "", "",
                    std::to_string(entry.window.dwWindow)};
        case K4_QUEUE_WINDOW_MOVE:
            return {"move",
                    "",
                    "",
                    "",
                    std::to_string(entry.window.dwWindow),
                    std::to_string(FromOne(entry.window.dwRow)),
                    std::to_string(FromOne(entry.window.dwCol))};
        default:
            return {"unknown"};
    }
}

QJsonObject ToJson(const K4_DISPLAY_QUEUE& entry) {
    const QString action = QStringLiteral("action");
    const QString window = QStringLiteral("window");
    switch (entry.dwType) {
        case K4_QUEUE_SEQUENCE:
            return {{action, QStringLiteral("play")},
                    {QStringLiteral("sequence"), QString::fromUtf8(entry.sequence.szSequence)},
                    {QStringLiteral("mode"), ModeJson(entry.sequence.ePlayMode)},
                    {QStringLiteral("param"), static_cast<qint64>(entry.sequence.dwPlayParam)}};
        case K4_QUEUE_WINDOW_ENABLE:
            return {{action, entry.window.bOpen ? QStringLiteral("open") : QStringLiteral("close")},
                    {window, static_cast<qint64>(entry.window.dwWindow)}};
        case K4_QUEUE_WINDOW_MOVE:
            return {{action, QStringLiteral("move")},
                    {window, static_cast<qint64>(entry.window.dwWindow)},
                    {QStringLiteral("row"), static_cast<qint64>(FromOne(entry.window.dwRow))},
                    {QStringLiteral("column"), static_cast<qint64>(FromOne(entry.window.dwCol))}};
        default:
            return {{action, QStringLiteral("unknown")}};
    }
}

}  // namespace

CommandText QueueCommand::Text() const {
    return {"queue", "Show or change a sign's display queue",
            "  k4ctl queue Ticker\n"
            "  k4ctl queue Ticker --add 'A:\\Goal.SQ4' --mode num-times --param 3\n"
            "  k4ctl queue Ticker --next\n"
            "  k4ctl queue Ticker --clear\n"};
}

void QueueCommand::AddFurtherArguments(CLI::App& app) {
    app.add_option_function<std::string>(
           "--add",
           [this](const std::string& text) {
               m_file = text;
               m_add = true;
           },
           "Put a sequence behind the queue")
        ->type_name("FILE");
    m_how.AddTo(app);
    app.add_flag("--next", m_next, "Go on to the queue's next item");
    app.add_flag("--clear", m_clear, "Empty the queue");
    app.callback([this] {
        if (int{m_add} + int{m_next} + int{m_clear} > 1) {
            throw CLI::ValidationError("queue", "--add, --next and --clear exclude one another");
        }
        if (m_how.given && !m_add) {
            throw CLI::ValidationError("queue", "--mode and --param go with --add");
        }
    });
}

void QueueCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    if (m_add) {
        Finish(client.QueueSequence(Sign(), m_file, m_how.mode, m_how.param), client,
               "queued " + m_file, answer);
    } else if (m_next) {
        Finish(client.NextItem(Sign()), client, "next item", answer);
    } else if (m_clear) {
        Finish(client.ClearQueue(Sign()), client, "queue cleared", answer);
    } else {
        Show(client, answer);
    }
}

void QueueCommand::Show(CK4CmnSS& client, Answer& answer) const {
    std::vector<K4_DISPLAY_QUEUE> entries(kMostEntries, K4_DISPLAY_QUEUE{});
    const int count = client.GetQueue(Sign(), entries.data(), kMostEntries);
    if (count == 0 && !client.GetLastError().empty()) {
        Refused(client, answer);
        return;
    }
    entries.resize(static_cast<std::size_t>(count));

    Table table({{"NO", Table::Align::Right},
                 {"ACTION"},
                 {"SEQUENCE"},
                 {"MODE"},
                 {"PARAM", Table::Align::Right},
                 {"WINDOW", Table::Align::Right},
                 {"ROW", Table::Align::Right},
                 {"COLUMN", Table::Align::Right}});
    QJsonArray queue;
    for (const K4_DISPLAY_QUEUE& entry : entries) {
        std::vector<std::string> cells = ToCells(entry);
        cells.insert(cells.begin(), std::to_string(queue.size() + 1));
        table.Add(std::move(cells));
        queue.append(ToJson(entry));
    }
    if (table.IsEmpty()) {
        answer.Say("The queue is empty.");
    } else {
        answer.Say(table);
    }
    answer.json.insert(QStringLiteral("queue"), queue);
}

}  // namespace k4ctl

#include "suite/signservice/SignState.h"

#include <QByteArray>
#include <QJsonArray>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "suite/signservice/FileNames.h"
#include "suite/signservice/Schedule.h"
#include "suite/signservice/SignWindows.h"

namespace k4suite {

namespace {

constexpr int kFormat = 1;
constexpr double kWordMax = std::numeric_limits<std::uint32_t>::max();
constexpr double kSignedMin = std::numeric_limits<std::int32_t>::min();
constexpr double kSignedMax = std::numeric_limits<std::int32_t>::max();
/// Numbers in JSON are exact up to here.
constexpr double kTimeMax = 9007199254740991.0;

struct StateName {
    PlayState state;
    const char* name;
};

constexpr StateName kStates[] = {
    {PlayState::Playing, "playing"},
    {PlayState::Stopped, "stopped"},
    {PlayState::Step, "step"},
    {PlayState::Blank, "blank"},
};

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QJsonObject OrderToJson(const PlayOrder& order) {
    return {{QStringLiteral("sequence"), Text(order.sequence)},
            {QStringLiteral("mode"), static_cast<int>(order.mode)},
            {QStringLiteral("param"), static_cast<double>(order.param)}};
}

QJsonObject EntryToJson(const QueueEntry& entry) {
    if (const auto* order = std::get_if<PlayOrder>(&entry)) {
        QJsonObject json = OrderToJson(*order);
        json.insert(QStringLiteral("type"), static_cast<int>(K4_QUEUE_SEQUENCE));
        return json;
    }
    if (const auto* enable = std::get_if<QueuedEnable>(&entry))
        return {{QStringLiteral("type"), static_cast<int>(K4_QUEUE_WINDOW_ENABLE)},
                {QStringLiteral("window"), static_cast<int>(enable->window)},
                {QStringLiteral("open"), enable->open}};
    const auto& move = std::get<QueuedMove>(entry);
    return {{QStringLiteral("type"), static_cast<int>(K4_QUEUE_WINDOW_MOVE)},
            {QStringLiteral("window"), static_cast<int>(move.window)},
            {QStringLiteral("row"), move.row},
            {QStringLiteral("column"), move.column}};
}

QJsonObject WindowToJson(const KeptWindow& window) {
    return {{QStringLiteral("sign"), Text(window.sign)},
            {QStringLiteral("open"), window.open},
            {QStringLiteral("row"), window.row},
            {QStringLiteral("column"), window.column}};
}

double Milliseconds(TimePoint instant) {
    return static_cast<double>(instant.time_since_epoch().count());
}

QJsonObject PlayingToJson(const PlayPosition& position) {
    const auto* state = std::find_if(std::begin(kStates), std::end(kStates),
                                     [&](const auto& row) { return row.state == position.state; });
    QJsonObject json = OrderToJson(position.order);
    json.insert(QStringLiteral("state"), QLatin1String(state->name));
    json.insert(QStringLiteral("started"), Milliseconds(position.started));
    json.insert(QStringLiteral("frame"), static_cast<double>(position.frame));
    json.insert(QStringLiteral("default"), position.isDefault);
    return json;
}

QJsonObject ScheduleToJson(const RunningSchedule& schedule) {
    const QByteArray bytes(reinterpret_cast<const char*>(schedule.bytes.data()),
                           static_cast<qsizetype>(schedule.bytes.size()));
    return {{QStringLiteral("file"), Text(schedule.file)},
            {QStringLiteral("bytes"), QLatin1String(bytes.toBase64())},
            {QStringLiteral("done"), Milliseconds(schedule.done)}};
}

// Reading. A value of another type counts as one that isn't there.

double Number(const QJsonObject& json, const QString& key, double lowest, double highest,
              double otherwise) {
    const double number = json.value(key).toDouble(otherwise);
    return std::isfinite(number) ? std::clamp(std::trunc(number), lowest, highest) : otherwise;
}

std::int32_t Signed(const QJsonObject& json, const QString& key) {
    return static_cast<std::int32_t>(Number(json, key, kSignedMin, kSignedMax, 0));
}

std::uint32_t Word(const QJsonObject& json, const QString& key) {
    return static_cast<std::uint32_t>(Number(json, key, 0, kWordMax, 0));
}

/// Milliseconds since 1970; where there are none, the end of all time.
TimePoint Instant(const QJsonObject& json, const QString& key) {
    return TimePoint(std::chrono::milliseconds(
        static_cast<std::int64_t>(Number(json, key, 0, kTimeMax, kTimeMax))));
}

/// A name that can stand in replies; empty if it isn't one.
std::string Name(const QJsonObject& json, const QString& key) {
    std::string name = json.value(key).toString().toStdString();
    return IsFileName(name) ? name : std::string();
}

std::optional<PlayOrder> OrderFromJson(const QJsonObject& json) {
    PlayOrder order;
    order.sequence = Name(json, QStringLiteral("sequence"));
    if (order.sequence.empty())
        return std::nullopt;
    order.mode = static_cast<tag_K4_PLAY_SEQ_MODE>(
        Number(json, QStringLiteral("mode"), 0, K4_PLAY_SEQ_LAST, K4_PLAY_SEQ_CONTINUOUS));
    order.param = Word(json, QStringLiteral("param"));
    return order;
}

Dimming DimmingFromJson(const QJsonObject& json) {
    Dimming dimming;
    if (json.contains(QStringLiteral("level")))
        dimming.Set(K4_SIGN_DIM_MANUAL,
                    static_cast<std::int32_t>(Number(json, QStringLiteral("level"), kSignedMin,
                                                     kSignedMax, K4_DIM_LEVEL_MAX)));
    dimming.Set(K4_SIGN_DIM_PHOTOCELL, Signed(json, QStringLiteral("offset")));
    const auto mode =
        static_cast<tag_K4_SIGN_DIM_MODE>(Number(json, QStringLiteral("mode"), K4_SIGN_DIM_MANUAL_0,
                                                 K4_SIGN_DIM_MANUAL, K4_SIGN_DIM_MANUAL));
    // Setting the mode once more must bring back the value that goes with it.
    dimming.Set(mode, mode == K4_SIGN_DIM_MANUAL ? dimming.Level() : dimming.Offset());
    return dimming;
}

std::optional<QueueEntry> EntryFromJson(const QJsonObject& json) {
    const std::uint32_t type = Word(json, QStringLiteral("type"));
    if (type == K4_QUEUE_SEQUENCE) {
        std::optional<PlayOrder> order = OrderFromJson(json);
        return order ? std::optional<QueueEntry>(*order) : std::nullopt;
    }
    const std::uint32_t window = Word(json, QStringLiteral("window"));
    if (!SignWindows::IsWindow(window))
        return std::nullopt;
    if (type == K4_QUEUE_WINDOW_ENABLE)
        return QueuedEnable{window, json.value(QStringLiteral("open")).toBool()};
    if (type == K4_QUEUE_WINDOW_MOVE)
        return QueuedMove{window, Signed(json, QStringLiteral("row")),
                          Signed(json, QStringLiteral("column"))};
    return std::nullopt;
}

std::optional<PlayPosition> PlayingFromJson(const QJsonObject& json) {
    const std::optional<PlayOrder> order = OrderFromJson(json);
    if (!order)
        return std::nullopt;
    PlayPosition position;
    position.order = *order;
    const QString name = json.value(QStringLiteral("state")).toString();
    for (const StateName& row : kStates)
        if (name == QLatin1String(row.name))
            position.state = row.state;
    position.started = Instant(json, QStringLiteral("started"));
    position.frame = Word(json, QStringLiteral("frame"));
    position.isDefault = json.value(QStringLiteral("default")).toBool();
    return position;
}

std::optional<RunningSchedule> ScheduleFromJson(const QJsonObject& json) {
    RunningSchedule schedule;
    schedule.file = Name(json, QStringLiteral("file"));
    if (schedule.file.empty())
        return std::nullopt;
    const QByteArray bytes =
        QByteArray::fromBase64(json.value(QStringLiteral("bytes")).toString().toLatin1());
    const auto kept = std::min(static_cast<std::size_t>(bytes.size()), kLongestSchedule);
    schedule.bytes.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(kept));
    schedule.done = Instant(json, QStringLiteral("done"));
    return schedule;
}

KeptWindow WindowFromJson(const QJsonObject& json) {
    return {Name(json, QStringLiteral("sign")), json.value(QStringLiteral("open")).toBool(),
            Signed(json, QStringLiteral("row")), Signed(json, QStringLiteral("column"))};
}

}  // namespace

QJsonObject ToJson(const SignKept& kept) {
    QJsonArray windows;
    for (const KeptWindow& window : kept.windows)
        windows.append(WindowToJson(window));
    QJsonArray queue;
    for (const QueueEntry& entry : kept.queue)
        queue.append(EntryToJson(entry));
    QJsonObject json{
        {QStringLiteral("format"), kFormat},
        {QStringLiteral("dimming"),
         QJsonObject{{QStringLiteral("mode"), static_cast<int>(kept.dimming.Mode())},
                     {QStringLiteral("level"), kept.dimming.Level()},
                     {QStringLiteral("offset"), kept.dimming.Offset()}}},
        {QStringLiteral("windows"), windows},
        {QStringLiteral("queue"), queue},
        {QStringLiteral("default"), OrderToJson(kept.defaultOrder)},
    };
    if (kept.playing)
        json.insert(QStringLiteral("playing"), PlayingToJson(*kept.playing));
    if (kept.schedule)
        json.insert(QStringLiteral("schedule"), ScheduleToJson(*kept.schedule));
    return json;
}

SignKept FromJson(const QJsonObject& json) {
    SignKept kept;
    kept.dimming = DimmingFromJson(json.value(QStringLiteral("dimming")).toObject());
    const QJsonArray windows = json.value(QStringLiteral("windows")).toArray();
    const auto count = std::min<qsizetype>(windows.size(), K4_MAX_SIGN_WINDOWS);
    for (qsizetype window = 0; window < count; ++window)
        kept.windows[static_cast<std::size_t>(window)] =
            WindowFromJson(windows.at(window).toObject());
    const QJsonArray queue = json.value(QStringLiteral("queue")).toArray();
    for (const auto& value : queue) {
        const std::optional<QueueEntry> entry = EntryFromJson(value.toObject());
        if (entry && kept.queue.size() < DisplayQueue::kMost)
            kept.queue.push_back(*entry);
    }
    if (const auto order = OrderFromJson(json.value(QStringLiteral("default")).toObject()))
        kept.defaultOrder = *order;
    kept.playing = PlayingFromJson(json.value(QStringLiteral("playing")).toObject());
    kept.schedule = ScheduleFromJson(json.value(QStringLiteral("schedule")).toObject());
    return kept;
}

}  // namespace k4suite

#pragma once

#include <QJsonObject>

#include "suite/signservice/SignKept.h"

namespace k4suite {

/// What a sign keeps, as JSON.
/// - format: 1.
/// - dimming: mode, level, offset.
/// - windows: 16 times sign, open, row, column.
/// - queue: entries; type 1 with sequence, mode, param; type 2 with window, open; type 3 with
///   window, row, column.
/// - default: sequence, mode, param.
/// - playing: sequence, mode, param; state ("playing", "stopped", "step", "blank"), started
///   (milliseconds since 1970), frame (from 0), default.
/// - schedule: file, bytes (base64), done (milliseconds since 1970: up to when entries have been
///   carried out); absent when none runs.
QJsonObject ToJson(const SignKept& kept);

/// The reverse. Whatever is missing, of another type or out of range becomes the nearest thing that
/// a sign can have: numbers are clamped, entries that make no sense are left out, further ones
/// dropped.
SignKept FromJson(const QJsonObject& json);

}  // namespace k4suite

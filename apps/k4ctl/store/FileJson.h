#pragma once

#include <QJsonObject>
#include <cstdint>
#include <string>

namespace k4ctl {

/// A file of the store for machines: "path", "size" in bytes, "type" and "modified", which is UTC
/// to the second.
/// @param type as a list shows it. @param modified seconds since 1970 (UTC).
QJsonObject FileJson(const std::string& path, std::uint64_t size, const std::string& type,
                     std::int64_t modified);

}  // namespace k4ctl

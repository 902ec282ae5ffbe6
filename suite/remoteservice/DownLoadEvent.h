#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace k4suite {

/// A download file that is to be carried out once, at a local time.
struct DownLoadEvent {
    std::string path;
    int year = 0;  ///< in full, from 1
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;

    bool operator==(const DownLoadEvent&) const = default;
};

/// An event from the words that k4rsAddDownLoadEvent() takes.
/// @return nothing if there is no such time on any day, or the path is empty.
std::optional<DownLoadEvent> DownLoadEventOf(std::string_view path, std::uint32_t time,
                                             std::uint32_t date);

/// The time of an event, as "2027-01-15 08:05".
std::string WhenText(const DownLoadEvent& event);
/// An event from the text of its time.
/// @return nothing if the text isn't one that WhenText() gives, or the path is empty.
std::optional<DownLoadEvent> DownLoadEventAt(std::string_view path, const std::string& when);

}  // namespace k4suite

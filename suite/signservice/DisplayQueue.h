#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <variant>

#include "suite/signservice/PlayOrder.h"

namespace k4suite {

/// A queued opening or closing of a window.
struct QueuedEnable {
    std::uint32_t window = 1;
    bool open = false;
};

/// A queued move of a window. Row and column count from 0.
struct QueuedMove {
    std::uint32_t window = 1;
    std::int32_t row = 0;
    std::int32_t column = 0;
};

using QueueEntry = std::variant<PlayOrder, QueuedEnable, QueuedMove>;

/// What a sign is to do next, in order.
class DisplayQueue {
 public:
    /// The most entries; a longer queue is refused.
    static constexpr std::size_t kMost = 64;

    /// @return false if the queue is full.
    bool Add(QueueEntry entry);
    /// Takes the first entry away. @return nothing if there is none.
    std::optional<QueueEntry> Take();
    /// @return false if it was empty already.
    bool Clear();

    const std::deque<QueueEntry>& Entries() const { return m_entries; }

    /// One line an entry: the tag and its fields, separated by tabs.
    std::string Text() const;

 private:
    std::deque<QueueEntry> m_entries;
};

}  // namespace k4suite

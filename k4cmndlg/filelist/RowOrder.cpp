#include "k4cmndlg/filelist/RowOrder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <numeric>
#include <string_view>
#include <utility>

#include "k4cmndlg/filelist/TextOrder.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

using Order = std::vector<std::size_t>;

Order PresentOrder(std::size_t count) {
    Order order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    return order;
}

/// The days from 1970 on; months out of 1 to 12 and days out of their month count on.
std::int64_t DayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
    month -= 1;
    year += month / 12;
    month %= 12;
    if (month < 0) {
        month += 12;
        --year;
    }
    // Years that begin in March end with the leap day.
    const std::int64_t shifted = month < 2 ? year - 1 : year;
    const std::int64_t fromMarch = (month + 10) % 12;
    const std::int64_t era = (shifted >= 0 ? shifted : shifted - 399) / 400;
    const std::int64_t yearOfEra = shifted - era * 400;
    const std::int64_t dayOfYear = (153 * fromMarch + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

/// A date as minutes: by what its missing pieces count for where it stands first, and where second.
/// Of two, the first goes behind the second if its `first` is above the other's `second`.
struct DateKey {
    std::int64_t first;
    std::int64_t second;
};

std::int64_t Minutes(const std::array<std::int64_t, 5>& pieces) {
    const auto [month, day, year, hour, minute] = pieces;
    return (DayNumber(year + 1900, month, day) * 24 + hour) * 60 + minute;
}

DateKey KeyOf(std::string_view text) {
    constexpr std::string_view kCuts = "/ :";
    std::array<std::int64_t, 5> first;
    std::array<std::int64_t, 5> second;
    first.fill(1);
    second.fill(2);
    for (std::size_t i = 0; i < first.size(); ++i) {
        text.remove_prefix(std::min(text.find_first_not_of(kCuts), text.size()));
        if (text.empty())
            break;
        const std::size_t end = std::min(text.find_first_of(kCuts), text.size());
        first[i] = second[i] = LeadingNumber(text.substr(0, end));
        text.remove_prefix(end);
    }
    return {Minutes(first), Minutes(second)};
}

/// Gives dates that are neither before nor behind each other the same rank.
/// @return whether that tells all of the order: it doesn't where a date with missing pieces lies
///         between two that don't lie with each other.
bool Rank(const std::vector<DateKey>& keys, std::vector<std::size_t>& ranks) {
    Order byFirst = PresentOrder(keys.size());
    std::sort(byFirst.begin(), byFirst.end(),
              [&](std::size_t a, std::size_t b) { return keys[a].first < keys[b].first; });
    std::size_t rank = 0;
    std::int64_t lowestSecond = 0;
    std::int64_t highestSecond = 0;
    bool isFirst = true;
    for (const std::size_t row : byFirst) {
        const DateKey& key = keys[row];
        if (isFirst || key.first > highestSecond) {
            ++rank;
            lowestSecond = highestSecond = key.second;
            isFirst = false;
        } else if (key.first > lowestSecond) {
            return false;
        }
        lowestSecond = std::min(lowestSecond, key.second);
        highestSecond = std::max(highestSecond, key.second);
        ranks[row] = rank;
    }
    return true;
}

/// Neighbour by neighbour: for dates that no rank tells the order of.
void ExchangeNeighbours(const std::vector<DateKey>& keys, Order& order) {
    for (std::size_t settled = 0; settled < order.size(); ++settled) {
        for (std::size_t at = 0; at + 1 < order.size() - settled; ++at) {
            if (keys[order[at]].first > keys[order[at + 1]].second)
                std::swap(order[at], order[at + 1]);
        }
    }
}

}  // namespace

namespace {

/// A text of SizeText(), packed so that keys compare as the texts do.
using SizeKey = std::array<std::uint64_t, 3>;

SizeKey KeyOfSize(std::uint64_t bytes) {
    constexpr std::size_t kLeastDigits = 5;
    std::array<char, 24> text{};
    std::array<char, 20> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), bytes / 1024).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    const std::size_t blanks = kLeastDigits - std::min(count, kLeastDigits);
    std::fill_n(text.begin(), blanks, ' ');
    std::copy_n(digits.begin(), count, text.begin() + static_cast<std::ptrdiff_t>(blanks));
    std::copy_n(" KB", 3, text.begin() + static_cast<std::ptrdiff_t>(blanks + count));
    SizeKey key{};
    for (std::size_t i = 0; i < text.size(); ++i)
        key[i / 8] = key[i / 8] << 8 | static_cast<unsigned char>(text[i]);
    return key;
}

/// Sorts rows by a key of each; equal ones keep their order.
template <class Key>
Order OrderByKey(const std::vector<Key>& keys, bool ascending) {
    std::vector<std::pair<Key, std::size_t>> rows;
    rows.reserve(keys.size());
    for (std::size_t row = 0; row < keys.size(); ++row)
        rows.emplace_back(keys[row], row);
    if (ascending)
        std::sort(rows.begin(), rows.end());
    else
        std::sort(rows.begin(), rows.end(), [](const auto& one, const auto& other) {
            return one.first != other.first ? one.first > other.first : one.second < other.second;
        });
    Order order;
    order.reserve(rows.size());
    for (const auto& [key, row] : rows)
        order.push_back(row);
    return order;
}

}  // namespace

Order OrderBySize(const std::vector<std::uint64_t>& sizes, bool ascending) {
    std::vector<SizeKey> keys;
    keys.reserve(sizes.size());
    for (const std::uint64_t size : sizes)
        keys.push_back(KeyOfSize(size));
    return OrderByKey(keys, ascending);
}

Order OrderByTime(const std::vector<std::int64_t>& times) {
    std::vector<std::int64_t> keys;
    keys.reserve(times.size());
    for (const std::int64_t time : times) {
        const std::tm local = LocalTime(time);
        const int hour = local.tm_hour % 12 == 0 ? 12 : local.tm_hour % 12;
        const int year = ((local.tm_year + 1900) % 100 + 100) % 100;
        keys.push_back(Minutes({local.tm_mon + 1, local.tm_mday, year, hour, local.tm_min}));
    }
    return OrderByKey(keys, true);
}

Order OrderByText(const std::vector<std::string>& texts, bool ascending) {
    return OrderOfTexts({texts.begin(), texts.end()}, ascending);
}

Order OrderByDate(const std::vector<std::string>& texts, bool ascending) {
    Order order = PresentOrder(texts.size());
    if (!ascending) {
        std::reverse(order.begin(), order.end());
        return order;
    }
    std::vector<DateKey> keys;
    keys.reserve(texts.size());
    for (const std::string& text : texts)
        keys.push_back(KeyOf(text));
    std::vector<std::size_t> ranks(keys.size());
    if (Rank(keys, ranks))
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return ranks[a] < ranks[b]; });
    else
        ExchangeNeighbours(keys, order);
    return order;
}

}  // namespace k4cmn

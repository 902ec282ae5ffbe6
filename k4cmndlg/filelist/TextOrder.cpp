#include "k4cmndlg/filelist/TextOrder.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>

#include "k4cmndlg/filestore/Characters.h"

namespace k4cmn {

namespace {

/// Sorts by eight bytes at a time: each step looks at the bytes of a text once and compares numbers
/// from there on, and those that are still alike are sorted by the next eight.
class TextOrder {
 public:
    TextOrder(const std::vector<std::string_view>& texts, bool ascending)
        : m_isAscending(ascending) {
        m_begins.reserve(texts.size() + 1);
        for (const std::string_view text : texts) {
            m_begins.push_back(m_bytes.size());
            AppendWithoutCase(text);
        }
        m_begins.push_back(m_bytes.size());
        m_keys.resize(texts.size());
        for (std::size_t i = 0; i < m_keys.size(); ++i)
            m_keys[i].text = i;
    }

    std::vector<std::size_t> Sorted() {
        std::vector<Alike> open{{0, m_keys.size(), 0}};
        while (!open.empty()) {
            const Alike alike = open.back();
            open.pop_back();
            Sort(alike, open);
        }
        std::vector<std::size_t> order;
        order.reserve(m_keys.size());
        for (const Key& key : m_keys)
            order.push_back(key.text);
        return order;
    }

 private:
    static constexpr std::size_t kStep = 8;

    struct Key {
        std::uint64_t bytes = 0;  ///< the next ones; what is missing is 0
        std::uint64_t text = 0;   ///< its number, and from kCountShift on how many bytes there are
    };
    static constexpr int kCountShift = 56;
    static constexpr std::uint64_t kMore = kStep + 1;  ///< in place of the count: and others behind

    /// Texts that have their first bytes in common.
    struct Alike {
        std::size_t begin;  ///< among the keys
        std::size_t end;
        std::size_t depth;  ///< how many bytes
    };

    void AppendWithoutCase(std::string_view text) {
        const std::size_t begin = m_bytes.size();
        for (const char byte : text) {
            if (static_cast<unsigned char>(byte) >= 0x80) {
                m_bytes.resize(begin);
                m_bytes += WithoutCase(text);
                return;
            }
            m_bytes += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        }
    }

    void Load(Key& key, std::size_t depth) const {
        const std::size_t begin = m_begins[key.text] + depth;
        const std::size_t rest = m_begins[key.text + 1] - begin;
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < kStep; ++i)
            bytes = bytes << 8 | (i < rest ? static_cast<unsigned char>(m_bytes[begin + i]) : 0U);
        const std::uint64_t count = rest > kStep ? kMore : rest;
        key.bytes = m_isAscending ? bytes : ~bytes;
        key.text |= (m_isAscending ? count : kMore - count) << kCountShift;
    }
    bool HasMore(const Key& key) const {
        return key.text >> kCountShift == (m_isAscending ? kMore : 0);
    }

    void Sort(Alike alike, std::vector<Alike>& open) {
        const auto begin = m_keys.begin() + static_cast<std::ptrdiff_t>(alike.begin);
        const auto end = m_keys.begin() + static_cast<std::ptrdiff_t>(alike.end);
        std::for_each(begin, end, [&](Key& key) { Load(key, alike.depth); });
        // By the text's number last, which keeps equal ones in their order.
        const auto isLess = [](const Key& one, const Key& other) {
            return std::tie(one.bytes, one.text) < std::tie(other.bytes, other.text);
        };
        if (!std::is_sorted(begin, end, isLess))
            std::sort(begin, end, isLess);
        for (auto first = begin; first != end;) {
            const auto last = std::find_if(first, end, [&](const Key& key) {
                return key.bytes != first->bytes ||
                       key.text >> kCountShift != first->text >> kCountShift;
            });
            if (last - first > 1 && HasMore(*first))
                open.push_back({static_cast<std::size_t>(first - m_keys.begin()),
                                static_cast<std::size_t>(last - m_keys.begin()),
                                alike.depth + kStep});
            first = last;
        }
        std::for_each(begin, end,
                      [](Key& key) { key.text &= (std::uint64_t{1} << kCountShift) - 1; });
    }

    const bool m_isAscending;
    std::string m_bytes;  ///< of all texts, one behind the other
    std::vector<std::size_t> m_begins;
    std::vector<Key> m_keys;
};

}  // namespace

std::vector<std::size_t> OrderOfTexts(const std::vector<std::string_view>& texts, bool ascending) {
    return TextOrder(texts, ascending).Sorted();
}

}  // namespace k4cmn

#include "apps/k4ctl/sequence/PictureColors.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace k4ctl {
namespace {

/// Black takes the first entry of the table.
constexpr std::size_t kMostColors = 255;

/// One color of a picture.
struct Color {
    QRgb value = 0;
    std::uint64_t count = 0;  ///< pixels that have it

    int Channel(int shift) const { return static_cast<int>(value >> shift & 0xFF); }
};

constexpr std::array<int, 3> kShifts = {16, 8, 0};

/// Colors that may become one: a stretch of the list of all.
struct Box {
    std::size_t begin = 0;
    std::size_t end = 0;
    int shift = 0;             ///< the channel in which they differ most
    std::uint64_t spread = 0;  ///< how much it would help to tell them apart
};

/// The picture's colors gathered in boxes, the worst box cut in two until there are enough.
class Boxes {
 public:
    explicit Boxes(std::vector<Color> colors) : m_colors(std::move(colors)) {
        m_boxes.push_back(Measured(0, m_colors.size()));
        while (m_boxes.size() < kMostColors) {
            const auto worst = std::max_element(
                m_boxes.begin(), m_boxes.end(),
                [](const Box& one, const Box& other) { return one.spread < other.spread; });
            if (worst->spread == 0) {
                break;
            }
            Cut(static_cast<std::size_t>(worst - m_boxes.begin()));
        }
    }

    /// @param indexes gets the table's entry for each color of the picture.
    QList<QRgb> Table(std::unordered_map<QRgb, std::uint8_t>& indexes) const {
        QList<QRgb> table = {qRgb(0, 0, 0)};
        for (const Box& box : m_boxes) {
            for (std::size_t each = box.begin; each < box.end; ++each) {
                indexes[m_colors[each].value] = static_cast<std::uint8_t>(table.size());
            }
            table.append(MeanOf(box));
        }
        return table;
    }

 private:
    std::uint64_t CountOf(std::size_t begin, std::size_t end) const {
        std::uint64_t count = 0;
        for (std::size_t each = begin; each < end; ++each) {
            count += m_colors[each].count;
        }
        return count;
    }

    Box Measured(std::size_t begin, std::size_t end) const {
        Box box{begin, end, 0, 0};
        int widest = 0;
        for (const int shift : kShifts) {
            const auto [least, most] =
                std::minmax_element(m_colors.begin() + static_cast<std::ptrdiff_t>(begin),
                                    m_colors.begin() + static_cast<std::ptrdiff_t>(end),
                                    [shift](const Color& one, const Color& other) {
                                        return one.Channel(shift) < other.Channel(shift);
                                    });
            if (const int width = most->Channel(shift) - least->Channel(shift); width > widest) {
                widest = width;
                box.shift = shift;
            }
        }
        box.spread = static_cast<std::uint64_t>(widest) * static_cast<std::uint64_t>(widest) *
                     CountOf(begin, end);
        return box;
    }

    void Cut(std::size_t number) {
        const Box box = m_boxes[number];
        const auto begin = m_colors.begin() + static_cast<std::ptrdiff_t>(box.begin);
        const auto end = m_colors.begin() + static_cast<std::ptrdiff_t>(box.end);
        std::sort(begin, end, [&](const Color& one, const Color& other) {
            return one.Channel(box.shift) < other.Channel(box.shift);
        });
        // Half of the pixels on each side, and a color at least.
        const std::uint64_t half = CountOf(box.begin, box.end) / 2;
        std::size_t middle = box.begin + 1;
        for (std::uint64_t count = m_colors[box.begin].count; middle + 1 < box.end && count < half;
             ++middle) {
            count += m_colors[middle].count;
        }
        m_boxes[number] = Measured(box.begin, middle);
        m_boxes.push_back(Measured(middle, box.end));
    }

    QRgb MeanOf(const Box& box) const {
        std::array<std::uint64_t, 3> sums{};
        for (std::size_t each = box.begin; each < box.end; ++each) {
            for (std::size_t channel = 0; channel < sums.size(); ++channel) {
                sums[channel] +=
                    static_cast<std::uint64_t>(m_colors[each].Channel(kShifts[channel])) *
                    m_colors[each].count;
            }
        }
        const std::uint64_t count = CountOf(box.begin, box.end);
        const auto mean = [&](std::uint64_t sum) {
            return static_cast<int>((sum + count / 2) / count);
        };
        return qRgb(mean(sums[0]), mean(sums[1]), mean(sums[2]));
    }

    std::vector<Color> m_colors;
    std::vector<Box> m_boxes;
};

std::vector<Color> ColorsOf(const QImage& picture) {
    std::unordered_map<QRgb, std::uint64_t> counts;
    for (int row = 0; row < picture.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(row));
        for (int column = 0; column < picture.width(); ++column) {
            ++counts[line[column] | 0xFF000000U];
        }
    }
    counts.erase(qRgb(0, 0, 0));
    std::vector<Color> colors;
    for (const auto& [value, count] : counts) {
        colors.push_back({value, count});
    }
    // The same picture has the same table, whatever the order of the map.
    std::sort(colors.begin(), colors.end(),
              [](const Color& one, const Color& other) { return one.value < other.value; });
    return colors;
}

}  // namespace

QImage WithColorTable(const QImage& picture) {
    if (picture.isNull() || picture.format() == QImage::Format_Indexed8) {
        return picture;
    }
    const QImage source = picture.convertToFormat(QImage::Format_RGB32);
    QImage indexed(source.size(), QImage::Format_Indexed8);
    std::unordered_map<QRgb, std::uint8_t> indexes = {{qRgb(0, 0, 0), 0}};
    const std::vector<Color> colors = ColorsOf(source);
    indexed.setColorTable(colors.empty() ? QList<QRgb>{qRgb(0, 0, 0)}
                                         : Boxes(colors).Table(indexes));
    for (int row = 0; row < source.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(source.constScanLine(row));
        uchar* out = indexed.scanLine(row);
        for (int column = 0; column < source.width(); ++column) {
            out[column] = indexes.at(line[column] | 0xFF000000U);
        }
    }
    return indexed;
}

}  // namespace k4ctl

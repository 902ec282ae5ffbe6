#include "apps/k4ctl/sequence/SequenceWords.h"

#include <QStringDecoder>
#include <array>
#include <limits>
#include <span>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/Names.h"
#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"

namespace k4ctl {
namespace {

constexpr std::size_t kLongestText = 255;  // characters, as in the fields where people edit them

struct NamedNumber {
    const char* name;
    std::uint32_t value;
};

constexpr std::array<NamedNumber, 3> kLevels = {{
    {"none", K4_COMPRESS_NONE},
    {"low", K4_COMPRESS_LOW},
    {"medium", K4_COMPRESS_MEDIUM},
}};

constexpr std::array<NamedNumber, 3> kGraphicTypes = {{
    {"graphic", k4cmn::kGraphicFrame},
    {"data", k4cmn::kDataFrame},
    {"text", k4cmn::kTextFrame},
}};

constexpr std::array<NamedNumber, 3> kMethods = {{
    {"none", K4_BULB_COMPRESS_NONE},
    {"runs", K4_BULB_COMPRESS_RUNS},
    {"deflate", K4_BULB_COMPRESS_DEFLATE},
}};

std::string NameIn(std::span<const NamedNumber> rows, std::uint32_t value) {
    for (const NamedNumber& row : rows) {
        if (row.value == value) {
            return row.name;
        }
    }
    return {};
}

const NamedNumber* RowIn(std::span<const NamedNumber> rows, const std::string& name) {
    for (const NamedNumber& row : rows) {
        if (SameWord(name, row.name)) {
            return &row;
        }
    }
    return nullptr;
}

std::string NameOrNumber(std::string_view name, std::uint32_t number) {
    return name.empty() ? std::to_string(number) : std::string(name);
}

/// A value from `first` to `last` by its name or its number.
template <class Value, class NameOf>
int ParseNamed(const std::string& text, const char* what, int first, int last, NameOf nameOf,
               Value& value, std::string& problem) {
    std::string names;
    for (int number = first; number <= last; ++number) {
        const std::string name(nameOf(static_cast<Value>(number)));
        if (SameWord(text, name)) {
            value = static_cast<Value>(number);
            return 1;
        }
        names += (names.empty() ? "" : ", ") + name;
    }
    std::int64_t number = 0;
    if (!ParseNumber(text, first, last, number, problem)) {
        problem = k4cmn::Format("\"%s\" is no %s; they are %s, or a number from %d to %d",
                                text.c_str(), what, names.c_str(), first, last);
        return 0;
    }
    value = static_cast<Value>(number);
    return 1;
}

int ParseRange(const std::string& text, std::uint32_t least, std::uint32_t most,
               std::uint32_t& value, std::string& problem) {
    std::int64_t number = 0;
    if (!ParseNumber(text, least, most, number, problem)) {
        return 0;
    }
    value = static_cast<std::uint32_t>(number);
    return 1;
}

}  // namespace

int ParseSignSize(const std::string& text, SignSize& size, std::string& problem) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
    const std::size_t cross = text.find_first_of("xX");
    std::int64_t rows = 0;
    std::int64_t columns = 0;
    if (cross == std::string::npos ||
        !ParseNumber(text.substr(0, cross), 0, kMost, rows, problem) ||
        !ParseNumber(text.substr(cross + 1), 0, kMost, columns, problem)) {
        problem =
            k4cmn::Format("\"%s\" is no size; a size is ROWSxCOLUMNS, as 64x192", text.c_str());
        return 0;
    }
    size = {static_cast<std::uint32_t>(rows), static_cast<std::uint32_t>(columns)};
    return 1;
}

int ParseRows(const std::string& text, std::uint32_t& rows, std::string& problem) {
    return ParseRange(text, k4cmn::kMinSignRows, k4cmn::kMaxSignRows, rows, problem);
}

int ParseColumns(const std::string& text, std::uint32_t& columns, std::string& problem) {
    return ParseRange(text, k4cmn::kMinSignColumns, k4cmn::kMaxSignColumns, columns, problem);
}

int ParseColor(const std::string& text, tag_K4_SIGN_COLOR& color, std::string& problem) {
    return ParseNamed(text, "color technology", 0, k4cmn::kSignColorCount - 1,
                      k4cmn::ColorShortName, color, problem);
}

int ParsePixel(const std::string& text, tag_K4_PIXEL_TECH& pixel, std::string& problem) {
    return ParseNamed(text, "pixel technology", 1, k4cmn::kPixelTechCount, k4cmn::PixelShortName,
                      pixel, problem);
}

int ParseLevel(const std::string& text, tag_K4_COMPRESS_TYPE& level, std::string& problem) {
    const NamedNumber* row = RowIn(kLevels, text);
    if (!row) {
        problem = k4cmn::Format("\"%s\" is no compression level; they are none, low and medium",
                                text.c_str());
        return 0;
    }
    level = static_cast<tag_K4_COMPRESS_TYPE>(row->value);
    return 1;
}

int ParseFrameType(const std::string& text, std::uint32_t& type, std::string& problem) {
    const NamedNumber* row = RowIn(kGraphicTypes, text);
    if (!row) {
        problem = k4cmn::Format("\"%s\" is no type of frames; they are graphic, data and text",
                                text.c_str());
        return 0;
    }
    type = row->value;
    return 1;
}

int ParseDwells(const std::string& text, std::vector<std::uint32_t>& dwells, std::string& problem) {
    std::vector<std::uint32_t> read;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(',', at), text.size());
        std::int64_t dwell = 0;
        if (!ParseNumber(text.substr(at, end - at), 1, std::numeric_limits<std::uint32_t>::max(),
                         dwell, problem)) {
            return 0;
        }
        read.push_back(static_cast<std::uint32_t>(dwell));
        at = end + 1;
    }
    dwells = std::move(read);
    return 1;
}

int ParseText(const std::string& text, std::string& value, std::string& problem) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded =
        decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    if (decoder.hasError()) {
        problem = "the text isn't UTF-8";
        return 0;
    }
    const auto length = static_cast<std::size_t>(decoded.toUcs4().size());
    if (length > kLongestText) {
        problem = k4cmn::Format("the text has %zu characters, and %zu are the most", length,
                                kLongestText);
        return 0;
    }
    value = text;
    return 1;
}

int ParseFrameRange(const std::string& text, FrameRange& range, std::string& problem) {
    constexpr std::int64_t kMost = std::numeric_limits<std::uint16_t>::max();
    if (SameWord(text, "all")) {
        range = {};
        return 1;
    }
    if (SameWord(text, "none")) {
        range = {1, 0};
        return 1;
    }
    const std::size_t hyphen = text.find('-');
    std::int64_t first = 0;
    std::int64_t last = 0;
    if (!ParseNumber(text.substr(0, hyphen), 1, kMost, first, problem) ||
        !ParseNumber(hyphen == std::string::npos ? text : text.substr(hyphen + 1), first, kMost,
                     last, problem)) {
        problem = k4cmn::Format(
            "\"%s\" are no frames; name them as 12, as 10-20, as all, or as none", text.c_str());
        return 0;
    }
    range = {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last)};
    return 1;
}

std::string ColorText(std::uint32_t color) {
    return NameOrNumber(k4cmn::ColorShortName(static_cast<tag_K4_SIGN_COLOR>(color)), color);
}

std::string PixelText(std::uint32_t pixel) {
    return NameOrNumber(k4cmn::PixelShortName(static_cast<tag_K4_PIXEL_TECH>(pixel)), pixel);
}

std::string LevelText(std::uint32_t level) {
    return NameOrNumber(NameIn(kLevels, level), level);
}

std::string FrameTypeText(std::uint32_t type) {
    return type == k4cmn::kIncludeFrame ? "include" : NameIn(kGraphicTypes, type);
}

std::string MethodText(std::uint32_t method) {
    return NameOrNumber(NameIn(kMethods, method), method);
}

std::string SecondsText(std::uint64_t milliseconds) {
    return k4cmn::Format("%.2f s", static_cast<double>(milliseconds) * 0.001);
}

std::string CountText(std::uint64_t count, const char* thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

}  // namespace k4ctl

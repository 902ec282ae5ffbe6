#include "apps/k4ctl/TerminalText.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <ostream>

namespace {

using k4ctl::DisplayWidth;
using k4ctl::Escaped;
using k4ctl::EscapedJson;

struct EscapeRow {
    const char* name;
    std::string text;
    std::string shown;
};

void PrintTo(const EscapeRow& row, std::ostream* out) {
    *out << row.name;
}

class EscapedText : public testing::TestWithParam<EscapeRow> {};

TEST_P(EscapedText, ReadsAsInTheTable) {
    EXPECT_EQ(Escaped(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, EscapedText,
    testing::Values(EscapeRow{"Empty", "", ""}, EscapeRow{"Plain", "Main Sign", "Main Sign"},
                    EscapeRow{"BackslashStays", "A:\\x", "A:\\x"},
                    EscapeRow{"LineEnds", "a\nb\r\tc", "a\\nb\\r\\tc"},
                    EscapeRow{"Escape", "\x1b[2J", "\\x1b[2J"}, EscapeRow{"Bell", "\a", "\\x07"},
                    EscapeRow{"Zero", std::string("a\0b", 3), "a\\x00b"},
                    EscapeRow{"Delete", "\x7f", "\\x7f"},
                    EscapeRow{"Umlaut", "Gr\xc3\xbc\xc3\x9f", "Gr\xc3\xbc\xc3\x9f"},
                    EscapeRow{"ControlBeyondAscii", "\xc2\x9b", "\\u009b"},
                    EscapeRow{"LastControlBeyondAscii", "\xc2\x9f", "\\u009f"},
                    EscapeRow{"NoBreakSpaceStays", "\xc2\xa0", "\xc2\xa0"},
                    EscapeRow{"LineSeparator", "\xe2\x80\xa8", "\\u2028"},
                    EscapeRow{"TurnOfDirection",
                              "a\xe2\x80\xae"
                              "b",
                              "a\\u202eb"},
                    EscapeRow{"IsolateOfDirection", "\xe2\x81\xa6", "\\u2066"},
                    EscapeRow{"LoneContinuation", "\x80", "\\x80"},
                    EscapeRow{"NoLeadByte", "\xff", "\\xff"},
                    EscapeRow{"CutAtTheEnd", "a\xe2\x82", "a\\xe2\\x82"},
                    EscapeRow{"CutByAnother", "\xe2\x82z", "\\xe2\\x82z"},
                    EscapeRow{"OverlongTwo", "\xc0\x8a", "\\xc0\\x8a"},
                    EscapeRow{"OverlongThree", "\xe0\x80\x8a", "\\xe0\\x80\\x8a"},
                    EscapeRow{"OverlongFour", "\xf0\x80\x80\x8a", "\\xf0\\x80\\x80\\x8a"},
                    EscapeRow{"Surrogate", "\xed\xa0\x80", "\\xed\\xa0\\x80"},
                    EscapeRow{"BeyondTheLast", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
                    EscapeRow{"FourBytes", "\xf0\x9f\x98\x80", "\xf0\x9f\x98\x80"}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(EscapedText, OfAnyTwoBytesHoldsNoControl) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text{static_cast<char>(first), static_cast<char>(second)};
            const std::string shown = Escaped(text);
            EXPECT_EQ(shown, Escaped(shown)) << first << " " << second;
            for (const char each : shown) {
                const auto byte = static_cast<unsigned char>(each);
                ASSERT_TRUE(byte >= 0x20 && byte != 0x7F) << first << " " << second;
            }
        }
    }
}

struct WidthRow {
    const char* name;
    const char* text;
    std::size_t width;
};

void PrintTo(const WidthRow& row, std::ostream* out) {
    *out << row.name;
}

class WidthOfText : public testing::TestWithParam<WidthRow> {};

TEST_P(WidthOfText, CountsColumns) {
    EXPECT_EQ(DisplayWidth(GetParam().text), GetParam().width);
}

INSTANTIATE_TEST_SUITE_P(Rows, WidthOfText,
                         testing::Values(WidthRow{"Empty", "", 0}, WidthRow{"Ascii", "Main", 4},
                                         WidthRow{"Umlaut", "Gr\xc3\xbcn", 4},
                                         WidthRow{"CombiningMarkTakesNone", "u\xcc\x88", 1},
                                         WidthRow{"IdeographTakesTwo", "\xe6\xbc\xa2\xe5\xad\x97",
                                                  4},
                                         WidthRow{"HangulTakesTwo", "\xea\xb0\x80", 2},
                                         WidthRow{"PictureTakesTwo", "\xf0\x9f\x98\x80", 2}),
                         [](const auto& each) { return std::string(each.param.name); });

TEST(EscapedJson, KeepsTheMeaningAndHoldsNoControl) {
    const QString text = QStringLiteral("a\u009b\u007f\u0080\u009f\u00a0\u00fc\u001b\"\\");
    const QJsonObject object{{QStringLiteral("text"), text}};
    const std::string written = EscapedJson(QJsonDocument(object).toJson().toStdString());
    EXPECT_NE(written.find("\\u009b\\u007f\\u0080\\u009f"), std::string::npos) << written;
    for (const char each : written) {
        EXPECT_TRUE(each == '\n' || static_cast<unsigned char>(each) >= 0x20);
        EXPECT_NE(each, '\x7f');
    }
    EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(written)).object(), object);
}

}  // namespace

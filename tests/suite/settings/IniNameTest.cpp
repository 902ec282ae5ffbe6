#include "suite/settings/IniName.h"

#include <gtest/gtest.h>

#include <set>

#include "suite/settings/NameText.h"

namespace {

using namespace k4suite;

struct NameCase {
    std::string name;
    const char* written;
};

class WrittenName : public testing::TestWithParam<NameCase> {};

TEST_P(WrittenName, IsReadBackAsItWas) {
    const QString written = EncodeName(GetParam().name);
    EXPECT_EQ(written.toStdString(), GetParam().written);
    EXPECT_EQ(DecodeName(written), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    Names, WrittenName,
    testing::Values(NameCase{"", ".default"}, NameCase{"Sign Type", "Sign Type"},
                    NameCase{"a/b", "a%2Fb"}, NameCase{"a\\b", "a%5Cb"}, NameCase{"50%", "50%25"},
                    NameCase{"%2F", "%252F"}, NameCase{".key", "%2Ekey"},
                    NameCase{".default", "%2Edefault"}, NameCase{".", "%2E"},
                    NameCase{"a.b", "a.b"}, NameCase{"General", "%47eneral"},
                    NameCase{"gENERAL", "%67ENERAL"}, NameCase{"Generals", "Generals"},
                    NameCase{"a\nb\tc", "a%0Ab%09c"}, NameCase{std::string("a\0b", 3), "a%00b"},
                    NameCase{"\x7f", "%7F"}, NameCase{"gr\u00fc\u00df", "gr\u00fc\u00df"},
                    NameCase{"\U0001F600", "\U0001F600"}, NameCase{"\xff\xfe", "%FF%FE"},
                    NameCase{"\u00fc\xff", "%C3%BC%FF"},
                    NameCase{" lead and trail ", " lead and trail "}));

TEST(WrittenName, EveryByteIsReadBack) {
    std::set<QString> written;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string name(1, static_cast<char>(byte));
        written.insert(EncodeName(name));
        EXPECT_EQ(DecodeName(EncodeName(name)), name) << byte;
        EXPECT_EQ(DecodeName(EncodeName("a" + name + "b")), "a" + name + "b") << byte;
    }
    EXPECT_EQ(written.size(), 256u);
}

TEST(WrittenName, HandWrittenNamesAreTakenAsTheyAre) {
    for (const char* name : {"%", "%2", "%zz", "50%", "%2f", "a%"})
        EXPECT_EQ(DecodeName(QString::fromUtf8(name)), name);
}

TEST(WrittenKey, HasALevelForEachBackslash) {
    EXPECT_EQ(EncodeKey("File Locations\\Previous Selection"),
              QStringLiteral("File Locations/Previous Selection"));
    EXPECT_EQ(EncodeKey("a/b\\c"), QStringLiteral("a%2Fb/c"));
    EXPECT_EQ(EncodeKey("\\\\a\\\\b\\"), QStringLiteral("a/b"));
    EXPECT_EQ(EncodeKey(""), QString());
    EXPECT_EQ(EncodeKey("\\"), QString());
}

TEST(WrittenValue, LiesBelowItsKey) {
    EXPECT_EQ(EncodeValue(QStringLiteral("a/b"), "c\\d"), QStringLiteral("a/b/c%5Cd"));
    EXPECT_EQ(EncodeValue(QString(), "c"), QStringLiteral("c"));
    EXPECT_EQ(EncodeValue(QStringLiteral("a"), ""), QStringLiteral("a/.default"));
}

TEST(SameName, CaseDoesntCount) {
    EXPECT_TRUE(IsSameName("Local", "LOCAL"));
    EXPECT_TRUE(IsSameName("", ""));
    EXPECT_TRUE(IsSameName("\u00c9t\u00c9", "\u00e9t\u00e9"));
    EXPECT_FALSE(IsSameName("Local", "Local "));
    EXPECT_FALSE(IsSameName("Local", "Loca"));
    EXPECT_FALSE(IsSameName("", "a"));
    EXPECT_TRUE(IsSameName("\xff", "\xff"));
    EXPECT_FALSE(IsSameName("a\xff", "A\xff"));
    EXPECT_FALSE(IsSameName("\xff", "\xfe"));
}

}  // namespace

#include "k4cmndlg/filesel/properties/CK4CmnSeqFileProperties.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Record = CK4CmnSeqFileProperties;

/// A record with every field of its own.
Record Filled() {
    Record record;
    record.SetFileProperties(64, 192, K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED, K4_COMPRESS_MEDIUM,
                             1, 12, 3, "a; b; ", "notes", "A:\\One.SQ4");
    return record;
}

void ExpectFilled(const Record& record) {
    EXPECT_EQ(record.rows, 64U);
    EXPECT_EQ(record.columns, 192U);
    EXPECT_EQ(record.color, K4_SIGN_COLOR_RGB16M);
    EXPECT_EQ(record.pixel, K4_PIXEL_TECH_LED);
    EXPECT_EQ(record.compression, K4_COMPRESS_MEDIUM);
    EXPECT_EQ(record.previewOnly, 1);
    EXPECT_EQ(record.frameCount, 12U);
    EXPECT_EQ(record.thumbnailFrame, 3U);
    EXPECT_EQ(record.keywords, "a; b; ");
    EXPECT_EQ(record.notes, "notes");
    EXPECT_EQ(record.filePath, "A:\\One.SQ4");
}

/// So many characters of two bytes each.
std::string Umlauts(std::size_t count) {
    std::string text;
    while (count-- > 0)
        text += "\xC3\xA4";
    return text;
}

TEST(SeqFileProperties, BeginWithTheirDefaults) {
    const Record record;
    EXPECT_EQ(record.thumbnailFrame, 1U);
    EXPECT_EQ(record.frameCount, 0U);
    EXPECT_EQ(record.columns, 0U);
    EXPECT_EQ(record.rows, 0U);
    EXPECT_EQ(record.color, tag_K4_SIGN_COLOR(0));
    EXPECT_EQ(record.pixel, tag_K4_PIXEL_TECH(1));
    EXPECT_EQ(record.compression, tag_K4_COMPRESS_TYPE(0));
    EXPECT_EQ(record.previewOnly, 0);
    EXPECT_EQ(record.keywords, "");
    EXPECT_EQ(record.notes, "");
    EXPECT_EQ(record.filePath, "");
}

TEST(SeqFileProperties, TakeAllValues) {
    ExpectFilled(Filled());
}

TEST(SeqFileProperties, AreCopiedWhole) {
    const Record filled = Filled();
    Record assigned;
    assigned = filled;
    ExpectFilled(assigned);
    ExpectFilled(Record(filled));
    const Record& itself = assigned;
    assigned = itself;
    ExpectFilled(assigned);
}

struct Limit {
    const char* what;
    std::size_t most;
    std::string Record::*field;
};

class SeqFilePropertiesText : public testing::TestWithParam<Limit> {
 protected:
    /// Sets the field under test to a text, the others to nothing.
    static void Set(Record& record, const std::string& text) {
        const auto of = [&](std::string Record::*field) {
            return field == GetParam().field ? text : std::string();
        };
        record.SetFileProperties(0, 0, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_LED, K4_COMPRESS_NONE, 0,
                                 0, 0, of(&Record::keywords), of(&Record::notes),
                                 of(&Record::filePath));
    }
};

TEST_P(SeqFilePropertiesText, IsTakenUpToItsLimitAndStaysBeyondIt) {
    std::string Record::*field = GetParam().field;
    Record record;
    const std::string longest(GetParam().most, 'x');
    Set(record, longest);
    EXPECT_EQ(record.*field, longest);
    Set(record, longest + "y");
    EXPECT_EQ(record.*field, longest);
    Set(record, std::string(5000, 'z'));
    EXPECT_EQ(record.*field, longest);
    Set(record, "");
    EXPECT_EQ(record.*field, "");
}

TEST_P(SeqFilePropertiesText, IsCountedInCharacters) {
    std::string Record::*field = GetParam().field;
    Record record;
    Set(record, Umlauts(GetParam().most));
    EXPECT_EQ(record.*field, Umlauts(GetParam().most));
    Set(record, Umlauts(GetParam().most + 1));
    EXPECT_EQ(record.*field, Umlauts(GetParam().most));
}

TEST_P(SeqFilePropertiesText, ThatIsTooLongIsNotAssigned) {
    std::string Record::*field = GetParam().field;
    Record from;
    from.*field = std::string(GetParam().most + 1, 'x');
    Record to;
    to.*field = "former";
    to = from;
    EXPECT_EQ(to.*field, "former");
    EXPECT_EQ(Record(from).*field, "");
}

TEST_P(SeqFilePropertiesText, OfBadBytesIsTakenAsItIs) {
    Record record;
    Set(record, "\xFF\xC3\x80\xE2\x82");
    EXPECT_EQ(record.*GetParam().field, "\xFF\xC3\x80\xE2\x82");
}

INSTANTIATE_TEST_SUITE_P(Texts, SeqFilePropertiesText,
                         testing::Values(Limit{"Keywords", 254, &Record::keywords},
                                         Limit{"Notes", 254, &Record::notes},
                                         Limit{"Path", 259, &Record::filePath}),
                         [](const auto& row) { return row.param.what; });

std::string Formatted(const std::string& keywords) {
    Record record;
    record.keywords = keywords;
    record.FormatKeyWords();
    return record.keywords;
}

TEST(SeqFilePropertiesKeywords, AreEachFollowedByASemicolonAndABlank) {
    EXPECT_EQ(Formatted("a,b  c"), "a; b; c; ");
    EXPECT_EQ(Formatted("a;b,c\td\ne f"), "a; b; c; d; e; f; ");
    EXPECT_EQ(Formatted("  ;;a"), "a; ");
    EXPECT_EQ(Formatted("a; b; "), "a; b; ");
    EXPECT_EQ(Formatted("Summer SALE"), "Summer; SALE; ");
}

TEST(SeqFilePropertiesKeywords, OfDelimitersAloneAreEmpty) {
    EXPECT_EQ(Formatted(""), "");
    EXPECT_EQ(Formatted("; ,\t\n"), "");
    EXPECT_EQ(Formatted(std::string(254, ',')), "");
    EXPECT_EQ(Formatted(std::string(5000, ' ')), "");
}

TEST(SeqFilePropertiesKeywords, StayAsTheyAreWhereTheResultIsTooLong) {
    EXPECT_EQ(Formatted(std::string(252, 'x')), std::string(252, 'x') + "; ") << "254 characters";
    EXPECT_EQ(Formatted(std::string(253, 'x')), std::string(253, 'x')) << "255 characters";
    EXPECT_EQ(Formatted(std::string(255, 'x')), std::string(255, 'x'));
    std::string many;
    for (int i = 0; i < 86; ++i)
        many += "x,";
    EXPECT_EQ(Formatted(many), many) << "86 times three is 258";
}

TEST(SeqFilePropertiesKeywords, AreCountedInCharacters) {
    EXPECT_EQ(Formatted(Umlauts(252)), Umlauts(252) + "; ");
    EXPECT_EQ(Formatted(Umlauts(253)), Umlauts(253));
}

}  // namespace

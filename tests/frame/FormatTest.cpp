#include "k4cmndlg/frame/Format.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <climits>
#include <clocale>
#include <cstdio>
#include <string>

#include "tests/support/TempFolder.h"

using k4cmn::Format;

TEST(Format, PutsNumbersAndTextsInTheirPlaces) {
    EXPECT_EQ(Format("Dialogs\\%s", "Dimming"), "Dialogs\\Dimming");
    EXPECT_EQ(Format("%u,%d", UINT_MAX, INT_MIN), "4294967295,-2147483648");
}

TEST(Format, TextWithoutPlacesStays) {
    EXPECT_EQ(Format("%s", ""), "");
    EXPECT_EQ(Format("plain 100%%"), "plain 100%");
}

TEST(Format, TextOfAnyLengthFits) {
    const std::string longText(100'000, 'x');
    EXPECT_EQ(Format("<%s>", longText.c_str()), "<" + longText + ">");
}

TEST(Format, NumbersHaveAPointInEveryLocale) {
    const k4test::TempFolder folder;
    const std::string source = folder.Write("source",
                                            "LC_NUMERIC\n"
                                            "decimal_point \",\"\n"
                                            "thousands_sep \".\"\n"
                                            "grouping 3;3\n"
                                            "END LC_NUMERIC\n");
    const std::string made = (folder.Path() / "comma").string();
    // Made with warnings about all that it doesn't say.
    static_cast<void>(system(
        ("localedef -c -i " + source + " -f ANSI_X3.4-1968 " + made + " 2> /dev/null").c_str()));
    setenv("LOCPATH", folder.Path().c_str(), 1);
    ASSERT_NE(std::setlocale(LC_NUMERIC, "comma"), nullptr);
    char asThere[16];
    std::snprintf(asThere, sizeof asThere, "%4.2f", 1.5);
    const std::string text = Format("%4.2f %d", 1.5, 1234567);
    std::setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
    EXPECT_STREQ(asThere, "1,50");
    EXPECT_EQ(text, "1.50 1234567");
}

TEST(Format, PercentSignsOfAnArgumentAreOnlyText) {
    EXPECT_EQ(Format("%s", "%n%s%d"), "%n%s%d");
}

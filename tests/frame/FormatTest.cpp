#include "k4cmndlg/frame/Format.h"

#include <gtest/gtest.h>

#include <climits>

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

TEST(Format, PercentSignsOfAnArgumentAreOnlyText) {
    EXPECT_EQ(Format("%s", "%n%s%d"), "%n%s%d");
}

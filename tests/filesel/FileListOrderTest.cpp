#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>
#include <random>
#include <sstream>

#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "tests/filesel/ScopedTimeZone.h"

namespace {

using k4cmn::OrderByDate;
using k4cmn::OrderByText;
using Order = std::vector<std::size_t>;
using Texts = std::vector<std::string>;

/// The bubble sort, word for word.
template <class Swaps>
Order Bubble(std::size_t count, const Swaps& swaps) {
    Order order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t pass = 0; pass < count; ++pass) {
        for (std::size_t at = 0; at + 1 < count - pass; ++at) {
            if (swaps(order[at], order[at + 1]))
                std::swap(order[at], order[at + 1]);
        }
    }
    return order;
}

Order BubbleText(const Texts& texts, bool ascending) {
    return Bubble(texts.size(), [&](std::size_t a, std::size_t b) {
        const std::string first = k4cmn::WithoutCase(texts[a]);
        const std::string second = k4cmn::WithoutCase(texts[b]);
        return ascending ? first > second : first < second;
    });
}

/// A date as year, month, day, hour, minute.
Order BubbleDate(const Texts& texts, bool ascending) {
    const auto date = [](std::string text, int missing) {
        for (char& byte : text)
            byte = byte == '/' || byte == ':' ? ' ' : byte;
        std::istringstream in(text);
        std::vector<int> pieces;
        for (std::string piece; pieces.size() < 5 && in >> piece;)
            pieces.push_back(std::atoi(piece.c_str()));
        pieces.resize(5, missing);
        return std::vector<int>{pieces[2] + 1900, pieces[0], pieces[1], pieces[3], pieces[4]};
    };
    return Bubble(texts.size(), [&](std::size_t a, std::size_t b) {
        return !ascending || date(texts[a], 1) > date(texts[b], 2);
    });
}

std::string At(const Texts& texts, const Order& order) {
    std::string joined;
    for (const std::size_t row : order)
        joined += texts[row] + "|";
    return joined;
}

TEST(OrderOfTexts, IgnoresCaseAndKeepsEqualOnes) {
    const Texts texts{"b", "A", "B", "a", "c"};
    EXPECT_EQ(At(texts, OrderByText(texts, true)), "A|a|b|B|c|");
    EXPECT_EQ(At(texts, OrderByText(texts, false)), "c|b|B|A|a|");
}

TEST(OrderOfTexts, OfSizesIsTheirTexts) {
    const Texts texts{"    9 KB", "100000 KB", "99999 KB", "   10 KB"};
    EXPECT_EQ(At(texts, OrderByText(texts, true)), "    9 KB|   10 KB|100000 KB|99999 KB|");
}

TEST(OrderOfDates, IsByYearMonthDayHourAndMinute) {
    const Texts texts{"01/01/27 01:00 AM", "12/31/26 01:00 AM", "12/30/26 11:59 PM",
                      "12/30/26 11:58 PM", "12/30/26 10:59 PM", "01/31/26 12:00 AM"};
    EXPECT_EQ(OrderByDate(texts, true), (Order{5, 4, 3, 2, 1, 0}));
}

TEST(OrderOfDates, TheHalfOfTheDayCountsForNothing) {
    const Texts texts{"07/31/26 04:05 PM", "07/31/26 04:05 AM", "07/31/26 12:05 AM",
                      "07/31/26 11:05 PM"};
    EXPECT_EQ(OrderByDate(texts, true), (Order{0, 1, 3, 2}));
}

TEST(OrderOfDates, EveryYearIsOfThe1900s) {
    const Texts texts{"01/01/99 01:00 AM", "01/01/05 01:00 AM"};
    EXPECT_EQ(OrderByDate(texts, true), (Order{1, 0}));
}

TEST(OrderOfDates, DescendingReversesWhateverThereIs) {
    const Texts texts{"07/31/26 04:05 PM", "01/01/05 01:00 AM", "", "09/09/99 09:09 AM"};
    EXPECT_EQ(OrderByDate(texts, false), (Order{3, 2, 1, 0}));
}

TEST(OrderOfDates, MissingPiecesCountByTheirPlace) {
    // Each of these is neither behind nor before the other.
    EXPECT_EQ(OrderByDate({"", ""}, true), (Order{0, 1}));
    EXPECT_EQ(OrderByDate({"", "01/05/01 01:00 AM"}, true), (Order{0, 1}));
    EXPECT_EQ(OrderByDate({"01/05/01 01:00 AM", ""}, true), (Order{0, 1}));
    EXPECT_EQ(OrderByDate({"02/03/02 01:00 AM", ""}, true), (Order{1, 0}));
    // A date with missing pieces stands between two that would change places.
    EXPECT_EQ(OrderByDate({"03/01/01 01:00 AM", "", "02/01/01 01:00 AM"}, true), (Order{0, 1, 2}));
    EXPECT_EQ(OrderByDate({"03/01/01 01:00 AM", "02/01/01 01:00 AM"}, true), (Order{1, 0}));
}

TEST(OrderOfDates, OddTextsAreNoTrouble) {
    const Texts texts{"///",
                      "x/y/z",
                      "99999999999999/1/1 1:1",
                      "-1/-1/-1 -1:-1",
                      "13/32/26 25:61",
                      std::string(1000, '1'),
                      std::string("\0\xff", 2),
                      "1 2 3 4 5 6 7"};
    EXPECT_EQ(OrderByDate(texts, true).size(), texts.size());
    // A thirteenth month is the first of the year after.
    EXPECT_EQ(OrderByDate({"02/01/27 1:1", "13/01/26 1:1"}, true), (Order{1, 0}));
    EXPECT_EQ(OrderByDate({"13/01/26 1:1", "12/31/26 1:1"}, true), (Order{1, 0}));
}

TEST(OrderOfRows, OfNoneAndOneIsTheirs) {
    for (const bool ascending : {true, false}) {
        EXPECT_EQ(OrderByText({}, ascending), Order{});
        EXPECT_EQ(OrderByDate({}, ascending), Order{});
        EXPECT_EQ(OrderByText({"x"}, ascending), Order{0});
        EXPECT_EQ(OrderByDate({"x"}, ascending), Order{0});
    }
}

// Against the literal sort -----------------------------------------------------------------------

class AgainstBubble : public testing::TestWithParam<unsigned> {
 protected:
    int Number(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(m_random);
    }
    std::string TwoDigits(int low, int high) {
        const int number = Number(low, high);
        return (number < 10 ? "0" : "") + std::to_string(number);
    }

 private:
    std::mt19937 m_random{GetParam()};
};

TEST_P(AgainstBubble, TextsComeOutTheSame) {
    for (int round = 0; round < 40; ++round) {
        Texts texts(static_cast<std::size_t>(Number(0, 40)));
        for (std::string& text : texts) {
            for (int length = Number(0, 3); length > 0; --length)
                text += "aAbB zZ\xc3\xa4_"[Number(0, 9)];
        }
        for (const bool ascending : {true, false})
            ASSERT_EQ(OrderByText(texts, ascending), BubbleText(texts, ascending));
    }
}

TEST_P(AgainstBubble, WholeDatesComeOutTheSame) {
    for (int round = 0; round < 40; ++round) {
        Texts texts(static_cast<std::size_t>(Number(0, 40)));
        for (std::string& text : texts)
            text = TwoDigits(1, 12) + "/" + TwoDigits(1, 28) + "/" + TwoDigits(0, 2) + " " +
                   TwoDigits(1, 12) + ":" + TwoDigits(0, 59) + (Number(0, 1) ? " AM" : " PM");
        for (const bool ascending : {true, false})
            ASSERT_EQ(OrderByDate(texts, ascending), BubbleDate(texts, ascending));
    }
}

TEST_P(AgainstBubble, DatesWithMissingPiecesComeOutTheSame) {
    for (int round = 0; round < 200; ++round) {
        Texts texts(static_cast<std::size_t>(Number(0, 20)));
        for (std::string& text : texts) {
            text = TwoDigits(1, 3) + "/" + TwoDigits(1, 3) + "/" + TwoDigits(0, 3) + " " +
                   TwoDigits(1, 3) + ":" + TwoDigits(0, 3) + " AM";
            if (Number(0, 2) == 0)
                text.resize(static_cast<std::size_t>(Number(0, 14)));
        }
        for (const bool ascending : {true, false})
            ASSERT_EQ(OrderByDate(texts, ascending), BubbleDate(texts, ascending));
    }
}

// Against the texts that they are made of --------------------------------------------------------

TEST_P(AgainstBubble, SizesComeOutAsTheirTexts) {
    for (int round = 0; round < 40; ++round) {
        std::vector<std::uint64_t> sizes(static_cast<std::size_t>(Number(0, 60)));
        Texts texts;
        for (std::uint64_t& size : sizes) {
            size = ~std::uint64_t{0} >> Number(0, 63);
            size -= size / static_cast<std::uint64_t>(Number(1, 9));
            texts.push_back(k4cmn::SizeText(size));
        }
        for (const bool ascending : {true, false})
            ASSERT_EQ(k4cmn::OrderBySize(sizes, ascending), OrderByText(texts, ascending));
    }
}

TEST_P(AgainstBubble, TimesComeOutAsTheirTexts) {
    const k4test::ScopedTimeZone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    constexpr std::int64_t kYear = 31'556'952;
    for (int round = 0; round < 40; ++round) {
        std::vector<std::int64_t> times(static_cast<std::size_t>(Number(0, 60)));
        Texts texts;
        for (std::int64_t& time : times) {
            // Within hours, days, or centuries.
            const std::int64_t spread[] = {3600, 200'000, kYear, 400 * kYear};
            const auto range = static_cast<double>(spread[Number(0, 3)]);
            time = 946'684'800 + static_cast<std::int64_t>(range * Number(-1000, 1000) / 1000);
            texts.push_back(k4cmn::TimeText("%m/%d/%y %I:%M %p", k4cmn::LocalTime(time)));
        }
        ASSERT_EQ(k4cmn::OrderByTime(times), OrderByDate(texts, true));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AgainstBubble, testing::Range(1u, 9u));

}  // namespace

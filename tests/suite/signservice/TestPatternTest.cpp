#include "suite/signservice/TestPattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "suite/lamps/Shades.h"

namespace {

using namespace k4suite;

TEST(TestPattern, FillsSignsOfAnySizeAndTechnology) {
    for (int color = 0; color < 17; ++color)
        for (const auto& [rows, columns] :
             {std::pair{1U, 1U}, {1U, 200U}, {200U, 1U}, {7U, 16U}, {13U, 14U}, {64U, 192U}})
            for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
                k4cmn::SignSettings sign;
                sign.rows = rows;
                sign.columns = columns;
                sign.color = static_cast<tag_K4_SIGN_COLOR>(color);
                const TestPattern pattern(name, sign);
                for (const std::uint32_t frame : {0U, 1U, 39U}) {
                    const Lamps picture = pattern.RenderFrame(frame);
                    ASSERT_EQ(picture.Rows(), rows);
                    ASSERT_EQ(picture.Columns(), columns);
                }
            }
}

TEST(TestPattern, IsNeitherDarkNorUniformOnAnyRealSign) {
    for (const int color : {0, 1, 2, 4, 6, 7, 9, 11, 13})
        for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
            k4cmn::SignSettings sign;
            sign.rows = 16;
            sign.columns = 64;
            sign.color = static_cast<tag_K4_SIGN_COLOR>(color);
            const Lamps light =
                LightOf(Quantise(TestPattern(name, sign).RenderFrame(3), TechnologyOf(sign.color)),
                        K4_PIXEL_TECH_LED);
            const auto dark = std::count(light.All().begin(), light.All().end(), Rgb{});
            EXPECT_LT(dark, 16 * 64 * 3 / 4) << color << name;
            const auto first = std::count(light.All().begin(), light.All().end(), light.At(0, 0));
            EXPECT_LT(first, 16 * 64) << color << name;
        }
}

}  // namespace

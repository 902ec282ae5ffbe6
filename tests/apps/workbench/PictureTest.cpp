#include <gtest/gtest.h>

#include <QImage>
#include <cstdint>
#include <string>

#include "apps/workbench/PictureFacts.h"
#include "apps/workbench/SignWatcher.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "tests/support/RecordingSSRpc.h"

using k4test::RecordingSSRpc;
using workbench::DifferentPixels;
using workbench::ImageOfDib;
using workbench::LookAtSign;
using workbench::MeanBrightness;
using workbench::SignLook;

namespace {

void Append(std::string& bytes, std::uint32_t word, int width = 4) {
    for (int byte = 0; byte < width; ++byte)
        bytes.push_back(static_cast<char>(word >> (8 * byte)));
}

/// A picture of two rows and one column, top-down: a red lamp above a blue one.
std::string RedAboveBlue() {
    std::string dib;
    Append(dib, 40);
    Append(dib, 1);
    Append(dib, static_cast<std::uint32_t>(-2));
    Append(dib, 1, 2);
    Append(dib, 32, 2);
    for (int field = 0; field < 6; ++field)
        Append(dib, 0);
    Append(dib, 0x00FF0000);
    Append(dib, 0x000000FF);
    return dib;
}

class LookAtSignTest : public testing::Test {
 protected:
    void Reply(const std::string& config) {
        rpc.replies["k4ssGetConfig"].text = config;
        rpc.replies["k4ssGetStatus"].text = "Playing\tGoal.SQ4\t2\t1\t0\t8";
        rpc.replies["k4ssGetDIB"].text = RedAboveBlue();
    }

    RecordingSSRpc rpc;
    k4cmn::ScopedProvider<K4SSRpc> provider{rpc};
    CK4CmnSS client;
    SignLook look;
    std::string words;
};

TEST(ImageOfDib, TopDownPictureIsReadFromTheTop) {
    const QImage image = ImageOfDib(RedAboveBlue());
    ASSERT_EQ(image.size(), QSize(1, 2));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(0, 1), QColor(0, 0, 255));
}

TEST(ImageOfDib, WhatIsNoPictureGivesNone) {
    EXPECT_TRUE(ImageOfDib({}).isNull());
    EXPECT_TRUE(ImageOfDib(std::string(39, '\0')).isNull());
    EXPECT_TRUE(ImageOfDib(std::string(200, '\0')).isNull());
    EXPECT_TRUE(ImageOfDib(std::string(200, '\xFF')).isNull());
}

TEST(MeanBrightness, IsTheMeanOfAllPixels) {
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixelColor(0, 0, Qt::black);
    image.setPixelColor(1, 0, Qt::white);
    EXPECT_DOUBLE_EQ(MeanBrightness(image), 127.5);
    EXPECT_DOUBLE_EQ(MeanBrightness({}), 0);
}

TEST(DifferentPixels, AreCountedInsideAndOutside) {
    QImage one(4, 1, QImage::Format_RGB32);
    one.fill(Qt::black);
    QImage other = one;
    other.setPixelColor(0, 0, Qt::white);
    other.setPixelColor(3, 0, Qt::white);
    const auto difference = DifferentPixels(one, other, QRect(0, 0, 2, 1));
    EXPECT_EQ(difference.inside, 1);
    EXPECT_EQ(difference.outside, 1);
    EXPECT_EQ(DifferentPixels({}, other, QRect(0, 0, 4, 1)).inside, 4);
}

TEST_F(LookAtSignTest, GivesFactsAndPicture) {
    Reply("2\t1\t11\t3\t0\t5\t0\t200\t0");
    ASSERT_TRUE(LookAtSign(client, "Main", look, words));
    EXPECT_EQ(look.rows, 2u);
    EXPECT_EQ(look.dimLevel, 200);
    EXPECT_EQ(look.state, "Playing");
    EXPECT_EQ(look.frameCount, 8u);
    EXPECT_EQ(look.picture.size(), QSize(1, 2));
}

TEST_F(LookAtSignTest, FailureGivesTheClientsWords) {
    rpc.results["k4ssGetConfig"] = 5;
    EXPECT_FALSE(LookAtSign(client, "Main", look, words));
    EXPECT_EQ(words, "Could not get sign configuration from service");
    rpc.results["k4ssGetConfig"] = 0;
    Reply("2\t1\t11\t3\t0\t5\t0\t200\t0");
    rpc.results["k4ssGetDIB"] = 5;
    EXPECT_FALSE(LookAtSign(client, "Main", look, words));
    EXPECT_EQ(words, "Could not get DIB from sign service");
}

TEST_F(LookAtSignTest, SizeThatNoSignHasIsRefusedBeforeRoomIsMade) {
    for (const char* size : {"4294967295\t4294967295", "4294967295\t1", "8388609\t1"}) {
        rpc.calls.clear();
        Reply(std::string(size) + "\t11\t3\t0\t5\t0\t200\t0");
        EXPECT_FALSE(LookAtSign(client, "Main", look, words)) << size;
        EXPECT_EQ(words, "The sign reports a size that no sign has.");
        EXPECT_EQ(rpc.Count("k4ssGetDIB"), 0u);
    }
}

TEST_F(LookAtSignTest, PictureThatIsNoneIsTold) {
    Reply("2\t1\t11\t3\t0\t5\t0\t200\t0");
    rpc.replies["k4ssGetDIB"].text = std::string(48, '\x7F');
    EXPECT_FALSE(LookAtSign(client, "Main", look, words));
    EXPECT_EQ(words, "The sign's picture can't be read.");
}

}  // namespace

#include <QImageReader>
#include <random>

#include "apps/k4ctl/sequence/FramePicture.h"
#include "apps/k4ctl/sequence/GifWriter.h"
#include "apps/k4ctl/sequence/PictureColors.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/apps/k4ctl/sequence/SequenceRuns.h"
#include "tests/suite/sequence/FullDisk.h"

namespace {

namespace fs = std::filesystem;
using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::Words;
using testing::ElementsAre;

class SequenceExport : public k4test::SequenceRuns {
 protected:
    /// A sequence of three pictures, and an include frame between the first two.
    void Make() const {
        Good(MakeWords(Path("x.SQ4"), {Picture("r.png", Qt::red), "--include", "a.SQ4",
                                       Picture("g.png", Qt::green), Picture("b.png", Qt::blue),
                                       "--dwell", "40,1200,70"}));
    }
    Words NamesIn(const std::string& folder) const {
        Words names;
        for (const auto& entry : fs::directory_iterator(Path(folder)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    /// The pictures of a GIF with their delays.
    std::vector<std::pair<QRgb, int>> Animation(const std::string& name) const {
        QImageReader reader(QString::fromStdString(Path(name)));
        EXPECT_EQ(reader.loopCount(), -1);
        std::vector<std::pair<QRgb, int>> pictures;
        for (QImage picture; reader.read(&picture);)
            pictures.emplace_back(picture.pixel(3, 3), reader.nextImageDelay());
        return pictures;
    }
};

TEST_F(SequenceExport, FolderGetsANumberedFileForEachGraphicFrame) {
    Make();
    EXPECT_EQ(Good({"export", Path("x.SQ4"), Path("new/folder")}).out,
              Path("new/folder") + ": 3 pictures\n");
    EXPECT_THAT(NamesIn("new/folder"), ElementsAre("0001.png", "0003.png", "0004.png"));
    const QImage green(QString::fromStdString(Path("new/folder/0003.png")));
    EXPECT_EQ(green.size(), QSize(24, 16));
    EXPECT_EQ(green.pixel(3, 3), QColor(Qt::green).rgb());
}

TEST_F(SequenceExport, GifHasThePicturesAndTheirTimes) {
    Make();
    const CommandRun run = Good({"export", Path("x.SQ4"), Path("x.GIF"), "--json"});
    EXPECT_EQ(run.Json(),
              (QJsonObject{{QStringLiteral("file"), QString::fromStdString(Path("x.SQ4"))},
                           {QStringLiteral("out"), QString::fromStdString(Path("x.GIF"))},
                           {QStringLiteral("pictures"), 3},
                           {QStringLiteral("done"), true}}));
    EXPECT_THAT(Animation("x.GIF"), ElementsAre(std::pair(QColor(Qt::red).rgb(), 40),
                                                std::pair(QColor(Qt::green).rgb(), 1200),
                                                std::pair(QColor(Qt::blue).rgb(), 70)));
}

TEST_F(SequenceExport, GifKeepsTheWholeTimeWhereItsUnitIsTooCoarse) {
    const std::string image = Picture("r.png", Qt::red);
    Good(MakeWords(Path("x.SQ4"), {image, image, image, image, "--dwell", "25"}));
    Good({"export", Path("x.SQ4"), Path("x.gif")});
    int total = 0;
    for (const auto& [color, delay] : Animation("x.gif"))
        total += delay;
    EXPECT_EQ(total, 100);
    Good(MakeWords(Path("y.SQ4"), {image, image, "--dwell", "1,1000000"}));
    Good({"export", Path("y.SQ4"), Path("y.gif")});
    const auto pictures = Animation("y.gif");
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].second, 20);
    EXPECT_EQ(pictures[1].second, 655350);
}

TEST_F(SequenceExport, FramesMayBeChosen) {
    Make();
    Good({"export", Path("x.SQ4"), Path("some"), "--frames", "2-3"});
    EXPECT_THAT(NamesIn("some"), ElementsAre("0003.png"));
    Refused({"export", Path("x.SQ4"), Path("none"), "--frames", "2"},
            "\"" + Path("x.SQ4") + "\" has no graphic frame there.");
    Refused({"export", Path("x.SQ4"), Path("none"), "--frames", "9"},
            "\"" + Path("x.SQ4") + "\" has no graphic frame there.");
}

TEST_F(SequenceExport, ScaleMakesSquaresWithAGapFromFourOn) {
    Make();
    const auto corner = [&](const char* scale) {
        Good({"export", Path("x.SQ4"), Path("s"), "--force", "--frames", "1", "--scale", scale});
        const QImage picture = QImage(QString::fromStdString(Path("s/0001.png")))
                                   .convertToFormat(QImage::Format_RGB32);
        std::string row;
        for (int x = 0; x < 8; ++x)
            row += picture.pixel(x, 0) == qRgb(255, 0, 0) ? 'R' : '.';
        return std::pair(picture.size(), row);
    };
    EXPECT_EQ(corner("1"), std::pair(QSize(24, 16), std::string("RRRRRRRR")));
    EXPECT_EQ(corner("3"), std::pair(QSize(72, 48), std::string("RRRRRRRR")));
    EXPECT_EQ(corner("4"), std::pair(QSize(96, 64), std::string("RRR.RRR.")));
}

TEST_F(SequenceExport, FilesThatAreThereAreReplacedByForceAlone) {
    Make();
    m_folder.Write("x.gif", "mine");
    Refused({"export", Path("x.SQ4"), Path("x.gif")},
            "\"" + Path("x.gif") + "\" is there already; --force replaces it.");
    m_folder.Write("out/0004.png", "mine");
    Refused({"export", Path("x.SQ4"), Path("out")},
            "\"" + Path("out/0004.png") + "\" is there already; --force replaces it.");
    EXPECT_EQ(m_folder.Read("out/0004.png"), "mine");
    Good({"export", Path("x.SQ4"), Path("out"), "--frames", "1-3"});
    Good({"export", Path("x.SQ4"), Path("out"), "--force"});
    EXPECT_NE(m_folder.Read("out/0004.png"), "mine");
    Good({"export", Path("x.SQ4"), Path("x.gif"), "--force"});
    EXPECT_EQ(Animation("x.gif").size(), 3u);
}

TEST_F(SequenceExport, WhatCannotBeWrittenIsToldAndLeavesNothing) {
    Make();
    m_folder.Write("file", "mine");
    Refused({"export", Path("x.SQ4"), Path("none/x.gif")},
            "Cannot write \"" + Path("none/x.gif") + "\": No such file or directory.");
    Refused({"export", Path("x.SQ4"), Path("file")},
            "Cannot make \"" + Path("file") + "\": Not a directory.");
    const k4test::FullDisk full(10);
    Refused({"export", Path("x.SQ4"), Path("x.gif")},
            "Cannot write \"" + Path("x.gif") + "\": File too large.");
    std::filesystem::create_directory(Path("folder"));
    Refused({"export", Path("x.SQ4"), Path("folder")},
            "Cannot write \"" + Path("folder/0001.png") + "\": File too large.");
}

TEST_F(SequenceExport, PicturesThatWouldBeTooLargeAreRefused) {
    Words words = {
        "make", Path("wide.SQ4"),         "--size", "8x16384", "--color", "Mono1", "--pixel",
        "LED",  Picture("r.png", Qt::red)};
    Good(words);
    Refused({"export", Path("wide.SQ4"), Path("x.gif"), "--scale", "4"},
            "Pictures of 65536 x 32 pixels are too large.");
    Good({"export", Path("wide.SQ4"), Path("x.gif"), "--scale", "3"});
    const CommandRun run = Call({"export", Path("wide.SQ4"), Path("y.gif"), "--scale", "65"});
    EXPECT_EQ(run.code, ExitCode::Usage);
    EXPECT_THAT(run.err, testing::HasSubstr("--scale: \"65\" is not a whole number from 1 to 64"));
}

TEST_F(SequenceExport, AFrameThatCannotBeReadIsToldAndTheOthersAreWritten) {
    Make();
    std::string content = m_folder.Read("x.SQ4");
    const std::size_t second = content.find("grp ", content.find("inc "));
    content[second + 8 + 48] = 9;  // its compression method
    m_folder.Write("x.SQ4", content);
    for (const char* out : {"out", "x.gif"}) {
        const CommandRun run = Call({"export", Path("x.SQ4"), Path(out)});
        EXPECT_EQ(run.code, ExitCode::Refused);
        EXPECT_THAT(run.err, testing::MatchesRegex("k4ctl: Frame 3 can't be read: The frame's "
                                                   "compression method isn't known. .*\n"));
        EXPECT_EQ(run.out, Path(out) + ": 2 pictures\n");
    }
    EXPECT_THAT(NamesIn("out"), ElementsAre("0001.png", "0004.png"));
    EXPECT_EQ(Animation("x.gif").size(), 2u);
}

TEST_F(SequenceExport, AColorTechnologyWithoutLampsIsDark) {
    k4suite::SequenceFacts facts;
    facts.rows = 8;
    facts.columns = 16;
    facts.color = static_cast<tag_K4_SIGN_COLOR>(15);
    k4suite::SequenceWriter writer(Path("dark.SQ4"), facts);
    ASSERT_TRUE(writer.AddGraphic(k4cmn::kGraphicFrame, 100, {}));
    ASSERT_TRUE(writer.Finish());
    EXPECT_EQ(Frame(Path("dark.SQ4")).pixel(5, 5), qRgb(0, 0, 0));
}

// Colors of a GIF ---------------------------------------------------------------------------------

TEST(PictureColors, AreKeptExactlyUpTo255BesideBlack) {
    QImage picture(255, 2, QImage::Format_RGB32);
    picture.fill(Qt::black);
    for (int x = 0; x < 255; ++x)
        picture.setPixel(x, 0, qRgb(x + 1, 255 - x, (x * 7) & 0xFF));
    const QImage indexed = k4ctl::WithColorTable(picture);
    EXPECT_EQ(indexed.format(), QImage::Format_Indexed8);
    EXPECT_EQ(indexed.colorCount(), 256);
    EXPECT_EQ(indexed.color(0), qRgb(0, 0, 0));
    EXPECT_EQ(indexed.convertToFormat(QImage::Format_RGB32), picture);
}

TEST(PictureColors, ThatAreTooManyBecomeNearOnes) {
    QImage picture(128, 128, QImage::Format_RGB32);
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x)
            picture.setPixel(x, y, qRgb(x * 2, y * 2, 255 - x));
    const QImage indexed = k4ctl::WithColorTable(picture);
    EXPECT_LE(indexed.colorCount(), 256);
    double error = 0;
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x) {
            const QRgb before = picture.pixel(x, y);
            const QRgb after = indexed.pixel(x, y);
            error += std::abs(qRed(before) - qRed(after)) +
                     std::abs(qGreen(before) - qGreen(after)) +
                     std::abs(qBlue(before) - qBlue(after));
        }
    // A 16th of each side of a plane of colors: 16 values wide, 4 off on the mean, and half in
    // blue.
    EXPECT_LT(error / (128 * 128), 12);
}

TEST(PictureColors, OfABlackPictureAndOfNoneAreBlack) {
    QImage black(4, 4, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_EQ(k4ctl::WithColorTable(black).colorTable(), QList<QRgb>{qRgb(0, 0, 0)});
    EXPECT_TRUE(k4ctl::WithColorTable(QImage()).isNull());
}

}  // namespace

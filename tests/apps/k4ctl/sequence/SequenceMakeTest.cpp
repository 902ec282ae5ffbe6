#include <fstream>
#include <random>

#include "apps/k4ctl/sequence/GifWriter.h"
#include "apps/k4ctl/sequence/PictureColors.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "suite/lamps/Shades.h"
#include "tests/apps/k4ctl/sequence/SequenceRuns.h"
#include "tests/suite/sequence/FullDisk.h"

namespace {

using k4ctl::ExitCode;
using k4test::CommandRun;
using k4test::Words;
using testing::ElementsAre;
using testing::HasSubstr;
using SequenceMake = k4test::SequenceRuns;

// Colors ------------------------------------------------------------------------------------------

struct SignKind {
    tag_K4_SIGN_COLOR color;
    tag_K4_PIXEL_TECH pixel;
};

std::vector<SignKind> AllKinds() {
    std::vector<SignKind> kinds;
    for (int color = 0; color < k4cmn::kSignColorCount; ++color)
        for (int pixel = 1; pixel <= k4cmn::kPixelTechCount; ++pixel) {
            const SignKind kind{static_cast<tag_K4_SIGN_COLOR>(color),
                                static_cast<tag_K4_PIXEL_TECH>(pixel)};
            if (k4cmn::IsColorAndPixelTechValid(kind.color, kind.pixel))
                kinds.push_back(kind);
        }
    return kinds;
}

std::string NameOf(const SignKind& kind) {
    return std::string(k4cmn::ColorShortName(kind.color)) +
           std::string(k4cmn::PixelShortName(kind.pixel));
}

/// A picture of nothing but colors that a sign shows, the same one in every run.
QImage ShownPicture(const SignKind& kind, std::uint32_t rows, std::uint32_t columns) {
    const k4suite::LampTechnology technology = k4suite::TechnologyOf(kind.color);
    std::mt19937 random(7);
    const auto shade = [&] {
        return static_cast<std::uint8_t>(random() % (technology.BrightestShade() + 1));
    };
    k4suite::ShadePicture shades{technology, {rows, columns}};
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column) {
            k4suite::Shade& lamp = shades.lamps.At(row, column);
            const bool isBlue = row % 2 == 1 && column % 2 == 0;
            if (technology.family != k4suite::LampFamily::Quad)
                lamp = {shade(), shade(), shade()};
            else if (!isBlue)  // where white and all three others shine, white may take some over
                lamp[0] = shade();
            if (technology.family == k4suite::LampFamily::Mono)
                lamp[1] = lamp[2] = 0;
            if (technology.family == k4suite::LampFamily::Tri)
                lamp[2] = 0;
        }
    const k4suite::Lamps light = k4suite::LightOf(shades, kind.pixel);
    QImage picture(static_cast<int>(columns), static_cast<int>(rows), QImage::Format_RGB32);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column) {
            const k4suite::Rgb& lamp = light.At(row, column);
            picture.setPixel(static_cast<int>(column), static_cast<int>(row),
                             qRgb(lamp.red, lamp.green, lamp.blue));
        }
    return picture;
}

class EverySignKind : public k4test::SequenceRuns, public testing::WithParamInterface<SignKind> {};

TEST_P(EverySignKind, ShowsThePicturesColorsWhereItHasThem) {
    const SignKind kind = GetParam();
    const std::string color(k4cmn::ColorShortName(kind.color));
    const std::string pixel(k4cmn::PixelShortName(kind.pixel));
    for (const std::uint32_t rows : {7U, 16U})
        for (const char* dither : {"--dither", "--no-dither"}) {
            const QImage picture = ShownPicture(kind, rows, 40);
            Good({"make", Path("x.SQ4"), "--size", std::to_string(rows) + "x40", "--color", color,
                  "--pixel", pixel, dither, "--force", Picture("in.png", picture)});
            EXPECT_EQ(Frame(Path("x.SQ4")), picture) << rows << dither;
            Good({"check", Path("x.SQ4")});
            const QJsonObject facts = Facts(Path("x.SQ4"));
            EXPECT_EQ(facts.value(QLatin1String("color")).toObject().value(QLatin1String("value")),
                      static_cast<int>(kind.color));
            EXPECT_EQ(facts.value(QLatin1String("pixel")).toObject().value(QLatin1String("name")),
                      QString::fromStdString(pixel));
        }
}

TEST_P(EverySignKind, KeepsAPictureThatItHasMadeItself) {
    const SignKind kind = GetParam();
    QImage picture(40, 16, QImage::Format_RGB32);
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 40; ++column)
            picture.setPixel(column, row, qRgb(column * 6, row * 16, 255 - column * 5));
    const auto make = [&](const std::string& image) {
        Good({"make", Path("x.SQ4"), "--size", "16x40", "--color",
              std::to_string(static_cast<int>(kind.color)), "--pixel",
              std::to_string(static_cast<int>(kind.pixel)), "--force", image});
        return Frame(Path("x.SQ4"));
    };
    const QImage once = make(Picture("in.png", picture));
    EXPECT_EQ(make(Picture("again.png", once)), once);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EverySignKind, testing::ValuesIn(AllKinds()),
                         [](const auto& each) { return NameOf(each.param); });

// How pictures fill the sign ----------------------------------------------------------------------

/// The colors along the middle row, and down the middle column, of a frame.
std::pair<std::string, std::string> Cross(const QImage& picture) {
    const auto letter = [&](int x, int y) {
        const QRgb color = picture.pixel(x, y) & 0xFFFFFF;
        return color == 0 ? '.' : color == 0xFF0000 ? 'R' : color == 0x0000FF ? 'B' : '?';
    };
    std::pair<std::string, std::string> cross;
    for (int x = 0; x < picture.width(); ++x)
        cross.first += letter(x, picture.height() / 2);
    for (int y = 0; y < picture.height(); ++y)
        cross.second += letter(picture.width() / 2, y);
    return cross;
}

TEST_F(SequenceMake, ScalesAPictureInItsProportionOnBlack) {
    Good(MakeWords(Path("x.SQ4"), {Picture("wide.png", Qt::red, {48, 8})}));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).first, std::string(24, 'R'));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).second, "......RRRR......");
    Good(MakeWords(Path("y.SQ4"), {Picture("high.png", Qt::red, {4, 8})}));
    EXPECT_EQ(Cross(Frame(Path("y.SQ4"))).first, "........RRRRRRRR........");
    EXPECT_EQ(Cross(Frame(Path("y.SQ4"))).second, std::string(16, 'R'));
}

TEST_F(SequenceMake, CropsAndStretches) {
    QImage picture(48, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    for (int row = 0; row < 8; ++row)
        for (int column = 18; column < 30; ++column)
            picture.setPixel(column, row, qRgb(0, 0, 255));
    const std::string image = Picture("in.png", picture);
    Good(MakeWords(Path("x.SQ4"), {image, "--fit", "CROP"}));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).first, std::string(24, 'B'));
    Good(MakeWords(Path("y.SQ4"), {image, "--fit", "stretch"}));
    EXPECT_EQ(Cross(Frame(Path("y.SQ4"))).first, "RRRRRRRRRBBBBBBRRRRRRRRR");
    EXPECT_EQ(Cross(Frame(Path("y.SQ4"))).second, std::string(16, 'B'));
}

TEST_F(SequenceMake, EnlargesByAWholeNumberWithHardEdges) {
    QImage picture(12, 8, QImage::Format_RGB32);
    picture.fill(Qt::black);
    picture.setPixel(6, 4, qRgb(255, 0, 0));
    Good(MakeWords(Path("x.SQ4"), {Picture("in.png", picture)}));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).first, "............RR..........");
}

TEST_F(SequenceMake, TransparentPlacesAreDark) {
    Good(MakeWords(Path("x.SQ4"), {Picture("in.png", QColor(255, 0, 0, 0))}));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).first, std::string(24, '.'));
    Good(MakeWords(Path("y.SQ4"), {Picture("half.png", QColor(255, 0, 0, 128))}));
    EXPECT_EQ(Frame(Path("y.SQ4")).pixel(0, 0), qRgb(128, 0, 0));
}

TEST_F(SequenceMake, TakesAPictureOfOnePixelAndAVeryLongOne) {
    Good(MakeWords(Path("x.SQ4"), {Picture("dot.png", Qt::red, {1, 1}), "--fit", "crop"}));
    EXPECT_EQ(Cross(Frame(Path("x.SQ4"))).first, std::string(24, 'R'));
    for (const char* fit : {"scale", "crop", "stretch"})
        Good(MakeWords(Path("y.SQ4"),
                       {Picture("line.png", Qt::red, {20000, 1}), "--force", "--fit", fit}));
}

TEST_F(SequenceMake, ReadsAFormatByItsContent) {
    const std::string bmp = Picture("in.bmp", Qt::red);
    std::filesystem::rename(bmp, Path("in.png"));
    Good(MakeWords(Path("x.SQ4"),
                   {Path("in.png"), Picture("in.jpg", Qt::black), Picture("in.ppm", Qt::blue)}));
    EXPECT_EQ(Frame(Path("x.SQ4")).pixel(0, 0), qRgb(255, 0, 0));
    EXPECT_EQ(Frame(Path("x.SQ4"), 3).pixel(0, 0), qRgb(0, 0, 255));
}

TEST_F(SequenceMake, DithersUnlessTheNearestShadesAreWanted) {
    const std::string gray = Picture("in.png", QColor(200, 200, 200), {24, 16});
    const auto lit = [&](const char* dither) {
        Good({"make", Path("x.SQ4"), "--size", "16x24", "--color", "Mono1", "--pixel", "LED",
              "--force", dither, gray});
        const QImage frame = Frame(Path("x.SQ4"));
        int count = 0;
        for (int row = 0; row < 16; ++row)
            for (int column = 0; column < 24; ++column)
                count += frame.pixel(column, row) != qRgb(0, 0, 0);
        return count;
    };
    EXPECT_EQ(lit("--no-dither"), 16 * 24);
    // 200 is 0.578 of the light: 37 of 64 thresholds.
    EXPECT_EQ(lit("--dither"), 16 * 24 * 37 / 64);
}

// Times -------------------------------------------------------------------------------------------

std::string Gif(const std::string& path, const std::vector<std::uint32_t>& delays) {
    k4ctl::GifWriter writer(path, {24, 16});
    for (std::size_t each = 0; each < delays.size(); ++each) {
        QImage picture(24, 16, QImage::Format_RGB32);
        picture.fill(qRgb(static_cast<int>(each) * 40, 0, 0));
        EXPECT_TRUE(writer.Add(k4ctl::WithColorTable(picture), delays[each])) << writer.Problem();
    }
    EXPECT_TRUE(writer.Finish()) << writer.Problem();
    return path;
}

TEST_F(SequenceMake, FramesOfAnAnimatedImageKeepTheirTimes) {
    Good(MakeWords(Path("x.SQ4"),
                   {Gif(Path("in.gif"), {40, 1200, 70}), Picture("still.png", Qt::red)}));
    EXPECT_THAT(FrameNumbers(Path("x.SQ4"), "dwell"), ElementsAre(40, 1200, 70, 100));
    EXPECT_EQ(Frame(Path("x.SQ4"), 3).pixel(5, 5), qRgb(80, 0, 0));
    EXPECT_EQ(Facts(Path("x.SQ4")).value(QLatin1String("storedRunTime")).toInt(), 1410);
}

TEST_F(SequenceMake, DwellGivesEachFrameItsTimeAndTheLastOneAllThatFollow) {
    const std::string gif = Gif(Path("in.gif"), {40, 50, 60});
    Good(MakeWords(Path("x.SQ4"), {gif, gif, "--dwell", "1,4294967295,25"}));
    EXPECT_THAT(FrameNumbers(Path("x.SQ4"), "dwell"), ElementsAre(1, 4294967295, 25, 25, 25, 25));
    Good(MakeWords(Path("y.SQ4"), {gif, "--dwell", "30"}));
    EXPECT_THAT(FrameNumbers(Path("y.SQ4"), "dwell"), ElementsAre(30, 30, 30));
}

// Facts, texts, includes --------------------------------------------------------------------------

TEST_F(SequenceMake, WritesFactsAndTexts) {
    const std::string image = Picture("in.png", Qt::red);
    const CommandRun run = Good({"make",
                                 Path("x.SQ4"),
                                 "--size",
                                 "16x24",
                                 "--color",
                                 "rgb16m",
                                 "--pixel",
                                 "led",
                                 image,
                                 image,
                                 "--keywords",
                                 " goal,home;\tscore ",
                                 "--notes",
                                 "Two\nlines \xC3\xA4",
                                 "--thumbnail",
                                 "2",
                                 "--preview-only",
                                 "--level",
                                 "LOW",
                                 "--type",
                                 "text"});
    EXPECT_EQ(run.out, Path("x.SQ4") + ": 2 frames, 0.20 s\n");
    k4suite::SequenceFile file;
    ASSERT_EQ(file.Open(Path("x.SQ4"), K4_OPEN_READ), 1);
    EXPECT_STREQ(file.GetPtrToKeywords(), "goal; home; score; ");
    EXPECT_STREQ(file.GetPtrToComments(), "Two\nlines \xC3\xA4");
    EXPECT_EQ(file.SosData()->thumbnailFrame, 2);
    EXPECT_EQ(file.SosData()->rows, 16);
    EXPECT_EQ(file.SosData()->columns, 24);
    EXPECT_NE(file.IsPreviewOnly(), 0);
    EXPECT_EQ(file.RiffHdr()->compressionLevel, std::uint32_t{K4_COMPRESS_LOW});
    EXPECT_THAT(file.RiffHdr()->maker, testing::StartsWith("k4ctl "));
    EXPECT_EQ(file.Frame(1)->Type(), k4cmn::kTextFrame);
}

TEST_F(SequenceMake, UsualFactsAreMediumWithoutThumbnailAndTexts) {
    Good(MakeWords(Path("x.SQ4"), {Picture("in.png", Qt::red)}));
    k4suite::SequenceFile file;
    ASSERT_EQ(file.Open(Path("x.SQ4"), K4_OPEN_READ), 1);
    EXPECT_STREQ(file.GetPtrToKeywords(), "");
    EXPECT_STREQ(file.GetPtrToComments(), "");
    EXPECT_EQ(file.SosData()->thumbnailFrame, 0);
    EXPECT_EQ(file.IsPreviewOnly(), 0);
    EXPECT_EQ(file.RiffHdr()->compressionLevel, std::uint32_t{K4_COMPRESS_MEDIUM});
    EXPECT_EQ(file.Frame(1)->Type(), k4cmn::kGraphicFrame);
}

TEST_F(SequenceMake, IncludesStandWhereTheLineHasThem) {
    const std::string image = Picture("in.png", Qt::red);
    Good(MakeWords(Path("x.SQ4"), {"--include", "first.SQ4", image, "--include", "A:\\b.SQ4",
                                   "--include=..\\c.SQ4", image, image, "--include", "last.SQ4"}));
    const QJsonObject facts = Facts(Path("x.SQ4"));
    std::vector<std::string> frames;
    for (const auto each : facts.value(QLatin1String("frames")).toArray()) {
        const QJsonObject frame = each.toObject();
        const QJsonArray fields = frame.value(QLatin1String("fields")).toArray();
        frames.push_back(fields.isEmpty()
                             ? frame.value(QLatin1String("type")).toString().toStdString()
                             : fields[0][QLatin1String("path")].toString().toStdString());
        EXPECT_LE(fields.size(), 1);
    }
    EXPECT_THAT(frames, ElementsAre("first.SQ4", "graphic", "A:\\b.SQ4", "..\\c.SQ4", "graphic",
                                    "graphic", "last.SQ4"));
    EXPECT_EQ(facts.value(QLatin1String("includeCount")).toInt(), 4);
    Good({"check", Path("x.SQ4")});
}

TEST_F(SequenceMake, TakesIncludesAlone) {
    const CommandRun run = Good(MakeWords(Path("x.SQ4"), {"--include", "a.SQ4", "--json"}));
    EXPECT_EQ(run.Json(),
              (QJsonObject{{QStringLiteral("file"), QString::fromStdString(Path("x.SQ4"))},
                           {QStringLiteral("done"), true},
                           {QStringLiteral("frameCount"), 1},
                           {QStringLiteral("includeCount"), 1},
                           {QStringLiteral("runTime"), 0}}));
}

// Places ------------------------------------------------------------------------------------------

TEST_F(SequenceMake, PathsOfTheStoreLieInTheDataHome) {
    const std::string library = "home/drives/A/16x24.RGB16M.LED.Sign/Default.Lib/";
    m_folder.Write(library + "keep");
    const std::string image = Picture("in.png", Qt::red);
    std::filesystem::copy(image, Path(library + "in.png"));
    const std::string store = "a:\\16x24.rgb16m.led.sign\\default.lib\\";
    Good(MakeWords(store + "x.SQ4", {store + "in.png"}));
    EXPECT_TRUE(std::filesystem::exists(Path(library + "x.SQ4")));
    Good({"show", store + "x.SQ4"});
    m_folder.Write("home/network/STORE/SIGNS/keep");
    Good(MakeWords("\\\\STORE\\SIGNS\\y.SQ4", {image}));
    EXPECT_TRUE(std::filesystem::exists(Path("home/network/STORE/SIGNS/y.SQ4")));
}

TEST_F(SequenceMake, APlaceThatThereIsNotIsRefused) {
    const std::string image = Picture("in.png", Qt::red);
    Refused(MakeWords("\\\\..\\x.SQ4", {image}), "There is no place \"\\\\..\\x.SQ4\".");
    Refused(MakeWords(Path("x.SQ4"), {"\\\\"}), "There is no place \"\\\\\".");
    Refused(MakeWords(Path("none/x.SQ4"), {image}),
            "Cannot make \"" + Path("none/x.SQ4") + "\": No such file or directory.");
}

// Failures ----------------------------------------------------------------------------------------

TEST_F(SequenceMake, AFileThatIsThereIsReplacedByForceAlone) {
    const std::string image = Picture("in.png", Qt::red);
    m_folder.Write("x.SQ4", "mine");
    Refused(MakeWords(Path("x.SQ4"), {image}),
            "\"" + Path("x.SQ4") + "\" is there already; --force replaces it.");
    EXPECT_EQ(m_folder.Read("x.SQ4"), "mine");
    Refused(MakeWords(Path("x.SQ4"), {"--force", Path("none.png")}),
            "Cannot open \"" + Path("none.png") + "\": No such file or directory.");
    EXPECT_EQ(m_folder.Read("x.SQ4"), "mine");
    Good(MakeWords(Path("x.SQ4"), {"--force", image}));
    Good({"check", Path("x.SQ4")});
    std::filesystem::create_symlink("nowhere", Path("link.SQ4"));
    Refused(MakeWords(Path("link.SQ4"), {image}),
            "\"" + Path("link.SQ4") + "\" is there already; --force replaces it.");
}

TEST_F(SequenceMake, AnImageThatCannotBeReadIsNamedWithTheReason) {
    const std::string good = Picture("good.png", Qt::red);
    const std::string folder = m_folder.Path().string();
    m_folder.Write("text.png", "no image");
    m_folder.Write("empty.png");
    std::ifstream source(
        Picture("whole.png", ShownPicture({K4_SIGN_COLOR_RGB16M, K4_PIXEL_TECH_LED}, 16, 40)),
        std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(source), {});
    m_folder.Write("cut.png", content.substr(0, content.size() / 2));
    Refused(MakeWords(Path("x.SQ4"), {good, folder}), "\"" + folder + "\" is not a file.");
    for (const char* name : {"text.png", "empty.png"})
        Refused(MakeWords(Path("x.SQ4"), {good, Path(name)}),
                "\"" + Path(name) + "\" can't be read: Unsupported image format.");
    Refused(MakeWords(Path("x.SQ4"), {good, Path("cut.png")}),
            "\"" + Path("cut.png") + "\" can't be read: Unable to read image data.");
}

TEST_F(SequenceMake, AnAnimatedImageThatIsCutShortIsTakenAsFarAsItGoes) {
    const std::string content = (Gif(Path("in.gif"), {40, 50, 60}), m_folder.Read("in.gif"));
    m_folder.Write("cut.gif", content.substr(0, content.size() / 2));
    Good(MakeWords(Path("x.SQ4"), {Path("cut.gif")}));
    EXPECT_EQ(FrameNumbers(Path("x.SQ4"), "dwell").front(), 40);
    EXPECT_LT(FrameNumbers(Path("x.SQ4"), "dwell").size(), 3u);
    Good({"check", Path("x.SQ4")});
    m_folder.Write("cut.gif", content.substr(0, 20));
    Refused(MakeWords(Path("y.SQ4"), {Path("cut.gif")}),
            "\"" + Path("cut.gif") + "\" can't be read: Unable to read image data.");
}

/// A head of a picture of so many pixels, and no more.
std::string LargeBmp(std::int32_t width, std::int32_t height) {
    std::string bytes = "BM";
    const auto put = [&](std::uint32_t number, int count) {
        for (; count > 0; --count, number >>= 8)
            bytes += static_cast<char>(number);
    };
    put(54, 4), put(0, 4), put(54, 4), put(40, 4);
    put(static_cast<std::uint32_t>(width), 4), put(static_cast<std::uint32_t>(height), 4);
    put(1, 2), put(24, 2);
    for (int each = 0; each < 6; ++each)
        put(0, 4);
    return bytes + std::string(1000, '\x55');
}

TEST_F(SequenceMake, AHugeImageIsRefusedBeforeMemoryIsTaken) {
    m_folder.Write("huge.bmp", LargeBmp(12000, 8000));
    Refused(MakeWords(Path("x.SQ4"), {Path("huge.bmp")}),
            "\"" + Path("huge.bmp") + "\" has 12000 x 8000 pixels, which are too many.");
}

TEST_F(SequenceMake, AHugeImageOfAFormatThatCanBeReadSmallerIsTaken) {
    QImage large(12000, 8000, QImage::Format_Grayscale8);
    large.fill(255);
    Good(MakeWords(Path("x.SQ4"), {Picture("large.jpg", large)}));
    const QImage frame = Frame(Path("x.SQ4"));
    EXPECT_EQ(frame.pixel(12, 8), qRgb(255, 255, 255));
    EXPECT_EQ(frame.pixel(0, 0), qRgb(255, 255, 255));
}

TEST_F(SequenceMake, AThumbnailBeyondTheFramesIsRefused) {
    const std::string image = Picture("in.png", Qt::red);
    Refused(MakeWords(Path("x.SQ4"), {image, image, "--thumbnail", "3"}),
            "Frame 3 can't be the thumbnail: there are 2 frames.");
}

TEST_F(SequenceMake, FramesBeyondTheFormatsLimitAreRefused) {
    Words includes;
    for (int each = 0; each < 65536; ++each)
        includes.push_back("--include=a");
    Refused(MakeWords(Path("x.SQ4"), includes), "A sequence can't have more than 65535 frames.");
    Refused(MakeWords(Path("y.SQ4"), {"--include", std::string(65536, 'a')}),
            "A path of the include frame is too long.");
}

TEST_F(SequenceMake, AFullDiskLeavesNothing) {
    QImage noise(24, 16, QImage::Format_RGB32);
    std::mt19937 random(1);
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 24; ++column)
            noise.setPixel(column, row, static_cast<QRgb>(random()));
    const std::string image = Picture("in.png", noise);
    const k4test::FullDisk full(3000);
    Refused(MakeWords(Path("x.SQ4"), {image, image, image, image, image, image}),
            "Cannot write \"" + Path("x.SQ4") + "\": File too large.");
}

struct TypeRow {
    const char* name;
    const char* size;
    const char* color;
    const char* pixel;
    const char* words;
};

class WrongSignType : public k4test::SequenceRuns, public testing::WithParamInterface<TypeRow> {};

TEST_P(WrongSignType, IsRefusedWithTheMessagesOfTheStore) {
    const TypeRow& row = GetParam();
    Refused({"make", Path("x.SQ4"), "--size", row.size, "--color", row.color, "--pixel", row.pixel,
             Picture("in.png", Qt::red)},
            row.words, ExitCode::Usage);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongSignType,
    testing::Values(
        TypeRow{"FewRows", "6x16", "Mono1", "LED",
                "Invalid number of rows.\nk4ctl: Number of rows must be 7 or a multiple of 8."},
        TypeRow{"ManyRows", "2056x16", "Mono1", "LED", "Invalid number of rows."},
        TypeRow{"FewColumns", "8x8", "Mono1", "LED", "Invalid number of columns."},
        TypeRow{"ManyColumns", "8x16392", "Mono1", "LED", "Invalid number of columns."},
        TypeRow{"ManyLamps", "2048x4104", "Mono1", "LED", "Rows x Cols cannot be > 8388608"},
        TypeRow{"OddRows", "12x16", "Mono1", "LED", "Number of rows must be 7 or a multiple of 8."},
        TypeRow{"OddColumns", "8x20", "Mono1", "LED", "Number of columns must be a multiple of 8."},
        TypeRow{"Pair", "8x16", "Quad16", "LED", "Color and pixel technology are invalid."}),
    [](const auto& each) { return std::string(each.param.name); });

struct LineRow {
    const char* name;
    Words words;
    const char* problem;
};

class WrongMakeLine : public k4test::SequenceRuns, public testing::WithParamInterface<LineRow> {};

TEST_P(WrongMakeLine, EndsWithCodeTwo) {
    Words words = MakeWords("x.SQ4", {});
    words.insert(words.end(), GetParam().words.begin(), GetParam().words.end());
    Refused(words, std::string(GetParam().problem) + "\nk4ctl: see k4ctl sequence make --help",
            ExitCode::Usage);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongMakeLine,
    testing::Values(
        LineRow{"NoFrames", {}, "make: no frames: name an IMAGE, or --include a sequence"},
        LineRow{"EmptyInclude", {"--include", ""}, "--include: the empty text is no path"},
        LineRow{
            "Fit", {"a", "--fit", "twice"}, "--fit: \"twice\" is none of scale, crop and stretch"},
        LineRow{"DwellZero",
                {"a", "--dwell", "0"},
                "--dwell: \"0\" is not a whole number from 1 to 4294967295"},
        LineRow{"DwellWord",
                {"a", "--dwell", "5,soon"},
                "--dwell: \"soon\" is not a whole number from 1 to 4294967295"},
        LineRow{"DwellHalfEmpty",
                {"a", "--dwell", "5,"},
                "--dwell: \"\" is not a whole number from 1 to 4294967295"},
        LineRow{"Level",
                {"a", "--level", "high"},
                "--level: \"high\" is no compression level; they are none, low and medium"},
        LineRow{"Type",
                {"a", "--type", "inc"},
                "--type: \"inc\" is no type of frames; they are graphic, data and text"},
        LineRow{"ThumbnailZero",
                {"a", "--thumbnail", "0"},
                "--thumbnail: \"0\" is not a whole number from 1 to 65535"},
        LineRow{"LongNotes",
                {"a", "--notes", std::string(256, 'x')},
                "--notes: the text has 256 characters, and 255 are the most"},
        LineRow{"LongKeywords",
                {"a", "--keywords", std::string(254, 'x')},
                "--keywords: the text has 256 characters, and 255 are the most"},
        LineRow{"NotesNoUtf8", {"a", "--notes", "\xff"}, "--notes: the text isn't UTF-8"},
        LineRow{
            "UnknownOption", {"a", "--loud"}, "The following argument was not expected: --loud"}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(SequenceMake, WordsOfTheLineThatCannotBeRead) {
    const auto wrong = [&](const Words& words, const std::string& problem) {
        Refused(words, problem + "\nk4ctl: see k4ctl sequence make --help", ExitCode::Usage);
    };
    wrong({"make"}, "OUT is required");
    wrong({"make", "x.gif"}, "OUT: \"x.gif\" doesn't end in .SQ4");
    wrong({"make", ".SQ4"}, "OUT: \".SQ4\" doesn't end in .SQ4");
    wrong({"make", "x.SQ4", "--size", "16"},
          "--size: \"16\" is no size; a size is ROWSxCOLUMNS, as 64x192");
    wrong({"make", "x.SQ4", "--size", "16x-1"},
          "--size: \"16x-1\" is no size; a size is ROWSxCOLUMNS, as 64x192");
    wrong({"make", "x.SQ4", "--size", "16x24", "--color", "RGB"},
          "--color: \"RGB\" is no color technology; they are Mono1, Quad16, Tri3, Quad256, Mono4, "
          "Quad64K, Mono16, Tri256, Quad16M, RGB64, RGB4K, RGB16M, Mono64, RGB32KB, RGB16MB, or a "
          "number from 0 to 14");
    wrong({"make", "x.SQ4", "--size", "16x24", "--color", "15"},
          "--color: \"15\" is no color technology; they are Mono1, Quad16, Tri3, Quad256, Mono4, "
          "Quad64K, Mono16, Tri256, Quad16M, RGB64, RGB4K, RGB16M, Mono64, RGB32KB, RGB16MB, or a "
          "number from 0 to 14");
    wrong(
        {"make", "x.SQ4", "--size", "16x24", "--color", "0", "--pixel", "4"},
        "--pixel: \"4\" is no pixel technology; they are Incand, Reflect, LED, or a number from 1 "
        "to 3");
    wrong({"make", "x.SQ4", "--size", "16x24", "--color", "0", "a.png"}, "--pixel is required");
}

}  // namespace

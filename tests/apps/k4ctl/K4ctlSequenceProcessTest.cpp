#include <gmock/gmock.h>
#include <signal.h>

#include <QImage>
#include <QJsonArray>
#include <algorithm>
#include <filesystem>
#include <set>

#include "suite/sequence/SequenceWriter.h"
#include "tests/apps/k4ctl/K4ctlOnHome.h"

// The real program on sequence files, and on the sample content.

namespace {

namespace fs = std::filesystem;
using k4test::K4ctlRun;
using testing::HasSubstr;
using testing::StartsWith;

class K4ctlSequence : public k4test::K4ctlOnHome {
 protected:
    QString Path(const std::string& name) const {
        return QString::fromStdString((m_folder / name).string());
    }
    K4ctlRun Sequence(const QStringList& words) const {
        return program.Run(QStringList{QStringLiteral("sequence")} + words);
    }
    QStringList MakeWords(const QString& out, const QStringList& more) const {
        return QStringList{QStringLiteral("make"),    out,
                           QStringLiteral("--size"),  QStringLiteral("16x24"),
                           QStringLiteral("--color"), QStringLiteral("Quad16"),
                           QStringLiteral("--pixel"), QStringLiteral("Incand")} +
               more;
    }
    QString Picture() const {
        QImage picture(24, 16, QImage::Format_RGB32);
        picture.fill(Qt::red);
        EXPECT_TRUE(picture.save(Path("in.png")));
        return Path("in.png");
    }

    /// The names of what lies in the folder.
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.Path()))
            names.insert(entry.path().filename().string());
        return names;
    }
    /// Whether a process writes to a file in the folder, be it one without a name.
    bool Writes(qint64 pid) const {
        std::error_code gone;
        for (const auto& entry :
             fs::directory_iterator(fs::path("/proc") / std::to_string(pid) / "fd", gone)) {
            const std::string file = fs::read_symlink(entry.path(), gone).string();
            if (file.starts_with(m_folder.Path().string()) &&
                (file.ends_with(" (deleted)") || file.find("/.k4copy-") != std::string::npos))
                return true;
        }
        return false;
    }

    k4test::TempFolder m_folder;
};

TEST_F(K4ctlSequence, NeedsAndMakesNoDataHome) {
    EXPECT_EQ(Sequence(MakeWords(Path("x.SQ4"), {Picture()})).code, 0);
    EXPECT_EQ(Sequence({QStringLiteral("check"), Path("x.SQ4")}).code, 0);
    EXPECT_EQ(Sequence({QStringLiteral("show"), Path("x.SQ4")}).code, 0);
    EXPECT_EQ(Sequence({QStringLiteral("export"), Path("x.SQ4"), Path("x.gif")}).code, 0);
    const K4ctlRun run = Sequence({QStringLiteral("show"), QStringLiteral("A:\\x.SQ4")});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, StartsWith("k4ctl: Cannot open \"" + program.Home().string()));
    EXPECT_FALSE(fs::exists(program.Home()));
}

TEST_F(K4ctlSequence, WorksWhereTheDataHomeCannotBe) {
    program.Set(QStringLiteral("HOME"), QStringLiteral("/proc/none"));
    EXPECT_EQ(Sequence(MakeWords(Path("x.SQ4"), {Picture()})).code, 0);
    QImage exported;
    EXPECT_EQ(Sequence({QStringLiteral("export"), Path("x.SQ4"), Path("out")}).code, 0);
    ASSERT_TRUE(exported.load(Path("out/0001.png")));
    EXPECT_EQ(exported.pixel(3, 3), qRgb(255, 0, 0));
}

TEST_F(K4ctlSequence, LeavesNothingBehindWhateverEndsItWhileItMakesAFile) {
    QStringList words = MakeWords(Path("x.SQ4"), {});
    words[words.indexOf(QStringLiteral("16x24"))] = QStringLiteral("64x192");
    words[words.indexOf(QStringLiteral("Quad16"))] = QStringLiteral("Quad256");
    const QString picture = Picture();
    for (int image = 0; image < 4000; ++image)
        words.append(picture);
    words.prepend(QStringLiteral("sequence"));
    for (const int signal : {SIGTERM, SIGKILL}) {
        const K4ctlRun run =
            program.RunUntil([&](qint64 pid) { return Writes(pid); }, signal, words);
        EXPECT_EQ(run.signal, signal) << run.err;
        EXPECT_EQ(Names(), std::set<std::string>{"in.png"}) << signal;
    }
}

TEST_F(K4ctlSequence, LeavesNothingBehindWhateverEndsItWhileItExports) {
    k4suite::SequenceFacts facts;
    facts.rows = 8;
    facts.columns = 16;
    k4suite::SequenceWriter writer((m_folder / "long.SQ4").string(), facts);
    for (int frame = 0; frame < 20'000; ++frame)
        writer.AddGraphic(k4cmn::kGraphicFrame, 100, std::vector<std::uint8_t>(16, 0x5A));
    ASSERT_TRUE(writer.Finish());
    const K4ctlRun run =
        program.RunUntil([&](qint64 pid) { return Writes(pid); }, SIGKILL,
                         {QStringLiteral("sequence"), QStringLiteral("export"), Path("long.SQ4"),
                          Path("x.gif"), QStringLiteral("--scale"), QStringLiteral("64")});
    EXPECT_EQ(run.signal, SIGKILL) << run.err;
    EXPECT_EQ(Names(), std::set<std::string>{"long.SQ4"});
}

TEST_F(K4ctlSequence, SaysOnStandardErrorWhatFailedAndEndsWithItsCode) {
    m_folder.Write("bad.png", "no image");
    const K4ctlRun refused = Sequence(MakeWords(Path("x.SQ4"), {Path("bad.png")}));
    EXPECT_EQ(refused.code, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "k4ctl: \"" + Path("bad.png").toStdString() +
                               "\" can't be read: Unsupported image format.\n");
    const K4ctlRun usage = Sequence({QStringLiteral("make"), Path("x.SQ4")});
    EXPECT_EQ(usage.code, 2);
    EXPECT_THAT(usage.err, HasSubstr("k4ctl: see k4ctl sequence make --help\n"));
    EXPECT_FALSE(fs::exists(m_folder / "x.SQ4"));
    m_folder.Write("x.SQ4", "no sequence, but as long as nothing");
    EXPECT_EQ(Sequence({QStringLiteral("check"), Path("x.SQ4")}).code, 1);
}

TEST_F(K4ctlSequence, TheToolkitIsSilentAboutDamagedImages) {
    QImage noise(64, 64, QImage::Format_RGB32);
    for (int pixel = 0; pixel < 64 * 64; ++pixel)
        noise.setPixel(pixel % 64, pixel / 64, static_cast<QRgb>(pixel * 2654435761U));
    for (const char* name : {"x.jpg", "x.png", "x.bmp"}) {
        ASSERT_TRUE(noise.save(Path(name)));
        const std::string content = m_folder.Read(name);
        m_folder.Write(name, content.substr(0, content.size() / 2));
        const K4ctlRun run =
            Sequence(MakeWords(Path("x.SQ4"), {QStringLiteral("--force"), Path(name)}));
        EXPECT_LE(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    }
}

// The sample content ------------------------------------------------------------------------------

TEST_F(K4ctlSequence, ANewHomeHasSoundSequencesForEveryLocalSign) {
    const QJsonObject listing = GoodJson({QStringLiteral("signs")});
    int sequences = 0;
    for (const auto each : listing.value(QLatin1String("signs")).toArray()) {
        const QJsonObject sign = each.toObject();
        const std::string type = std::to_string(sign.value(QLatin1String("rows")).toInt()) + "x" +
                                 std::to_string(sign.value(QLatin1String("columns")).toInt()) +
                                 "." +
                                 sign.value(QLatin1String("color"))
                                     .toObject()
                                     .value(QLatin1String("name"))
                                     .toString()
                                     .toStdString();
        const auto before = sequences;
        for (const auto& entry : fs::recursive_directory_iterator(program.Home())) {
            const std::string path = entry.path().string();
            if (entry.path().extension() == ".SQ4" &&
                path.find("/" + type + ".") != std::string::npos)
                ++sequences;
        }
        EXPECT_GT(sequences, before) << type;
    }
    EXPECT_EQ(listing.value(QLatin1String("signs")).toArray().size(), 12);
}

TEST_F(K4ctlSequence, EverySignOfANewHomePlaysASequenceThatIsMadeForIt) {
    int signs = 0;
    for (const char* service : {"Local", "North Tower", "Harbour Gate", "Observatory"})
        for (const QString& sign : Signs(QString::fromLatin1(service))) {
            const QJsonObject status = GoodJson({QStringLiteral("status"), QStringLiteral("-s"),
                                                 QString::fromLatin1(service), sign});
            EXPECT_EQ(status.value(QLatin1String("state")).toString(), QStringLiteral("Playing"));
            const QString file = status.value(QLatin1String("sequence")).toString();
            const QJsonObject facts =
                Sequence({QStringLiteral("show"), file, QStringLiteral("--json")}).Json();
            const QJsonObject config = GoodJson({QStringLiteral("config"), QStringLiteral("-s"),
                                                 QString::fromLatin1(service), sign});
            for (const QLatin1String fact :
                 {QLatin1String("rows"), QLatin1String("columns"), QLatin1String("color")})
                EXPECT_EQ(facts.value(fact), config.value(fact)) << sign.toStdString();
            ++signs;
        }
    EXPECT_EQ(signs, 14);
}

TEST_F(K4ctlSequence, TheSampleContentIsSoundAndOfEightTechnologiesOrMore) {
    std::set<std::string> colors;
    int includes = 0;
    int previews = 0;
    std::uintmax_t bytes = 0;
    const fs::path content =
        fs::path(K4CTL_PROGRAM).parent_path().parent_path() / "share/k4400/sample";
    for (const auto& entry : fs::recursive_directory_iterator(content)) {
        if (!entry.is_regular_file())
            continue;
        bytes += entry.file_size();
        const QString file = QString::fromStdString(entry.path().string());
        EXPECT_EQ(Sequence({QStringLiteral("check"), file}).err, "");
        const QJsonObject facts =
            Sequence({QStringLiteral("show"), file, QStringLiteral("--json")}).Json();
        const std::string color = facts.value(QLatin1String("color"))
                                      .toObject()
                                      .value(QLatin1String("name"))
                                      .toString()
                                      .toStdString();
        colors.insert(color);
        EXPECT_THAT(entry.path().string(),
                    HasSubstr("/" + std::to_string(facts.value(QLatin1String("rows")).toInt()) +
                              "x" + std::to_string(facts.value(QLatin1String("columns")).toInt()) +
                              "." + color + "."));
        EXPECT_FALSE(facts.value(QLatin1String("keywords")).toString().isEmpty()) << entry.path();
        previews += facts.value(QLatin1String("previewOnly")).toBool() ? 1 : 0;
        for (const auto frame : facts.value(QLatin1String("frames")).toArray())
            for (const auto field : frame.toObject().value(QLatin1String("fields")).toArray()) {
                ++includes;
                std::string path = field[QLatin1String("path")].toString().toStdString();
                std::replace(path.begin(), path.end(), '\\', '/');
                EXPECT_TRUE(fs::exists(entry.path().parent_path() / path)) << path;
            }
    }
    EXPECT_GE(colors.size(), 8u);
    EXPECT_GE(includes, 3);
    EXPECT_EQ(previews, 1);
    EXPECT_LT(bytes, 15'000'000u);
}

}  // namespace

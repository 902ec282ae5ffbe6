#include "k4cmndlg/filelist/FileImages.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QImage>
#include <QPixmap>

#include "k4cmndlg/filelist/FilePictures.h"
#include "k4cmndlg/filesel/FileTreeItem.h"
#include "k4cmndlg/filestore/FileTypes.h"

namespace {

using k4cmn::FileImages;

QImage Picture(const QIcon& icon, int side, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(side, side), mode).toImage();
}

bool IsSame(const QIcon& one, const QIcon& other) {
    return Picture(one, 32) == Picture(other, 32);
}

/// How much of a picture is drawn, 0 to 1.
double Covered(const QImage& image) {
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            drawn += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    return static_cast<double>(drawn) / (image.width() * image.height());
}

const char* const kTools[] = {"up", "list", "details", "sign-filter", "properties"};

TEST(Images, StandInTheirPositions) {
    const FileImages images({"SQ4", "AVI"});
    const std::pair<int, const char*> fixed[] = {{k4cmn::kNoticeImage, "notice"},
                                                 {k4cmn::kServerImage, "server"},
                                                 {k4cmn::kSignTypeImage, "sign-type"},
                                                 {k4cmn::kLibraryImage, "library"}};
    for (const auto& [position, name] : fixed)
        EXPECT_TRUE(IsSame(images.At(position), FileImages::OfTool(name))) << name;
    EXPECT_TRUE(IsSame(images.At(k4cmn::kFirstFileImage), FileImages::OfExtension("SQ4")));
    EXPECT_TRUE(IsSame(images.At(k4cmn::kFirstFileImage + 1), FileImages::OfExtension("AVI")));
}

TEST(Images, OutOfRangeIsEmpty) {
    const FileImages images({"SQ4"});
    for (const int position : {-1, 5, 1000})
        EXPECT_TRUE(images.At(position).isNull()) << position;
    EXPECT_TRUE(FileImages().At(k4cmn::kFirstFileImage).isNull());
}

TEST(Images, EachKindAndToolHasItsOwn) {
    std::vector<std::pair<std::string, QIcon>> all;
    for (const char* name :
         {"notice", "server", "file-servers", "sign-type", "library", "any file"})
        all.emplace_back(name, FileImages::OfTool(name));
    for (const std::string& extension : k4cmn::ExtensionsOf(K4_FILE_TYPE_ALL))
        all.emplace_back(extension, FileImages::OfExtension(extension));
    for (const char* name : kTools)
        all.emplace_back(name, FileImages::OfTool(name));
    ASSERT_EQ(all.size(), 18U);
    for (const auto& [name, icon] : all) {
        EXPECT_GT(Covered(Picture(icon, 16)), 0.1) << name;
        for (const auto& [otherName, other] : all)
            EXPECT_EQ(IsSame(icon, other), name == otherName) << name << " and " << otherName;
    }
}

TEST(Images, AnExtensionCountsInEitherCase) {
    EXPECT_TRUE(IsSame(FileImages::OfExtension("sq4"), FileImages::OfExtension("SQ4")));
    for (const char* unknown : {"", "TXT", "up", "notice", "SQ", "SQ44"}) {
        EXPECT_TRUE(IsSame(FileImages::OfExtension(unknown), FileImages::OfTool("any file")))
            << unknown;
    }
}

TEST(Images, AreDrawnAnewInEverySize) {
    for (const char* name : {"server", "details", "list"}) {
        const QImage small = Picture(FileImages::OfTool(name), 16);
        EXPECT_EQ(small.size(), QSize(16, 16));
        for (const int times : {2, 3}) {
            // Edges on whole units: a larger picture is the small one, dot for dot.
            const QImage large = Picture(FileImages::OfTool(name), 16 * times);
            EXPECT_EQ(large, small.scaled(large.size())) << name << " " << times;
        }
    }
    const QPixmap dense = FileImages::OfTool("server").pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(dense.size(), QSize(32, 32));
    EXPECT_EQ(dense.devicePixelRatio(), 2.0);
}

TEST(Images, AreFaintWhereDisabled) {
    for (const char* name : kTools) {
        const QIcon icon = FileImages::OfTool(name);
        const QImage normal = Picture(icon, 16);
        const QImage disabled = Picture(icon, 16, QIcon::Disabled);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                EXPECT_LE(qAlpha(disabled.pixel(x, y)), qAlpha(normal.pixel(x, y)) / 2 + 1);
        }
        EXPECT_EQ(Picture(icon, 16, QIcon::Selected), normal) << name;
    }
}

TEST(Images, GrowWithTheFontByHalves) {
    for (int points = 6; points < 60; ++points) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        const QFontMetrics metrics(font);
        const QSize size = FileImages::SizeBeside(metrics);
        EXPECT_EQ(size.width(), size.height());
        EXPECT_GE(size.width(), 16);
        EXPECT_EQ(size.width() % 8, 0);
        EXPECT_LE(size.width(), std::max(16, metrics.height() + 4));
    }
}

TEST(Pictures, KnowTheirNames) {
    EXPECT_EQ(k4cmn::FilePicture("SQ4").Name(), "SQ4");
    EXPECT_EQ(k4cmn::FilePicture("file").Name(), "file");
    EXPECT_EQ(k4cmn::FilePicture("nothing").Name(), "file");
}

}  // namespace

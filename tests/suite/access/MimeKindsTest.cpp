#include "suite/access/MimeKinds.h"

#include <gtest/gtest.h>

#include <QMimeDatabase>

namespace {

TEST(MimeKinds, ANameIsEnough) {
    const std::string words =
        QMimeDatabase().mimeTypeForName(QStringLiteral("text/plain")).comment().toStdString();
    ASSERT_NE(words, "");
    EXPECT_EQ(k4suite::MimeKinds().TypeName("A:\\nowhere\\notes.txt"), words);
}

struct IconRow {
    const char* path;
    const char* icon;
};

TEST(MimeKinds, EachKindHasTheIconNameOfTheDatabase) {
    constexpr IconRow kRows[] = {
        {"A:\\nowhere\\notes.txt", "text-plain"},
        {"A:\\nowhere\\NOTES.TXT", "text-plain"},
        {"\\\\HOST\\SHARE\\x.Sign\\letter.pdf", "application-pdf"},
        {"/home/one/picture.png", "image-png"},
        {"film.avi", "video-x-msvideo"},
    };
    for (const IconRow& row : kRows)
        EXPECT_EQ(k4suite::MimeKinds().IconName(row.path), row.icon) << row.path;
}

TEST(MimeKinds, AnIconIsThatOfTheNameAndNotOfTheFolder) {
    EXPECT_EQ(k4suite::MimeKinds().IconName("A:\\folder.txt\\x"), "");
    EXPECT_EQ(k4suite::MimeKinds().TypeName("A:\\folder.txt\\x"), "");
}

TEST(MimeKinds, WhatTheSystemDoesNotKnowHasNone) {
    k4suite::MimeKinds kinds;
    for (const char* path : {"A:\\x.SQ4", "A:\\x.SD4", "A:\\x.SC4", "A:\\x.SEQ", "A:\\x.DL4",
                             "A:\\x.SP4", "A:\\x", "", "A:\\", ".", "..", "\xff\xfe.\xff"}) {
        EXPECT_EQ(kinds.TypeName(path), "") << path;
        EXPECT_EQ(kinds.IconName(path), "") << path;
    }
}

TEST(MimeKinds, EveryNameHasItsOwnKindWhateverWasAskedBefore) {
    k4suite::MimeKinds kinds;
    for (int round = 0; round < 2; ++round) {
        for (const char* name :
             {"a.txt",        "CMakeLists.txt", "b.TXT",        "README.txt", "README",
              "readme",       "Makefile",       "makefile",     "plain",      "a.xml",
              "pom.xml",      "POM.XML",        "settings.xml", "a.gz",       "a.tar.gz",
              "b.x.gz",       "tar.gz",         ".gz",          "x.C",        "x.c",
              "x.c~",         "a.SQ4",          "a.SQ4~",       "libx.so.1",  "libx.so",
              "core",         "core.txt",       "a.",           ".",          "2026.11.21 news.txt",
              "\xC3\xA4.png", "\xFF.png",       "*.png",        "[.png"}) {
            const QMimeType kind = QMimeDatabase().mimeTypeForFile(QString::fromUtf8(name),
                                                                   QMimeDatabase::MatchExtension);
            const std::string type = kind.isDefault() ? "" : kind.comment().toStdString();
            const std::string icon = kind.isDefault() ? "" : kind.iconName().toStdString();
            EXPECT_EQ(kinds.TypeName(std::string("A:\\") + name), type) << name;
            EXPECT_EQ(kinds.IconName(std::string("A:\\") + name), icon) << name;
        }
    }
}

TEST(MimeKinds, MoreEndingsThanAreKeptHaveTheirKindsToo) {
    k4suite::MimeKinds kinds;
    const std::string words = kinds.TypeName("a.txt");
    for (int number = 0; number < 5000; ++number)
        EXPECT_EQ(kinds.TypeName("a.none" + std::to_string(number)), "");
    EXPECT_EQ(kinds.TypeName("a.txt"), words);
}

TEST(MimeKinds, NothingInstalledKnowsNone) {
    EXPECT_EQ(k4cmn::Provided<k4cmn::FileKinds>::Current().TypeName("A:\\notes.txt"), "");
    EXPECT_EQ(k4cmn::Provided<k4cmn::FileKinds>::Current().IconName("A:\\notes.txt"), "");
}

}  // namespace

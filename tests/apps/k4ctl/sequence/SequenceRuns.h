#pragma once

#include <gmock/gmock.h>

#include <QImage>
#include <QJsonArray>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "apps/k4ctl/sequence/SequenceCommands.h"
#include "suite/sequence/SequenceFile.h"
#include "tests/apps/k4ctl/CommandRun.h"
#include "tests/support/TempFolder.h"

namespace k4test {

using Words = std::vector<std::string>;

/// Runs of the commands on sequence files, in a folder of the test's own.
class SequenceRuns : public testing::Test {
 protected:
    std::string Path(const std::string& name) const { return (m_folder / name).string(); }
    k4suite::DataHome Home() const { return k4suite::DataHome(m_folder / "home"); }

    /// Runs `sequence` with these words.
    CommandRun Call(Words words) const {
        words.insert(words.begin(), "sequence");
        return CommandRun(std::move(words), k4ctl::SequenceCommands(k4ctl::PlacesOf(Home())));
    }
    /// As above; it must succeed without a complaint.
    CommandRun Good(const Words& words) const {
        const CommandRun run = Call(words);
        EXPECT_EQ(run.code, k4ctl::ExitCode::Done) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "") << testing::PrintToString(words);
        return run;
    }
    /// As above; it must be refused with these words alone, and change nothing in the folder.
    void Refused(const Words& words, const std::string& problem,
                 k4ctl::ExitCode code = k4ctl::ExitCode::Refused) const {
        const Words before = Files();
        const CommandRun run = Call(words);
        EXPECT_EQ(run.code, code) << testing::PrintToString(words);
        EXPECT_EQ(run.err, "k4ctl: " + problem + "\n");
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(Files(), before);
    }

    /// The words that make a sequence of 16 by 24 lamps, and more.
    Words MakeWords(const std::string& out, const Words& more) const {
        Words words = {"make", out, "--size", "16x24", "--color", "RGB16M", "--pixel", "LED"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    /// Saves a picture of one color. @return its path.
    std::string Picture(const std::string& name, QColor color, QSize size = {24, 16}) const {
        QImage picture(size, QImage::Format_ARGB32);
        picture.fill(color);
        return Picture(name, picture);
    }
    std::string Picture(const std::string& name, const QImage& picture) const {
        EXPECT_TRUE(picture.save(QString::fromStdString(Path(name)))) << name;
        return Path(name);
    }

    /// The picture of one frame of a file.
    QImage Frame(const std::string& file, int number = 1) const {
        const TempFolder folder;
        Good({"export", file, folder.Path().string(), "--frames", std::to_string(number)});
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
            return QImage(QString::fromStdString(entry.path().string()))
                .convertToFormat(QImage::Format_RGB32);
        return {};
    }

    /// The facts of a file for machines.
    QJsonObject Facts(const std::string& file) const {
        return Good({"show", file, "--json"}).Json();
    }
    /// A member of each of a file's frames.
    std::vector<std::int64_t> FrameNumbers(const std::string& file, const char* member) const {
        std::vector<std::int64_t> numbers;
        const QJsonObject facts = Facts(file);
        for (const auto each : facts.value(QLatin1String("frames")).toArray())
            numbers.push_back(each.toObject().value(QLatin1String(member)).toInteger());
        return numbers;
    }

    /// The files and folders of the test's folder.
    Words Files() const {
        Words files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path()))
            files.push_back(entry.path().string());
        std::sort(files.begin(), files.end());
        return files;
    }

    TempFolder m_folder;
};

}  // namespace k4test

#include "tests/suite/printing/PdfReader.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <sstream>
#include <utility>

namespace k4test {

namespace {

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

}  // namespace

PdfReader::PdfReader(std::string path) : m_path(std::move(path)) {}

std::vector<std::string> PdfReader::Lines(int page, double pitch) const {
    const QString number = QString::number(page);
    const QByteArray text =
        Run(QStringLiteral("pdftotext"),
            {QStringLiteral("-layout"), QStringLiteral("-fixed"), QString::number(pitch),
             QStringLiteral("-nopgbrk"), QStringLiteral("-f"), number, QStringLiteral("-l"), number,
             QString::fromStdString(m_path), QStringLiteral("-")});
    std::istringstream in(text.toStdString());
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        const std::size_t first = line.find_first_not_of(' ');
        if (first != std::string::npos)
            lines.push_back(line.substr(first));
    }
    return lines;
}

std::string PdfReader::Info(const std::string& key) const {
    std::istringstream in(
        Run(QStringLiteral("pdfinfo"), {QString::fromStdString(m_path)}).toStdString());
    for (std::string line; std::getline(in, line);)
        if (line.starts_with(key + ":"))
            return line.substr(line.find_first_not_of(' ', key.size() + 1));
    return {};
}

int PdfReader::PageCount() const {
    return std::stoi(Info("Pages"));
}

std::string PdfReader::Title() const {
    return Info("Title");
}

std::vector<std::string> PdfReader::Fonts() const {
    std::istringstream in(
        Run(QStringLiteral("pdffonts"), {QString::fromStdString(m_path)}).toStdString());
    std::vector<std::string> fonts;
    std::string line;
    std::getline(in, line);
    std::getline(in, line);  // two lines of headings
    while (std::getline(in, line)) {
        const std::string font = line.substr(0, line.find(' '));
        if (std::find(fonts.begin(), fonts.end(), font) == fonts.end())
            fonts.push_back(font);
    }
    return fonts;
}

QImage PdfReader::Picture(int page, int dotsPerInch) const {
    const QString number = QString::number(page);
    const QByteArray picture = Run(QStringLiteral("pdftoppm"),
                                   {QStringLiteral("-gray"), QStringLiteral("-r"),
                                    QString::number(dotsPerInch), QStringLiteral("-f"), number,
                                    QStringLiteral("-l"), number, QString::fromStdString(m_path)});
    return QImage::fromData(picture).convertToFormat(QImage::Format_Grayscale8);
}

}  // namespace k4test

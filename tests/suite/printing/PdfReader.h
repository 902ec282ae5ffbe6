#pragma once

#include <QImage>
#include <QSizeF>
#include <string>
#include <vector>

namespace k4test {

/// A PDF file, read with programs that other people made.
class PdfReader {
 public:
    explicit PdfReader(std::string path);

    /// The lines of a page that have text, from the top, without the blanks in front; the columns
    /// stand as they do on paper.
    /// @param page from 1. @param pitch of the font, in points.
    std::vector<std::string> Lines(int page, double pitch) const;
    int PageCount() const;
    std::string Title() const;
    /// The names of the fonts, each once.
    std::vector<std::string> Fonts() const;
    /// A picture of a page, in shades of gray.
    QImage Picture(int page, int dotsPerInch) const;

 private:
    std::string Info(const std::string& key) const;

    std::string m_path;
};

}  // namespace k4test

#pragma once

#include <string>
#include <vector>

#include "k4cmndlg/filelist/contracts/PrintSurface.h"

namespace k4suite {

/// What of a text its place tells: where its baseline begins, or the lower left corner of its cell.
enum class TextFoot { Baseline, Bottom };

/// A text on a page, in the page's logical units.
struct PrintedText {
    int x = 0;
    int y = 0;
    TextFoot foot = TextFoot::Baseline;
    std::string text;
    k4cmn::PrintFont font = k4cmn::PrintFont::Plain;
};

using PrintedPage = std::vector<PrintedText>;

/// A document as it was drawn, before it is printed anywhere.
struct PrintedDocument {
    std::string name;
    std::vector<PrintedPage> pages;
};

}  // namespace k4suite

#include "k4cmndlg/signctl/SignFolderForm.h"

#include <algorithm>

#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/signctl/SizeRules.h"

namespace k4cmn {

namespace {

/// The highest color that a folder may have; the last one has no name.
constexpr int kHighestColor = 15;

/// The combo box index of a pixel technology; -1, which is none, for a value out of range.
constexpr int IndexOf(tag_K4_PIXEL_TECH pixel) {
    return pixel >= 1 && pixel <= kPixelTechCount ? pixel - 1 : -1;
}

constexpr bool IsColor(int index) {
    return index >= 0 && index <= kHighestColor;
}

constexpr bool IsPixel(int index) {
    return index >= 0 && index < kPixelTechCount;
}

/// The pixel technology that a color leads to.
int PixelIndexFor(int colorIndex, int pixelIndex) {
    switch (colorIndex) {
        case K4_SIGN_COLOR_QUAD16:
        case K4_SIGN_COLOR_QUAD256:
        case K4_SIGN_COLOR_QUAD64K:
        case K4_SIGN_COLOR_QUAD16M:
            return IndexOf(K4_PIXEL_TECH_INCAND);
        case K4_SIGN_COLOR_TRI3:
        case K4_SIGN_COLOR_TRI256:
        case K4_SIGN_COLOR_RGB64:
        case K4_SIGN_COLOR_RGB4K:
        case K4_SIGN_COLOR_RGB16M:
        case K4_SIGN_COLOR_RGB32KB:
        case K4_SIGN_COLOR_RGB16MB:
            return IndexOf(K4_PIXEL_TECH_LED);
        case K4_SIGN_COLOR_MONO4:
        case K4_SIGN_COLOR_MONO16:
        case K4_SIGN_COLOR_MONO64:
            return pixelIndex == IndexOf(K4_PIXEL_TECH_REFLECT) ? IndexOf(K4_PIXEL_TECH_INCAND)
                                                                : pixelIndex;
        default:
            return pixelIndex;
    }
}

}  // namespace

int SignFolderForm::Initialize(std::uint32_t newRows, std::uint32_t newColumns,
                               tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel, int fixed) {
    rows = newRows;
    columns = newColumns;
    colorIndex = color;
    pixelIndex = IndexOf(pixel);
    m_lastValidPixel = pixel;
    m_isFixed = fixed != 0 && IsColor(color) && IsPixel(pixelIndex);
    m_isInitialized = true;
    return 1;
}

void SignFolderForm::InitializeOnce() {
    if (!m_isInitialized)
        Initialize(8, 16, K4_SIGN_COLOR_MONO1, K4_PIXEL_TECH_INCAND, 0);
}

tag_K4_SIGN_COLOR SignFolderForm::Color() const {
    return CK4Files::IntToColorTech(IsColor(colorIndex) ? colorIndex : 0);
}

tag_K4_PIXEL_TECH SignFolderForm::Pixel() const {
    return CK4Files::IntToPixelTech(IsPixel(pixelIndex) ? pixelIndex + 1 : 1);
}

std::string SignFolderForm::FolderText() const {
    return "Folder: " + CK4Files().BuildSign(rows, columns, Color(), Pixel(), m_isPalette ? 1 : 0) +
           ".Sign";
}

void SignFolderForm::ColorChanged() {
    pixelIndex = PixelIndexFor(colorIndex, pixelIndex);
    m_lastValidPixel = Pixel();
}

void SignFolderForm::PixelChanged(Prompt& prompt) {
    if (IsColorAndPixelTechValid(Color(), Pixel())) {
        m_lastValidPixel = Pixel();
        return;
    }
    prompt.Ask(PlainMessage(TechnologiesDontFitText(Color(), Pixel())));
    pixelIndex = IndexOf(m_lastValidPixel);
}

std::optional<std::string> SignFolderForm::SizeProblem() const {
    if (!IsPixelCountLegal(rows, columns))
        return TooManyPixelsText();
    if (!IsRowsMultipleLegal(rows))
        return RowsMultipleText();
    if (columns % 16 != 0)
        return "Number of columns must be a multiple of 16.\n";
    return std::nullopt;
}

std::uint32_t SignFolderForm::RowsWhenLeft(std::uint32_t typed) {
    return std::min(RoundedSignRows(typed), kMaxSignRows);
}

std::uint32_t SignFolderForm::ColumnsWhenLeft(std::uint32_t typed) {
    return std::min(RoundedSignColumns(typed), kMaxSignColumns);
}

}  // namespace k4cmn

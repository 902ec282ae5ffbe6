#include "k4cmndlg/filestore/SignLimits.h"

#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"

namespace k4cmn {

std::string TooManyPixelsText() {
    return Format("Rows x Cols cannot be > %u", kMaxSignPixels);
}

std::string RowsMultipleText() {
    return "Number of rows must be 7 or a multiple of 8.\n";
}

std::string ColumnsMultipleText() {
    return "Number of columns must be a multiple of 8.\n";
}

std::string InvalidTechnologiesText() {
    return "Color and pixel technology are invalid.";
}

std::vector<std::string> SignSizeMessages(std::uint32_t rows, std::uint32_t columns,
                                          std::uint32_t columnsForMultiple) {
    std::vector<std::string> messages;
    if (rows < kMinSignRows || rows > kMaxSignRows)
        messages.emplace_back("Invalid number of rows.\n");
    if (columns < kMinSignColumns || columns > kMaxSignColumns)
        messages.emplace_back("Invalid number of columns.\n");
    if (!IsPixelCountLegal(rows, columns))
        messages.push_back(TooManyPixelsText());
    if (!IsRowsMultipleLegal(rows))
        messages.push_back(RowsMultipleText());
    if (!IsColumnsMultipleLegal(columnsForMultiple))
        messages.push_back(ColumnsMultipleText());
    return messages;
}

std::vector<std::string> SignSizeMessages(std::uint32_t rows, std::uint32_t columns) {
    return SignSizeMessages(rows, columns, columns);
}

std::vector<std::string> SignTypeMessages(std::uint32_t rows, std::uint32_t columns,
                                          tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    std::vector<std::string> messages = SignSizeMessages(rows, columns);
    if (!IsColorAndPixelTechValid(color, pixel))
        messages.push_back(InvalidTechnologiesText());
    return messages;
}

}  // namespace k4cmn

#include "k4cmndlg/search/SignFault.h"

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"

namespace k4cmn {

std::optional<SignFault> FindSignFault(std::uint32_t rows, std::uint32_t columns,
                                       tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    if (!IsPixelCountLegal(rows, columns))
        return SignFault{SignField::Rows, TooManyPixelsText()};
    if (!IsRowsMultipleLegal(rows))
        return SignFault{SignField::Rows, RowsMultipleText()};
    if (!IsColumnsMultipleLegal(columns))
        return SignFault{SignField::Columns, ColumnsMultipleText()};
    if (!CK4Files::IsColorAndPixelTechValid(color, pixel))
        return SignFault{SignField::Technologies, InvalidTechnologiesText()};
    return std::nullopt;
}

}  // namespace k4cmn

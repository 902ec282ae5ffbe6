#pragma once

namespace k4cmn {

/// The size of a row's label on the screen, in pixels; a printed list takes its units from it.
struct RowLabelSize {
    int width = 0;
    int height = 0;
};

}  // namespace k4cmn

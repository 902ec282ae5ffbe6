#pragma once

#include <QImage>

namespace k4ctl {

/// Gives a picture a table of at most 256 colors, the first of which is black. A picture that has
/// no more keeps its colors exactly; of one that has more, those that are near one another become
/// one.
/// @param picture of any format; one that has a table already is handed back as it is.
QImage WithColorTable(const QImage& picture);

}  // namespace k4ctl

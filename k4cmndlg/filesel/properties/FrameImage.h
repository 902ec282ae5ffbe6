#pragma once

#include <QImage>
#include <QList>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

struct FramePicture;

/// The palette of a frame's picture: as many entries as its pixels tell apart, blue, green and red
/// of the head's table put into the order of the toolkit.
/// @return an empty one if the picture isn't valid or has more than 8 bits a pixel. Threads: any.
K4CMNDLG_EXPORT QList<QRgb> PaletteOf(const FramePicture& picture);

/// A frame's picture as an image of the toolkit, with its colors: what windows draw.
/// @return a null image if the picture isn't valid. Threads: any.
K4CMNDLG_EXPORT QImage ImageOf(const FramePicture& picture);

/// As above, in the colors of a palette that was made before. It counts for a picture of 8 bits a
/// pixel or fewer.
K4CMNDLG_EXPORT QImage ImageOf(const FramePicture& picture, const QList<QRgb>& palette);

}  // namespace k4cmn

#pragma once

#include <QString>

#include "suite/printing/PrintFace.h"
#include "suite/printing/PrintedDocument.h"

class QPagedPaintDevice;

namespace k4suite {

/// Paints a document on a device that has pages. A unit is a thousandth of the shorter side of what
/// can be printed; the origin is that place's top left corner.
///
/// The height of the fixed fonts is that of their cell, from the top of the tallest letters to the
/// foot of the lowest, so that lines that follow each other at that height touch but don't overlap.
/// That of the serif font is its size, which leaves out what the face adds above its letters. A
/// text is one line, from left to right; control characters in it are blanks. What reaches beyond
/// the page is lost there, but never goes to another line.
///
/// @param face for the plain font and the underlined one: a face whose characters are all as wide
///             as each other. With another one, each character gets a cell of its own, so that
///             columns stand below each other all the same.
/// @return whether all of it was painted.
bool PaintDocument(QPagedPaintDevice& device, const PrintedDocument& document,
                   const QString& face = PrintFace());

}  // namespace k4suite

#pragma once

#include <QString>

namespace k4suite {

/// The face that stands for k4cmn::kPrintFontFace on this machine: that one, else one of the same
/// metrics, else another one whose characters are all as wide as each other. Lists in columns need
/// one.
/// Needs a QGuiApplication. @return empty where the machine has no such face.
QString PrintFace();

}  // namespace k4suite

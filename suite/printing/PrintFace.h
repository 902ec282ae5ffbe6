#pragma once

#include <QString>

namespace k4suite {

/// The face that stands for k4cmn::kPrintFontFace on this machine: that one, else one of the same
/// metrics, else another one whose characters are all as wide as each other. Lists in columns need
/// one.
/// Needs a QGuiApplication. @return empty where the machine has no such face.
QString PrintFace();

/// The face that stands for k4cmn::kPrintSerifFace on this machine: that one, else one of the same
/// metrics, else another roman one.
/// Needs a QGuiApplication. @return empty where the machine has none of these; the toolkit then
/// takes the face that it has.
QString PrintSerifFace();

}  // namespace k4suite

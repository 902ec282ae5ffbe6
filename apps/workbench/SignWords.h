#pragma once

#include <QString>

#include "apps/workbench/SignWatcher.h"

namespace workbench {

/// "64 x 192", rows by columns.
QString SizeWords(const SignLook& look);
/// "RGB16M, LED"
QString ColorWords(const SignLook& look);
/// Size, technology and dimming of a sign, in one line.
QString FactWords(const SignLook& look);
/// What a sign does, in one line.
QString StateWords(const SignLook& look);

}  // namespace workbench

#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The order of texts without regard to case, which are compared byte by byte; equal ones keep
/// their order in both directions. Texts that begin alike, as paths do, cost no more than others.
/// @param texts may hold any bytes. @return for each new place the text that comes there.
K4CMNCORE_EXPORT std::vector<std::size_t> OrderOfTexts(const std::vector<std::string_view>& texts,
                                                       bool ascending);

}  // namespace k4cmn

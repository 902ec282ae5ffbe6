#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// @name The orders of the file list's rows.
/// The list has always been sorted by exchanging neighbours, as many passes as rows. What these
/// give is the order that comes out of that, for every input, at the cost of one sort.
/// @return for each new place the row that comes there.
/// @{

/// By text, without regard to case; equal ones keep their order in both directions.
K4CMNCORE_EXPORT std::vector<std::size_t> OrderByText(const std::vector<std::string>& texts,
                                                      bool ascending);

/// By dates of the form "07/31/26 04:05 PM". The two halves of the day count as one, and every year
/// is of the 1900s. Of a text with missing pieces each counts as 1 where it stands before another,
/// and as 2 where it stands behind one. Descending reverses the rows, whatever their order is. All
/// of this is on purpose.
K4CMNCORE_EXPORT std::vector<std::size_t> OrderByDate(const std::vector<std::string>& texts,
                                                      bool ascending);

/// @name The same from the values that the texts are made of, without making them.
/// @{
/// As OrderByText() over SizeText(). @param sizes in bytes.
K4CMNCORE_EXPORT std::vector<std::size_t> OrderBySize(const std::vector<std::uint64_t>& sizes,
                                                      bool ascending);
/// As OrderByDate(), ascending, over the texts of the column "Modified". @param times in seconds
/// since 1970 (UTC).
K4CMNCORE_EXPORT std::vector<std::size_t> OrderByTime(const std::vector<std::int64_t>& times);
/// @}
/// @}

}  // namespace k4cmn

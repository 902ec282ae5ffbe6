#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"

namespace k4ctl {

// What a person calls the things of a sequence. Each operation that reads a word gives 1 and the
// value, or 0 with `problem` saying what is wrong and what would be right; a value that can't be
// read stays as it was. The case of letters doesn't count.

/// Rows and columns of a sign.
struct SignSize {
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
};

/// "ROWSxCOLUMNS", whatever the numbers are.
int ParseSignSize(const std::string& text, SignSize& size, std::string& problem);
/// The rows of a sign: a number from 7 to 2048.
int ParseRows(const std::string& text, std::uint32_t& rows, std::string& problem);
/// The columns of a sign: a number from 16 to 16384.
int ParseColumns(const std::string& text, std::uint32_t& columns, std::string& problem);
/// A color technology by its short name, or its number from 0 to 14.
int ParseColor(const std::string& text, tag_K4_SIGN_COLOR& color, std::string& problem);
/// A pixel technology by its short name, or its number from 1 to 3.
int ParsePixel(const std::string& text, tag_K4_PIXEL_TECH& pixel, std::string& problem);
/// "none", "low" or "medium".
int ParseLevel(const std::string& text, tag_K4_COMPRESS_TYPE& level, std::string& problem);
/// "graphic", "data" or "text": the type of graphic frames.
int ParseFrameType(const std::string& text, std::uint32_t& type, std::string& problem);
/// Milliseconds, 1 at least; several with commas between.
int ParseDwells(const std::string& text, std::vector<std::uint32_t>& dwells, std::string& problem);

/// The keywords or the notes of a sequence: UTF-8 of 255 characters at most.
int ParseText(const std::string& text, std::string& value, std::string& problem);

/// Which frames of a sequence: from `first` to `last`, both counted from 1.
struct FrameRange {
    std::uint32_t first = 1;
    std::uint32_t last = 65535;

    bool Has(std::uint32_t frame) const { return frame >= first && frame <= last; }
};

/// "all", "none", a number, or "FIRST-LAST".
int ParseFrameRange(const std::string& text, FrameRange& range, std::string& problem);

/// The short name of a color technology; its number where it has none.
std::string ColorText(std::uint32_t color);
/// The short name of a pixel technology; its number where it has none.
std::string PixelText(std::uint32_t pixel);
/// "none", "low" or "medium"; any other level's number.
std::string LevelText(std::uint32_t level);
/// "graphic", "data", "text" or "include"; empty for a type that is no frame.
std::string FrameTypeText(std::uint32_t type);
/// "none", "runs" or "deflate"; any other method's number.
std::string MethodText(std::uint32_t method);
/// A time in seconds, with two decimals.
std::string SecondsText(std::uint64_t milliseconds);
/// "1 frame", "2 frames".
std::string CountText(std::uint64_t count, const char* thing);

}  // namespace k4ctl

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/SignTypes.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The sign type that the dialog "Create New Sign Folders" is at, and the rules of its controls.
/// The window puts what it reads into the public fields before it calls an operation, and shows
/// them afterwards. One thread.
class K4CMNCORE_EXPORT SignFolderForm {
 public:
    std::uint32_t rows = 8;
    std::uint32_t columns = 16;
    int colorIndex = 0;  ///< in the combo box, the value itself; -1: none
    int pixelIndex = 0;  ///< in the combo box, the value less one; -1: none

    /// Sets the values to begin with.
    /// @param fixed not 0: the operator mustn't change the sign type. It counts only where color (0
    ///              to 15) and pixel (1 to 3) are in range.
    /// @return 1.
    int Initialize(std::uint32_t newRows, std::uint32_t newColumns, tag_K4_SIGN_COLOR color,
                   tag_K4_PIXEL_TECH pixel, int fixed);
    /// What opening the dialog does: the values of Initialize(8, 16, 0, 1, 0) unless others were
    /// set.
    void InitializeOnce();

    bool IsFixed() const { return m_isFixed; }
    bool IsPalette() const { return m_isPalette; }
    /// Whether rows and columns may be changed.
    bool AreSizesEnabled() const { return !m_isFixed && !m_isPalette; }
    /// Whether the technologies may be changed.
    bool AreTechnologiesEnabled() const { return !m_isFixed; }

    /// The color technology: the index if it is from 0 to 15, else 0.
    tag_K4_SIGN_COLOR Color() const;
    /// The pixel technology: the index plus one if that is from 1 to 3, else 1.
    tag_K4_PIXEL_TECH Pixel() const;
    /// "Folder: ", the sign type and ".Sign".
    std::string FolderText() const;

    /// Another color was chosen: the pixel goes to one that fits it, without a message.
    void ColorChanged();
    /// Another pixel was chosen: one that doesn't fit the color is told and taken back.
    void PixelChanged(Prompt& prompt);
    /// The check box "Create Palette Folder" was clicked.
    void TogglePalette() { m_isPalette = !m_isPalette; }

    /// What is wrong with the size when OK is pressed and both numbers are in their ranges: too
    /// many pixels, rows, columns (which here must be a multiple of 16). The first one counts.
    std::optional<std::string> SizeProblem() const;

    /// @name What the fields become when they are left.
    /// @{
    /// 7, or the nearest multiple of 8 (4 goes up), 2048 at most. Small numbers become 0.
    static std::uint32_t RowsWhenLeft(std::uint32_t typed);
    /// The nearest multiple of 16 (8 goes up), 16384 at most.
    static std::uint32_t ColumnsWhenLeft(std::uint32_t typed);
    /// @}

 private:
    bool m_isInitialized = false;
    bool m_isFixed = false;
    bool m_isPalette = false;
    tag_K4_PIXEL_TECH m_lastValidPixel = K4_PIXEL_TECH_INCAND;
};

}  // namespace k4cmn

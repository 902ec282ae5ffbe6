#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "k4cmndlg/filelist/RowLabelSize.h"
#include "k4cmndlg/filelist/contracts/PrintSurface.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/filestore/contracts/CK4SequenceFile.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/Prompt.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The printed list of the files of a library: a line for each sequence, with what only the file
/// itself tells, and totals. Every sequence is opened in turn; the first that can't be ends the
/// report where it stands.
///
/// The first page holds 58 rows, every other one 57. Used for one report, on one thread.
class K4CMNCORE_EXPORT FileListReport {
 public:
    /// @param rows      the list's rows; must outlive the object.
    /// @param place     of the list; its File doesn't count.
    /// @param typesText what the combo box "File Types:" shows.
    FileListReport(const FileRows& rows, FileLocation place, std::string typesText);

    /// @param label the size of the list's first label. @param now seconds since 1970 (UTC).
    /// @param prompt told of a sequence that can't be opened.
    /// @return whether the document was completed.
    bool Print(PrintSurface& surface, RowLabelSize label, std::int64_t now, Prompt& prompt);

    /// @name Pieces of the report.
    /// @{
    /// At most 16 characters: of a longer name the first 13 and "...".
    static std::string ShortName(std::string_view name);
    /// "%4s.%-2s": whole seconds, and the first two digits of what remains of the milliseconds. A
    /// single digit gets a "0" behind it, on purpose: 5 and 50 milliseconds both are ".50".
    static std::string DurationText(std::uint32_t milliseconds);
    /// The line of one sequence.
    static std::string RowText(std::string_view name, const FileStatus& status, int frames,
                               const tag_K4_SOS_FRM& sos);
    /// @}

 private:
    struct Totals {
        std::uint64_t files = 0;
        std::uint64_t kilobytes = 0;
        std::uint64_t frames = 0;
        std::uint64_t milliseconds = 0;
    };

    void DrawTop(PrintSurface& surface, std::int64_t now) const;
    void DrawHeading(PrintSurface& surface);
    bool DrawRow(PrintSurface& surface, const std::string& name, Prompt& prompt);
    std::string TotalsText() const;

    const FileRows& m_rows;
    const FileLocation m_place;
    const std::string m_typesText;
    RowLabelSize m_label;
    int m_bottom = 0;  ///< of what was drawn last
    Totals m_totals;
};

}  // namespace k4cmn

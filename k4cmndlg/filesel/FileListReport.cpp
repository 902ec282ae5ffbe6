#include "k4cmndlg/filesel/FileListReport.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

namespace {

constexpr char kDocument[] = "K4FileManager";
constexpr char kHeading[] =
    "Name               Size(KB)     Date        Time      Frames    Color         Size      "
    "Dur.(s)";

constexpr int kLeft = 40;
constexpr int kTitleY = 40;
constexpr int kDateY = 60;
constexpr int kTypeY = 100;
constexpr int kHeadingY = 120;
constexpr std::size_t kRowsOfAPage = 57;

constexpr std::size_t kNameWidth = 16;
constexpr std::size_t kCutName = 13;

/// A count as it is printed; one that no library comes to stops at the highest.
int Shown(std::uint64_t count) {
    return static_cast<int>(std::min<std::uint64_t>(count, std::numeric_limits<int>::max()));
}

/// A text filled up with blanks to a number of characters.
std::string Padded(std::string text, std::size_t width) {
    const std::size_t count = CharacterCount(text);
    if (count < width)
        text.append(width - count, ' ');
    return text;
}

}  // namespace

FileListReport::FileListReport(const FileRows& rows, FileLocation place, std::string typesText)
    : m_rows(rows), m_place(std::move(place)), m_typesText(std::move(typesText)) {}

bool FileListReport::Print(PrintSurface& surface, RowLabelSize label, std::int64_t now,
                           Prompt& prompt) {
    m_label = label;
    m_totals = {};
    surface.StartDocument(kDocument);
    surface.StartPage();
    DrawTop(surface, now);
    DrawHeading(surface);
    std::size_t limit = kRowsOfAPage;
    for (std::size_t i = 0; i < m_rows.Rows().size(); ++i) {
        if (i > limit) {
            surface.EndPage();
            surface.StartPage();
            limit += kRowsOfAPage;
            DrawHeading(surface);
        }
        const std::string& name = m_rows.Rows()[i].name;
        if (!name.empty() && !DrawRow(surface, name, prompt))
            return false;
    }
    surface.DrawText(kLeft, m_bottom + 2 * m_label.height, TotalsText(), PrintFont::Plain);
    surface.EndPage();
    surface.EndDocument();
    return true;
}

void FileListReport::DrawTop(PrintSurface& surface, std::int64_t now) const {
    surface.DrawText(kLeft, kTitleY, "Directory listing for " + LibraryFolder(m_place),
                     PrintFont::Plain);
    surface.DrawText(kLeft, kDateY, TimeText("%A, %B %d, %Y  %I:%M:%S %p", LocalTime(now)),
                     PrintFont::Plain);
    surface.DrawText(kLeft, kTypeY, m_typesText, PrintFont::Plain);
}

void FileListReport::DrawHeading(PrintSurface& surface) {
    surface.DrawText(kLeft, kHeadingY, kHeading, PrintFont::Underlined);
    m_bottom = kHeadingY + m_label.height;
}

bool FileListReport::DrawRow(PrintSurface& surface, const std::string& name, Prompt& prompt) {
    const std::string path = LibraryFolder(m_place) + name + "." + m_place.fileExtension;
    FileStatus status;
    Provided<StoreAccess>::Current().GetStatus(path, &status);
    const auto file = Provided<SequenceLibrary>::Current().Create();
    if (!file->Open(path, K4_OPEN_READ)) {
        prompt.Ask(
            {"Error opening Sequence: \n" + path, {}, MessageButtons::Ok, MessageIcon::Stop});
        return false;
    }
    const tag_K4_SOS_FRM* const sos = file->SosData();
    if (!sos)
        return false;
    const int frames = file->FrameCount();
    const PrintRectangle place{kLeft, m_bottom + 1, m_label.width + kLeft,
                               m_bottom + 1 + m_label.height};
    surface.DrawTextAtBottom(place, RowText(name, status, frames, *sos), PrintFont::Plain);
    m_bottom = place.bottom;
    ++m_totals.files;
    m_totals.kilobytes += status.size / 1024;
    m_totals.frames += static_cast<std::uint64_t>(frames);
    m_totals.milliseconds += sos->runTime;
    return true;
}

std::string FileListReport::ShortName(std::string_view name) {
    if (CharacterCount(name) <= kNameWidth)
        return std::string(name);
    return FirstCharacters(name, kCutName) + "...";
}

std::string FileListReport::DurationText(std::uint32_t milliseconds) {
    std::string remainder = Format("%u", milliseconds % 1000);
    if (remainder.size() >= 2)
        remainder.resize(2);
    else
        remainder += "0";
    return Format("%4u.%-2s", milliseconds / 1000, remainder.c_str());
}

std::string FileListReport::RowText(std::string_view name, const FileStatus& status, int frames,
                                    const tag_K4_SOS_FRM& sos) {
    const std::string color(ColorShortName(static_cast<tag_K4_SIGN_COLOR>(sos.color)));
    // A name is filled up here, since a format counts its bytes.
    return Format("%-16s    %5d     %s     %4d    %-8s    %4dx%-4d   %s",
                  Padded(ShortName(name), kNameWidth).c_str(), Shown(status.size / 1024),
                  TimeText("%m-%d-%y    %I:%M %p", LocalTime(status.modified)).c_str(), frames,
                  color.c_str(), sos.rows, sos.columns, DurationText(sos.runTime).c_str());
}

std::string FileListReport::TotalsText() const {
    return Format("%d file(s)     %d KB     %d frames     %4.2f seconds", Shown(m_totals.files),
                  Shown(m_totals.kilobytes), Shown(m_totals.frames),
                  static_cast<double>(m_totals.milliseconds) * 0.001);
}

}  // namespace k4cmn

#include "apps/k4ctl/store/StoreReportCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "apps/k4ctl/sequence/FilePlace.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "apps/k4ctl/sequence/SequenceWords.h"
#include "apps/k4ctl/store/Readable.h"
#include "apps/k4ctl/store/TextPages.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/printing/PdfSurface.h"

namespace k4ctl {
namespace {

namespace fs = std::filesystem;

/// The label of a row as a list shows it on an ordinary screen; a page has its lines that far
/// apart.
constexpr k4cmn::RowLabelSize kLabel{200, k4cmn::kPrintFontHeight};

/// The entry of the combo box "File Types" that stands for an extension; empty where none does.
std::string PluralOf(const std::string& extension) {
    const std::vector<std::string> extensions = k4cmn::ExtensionsOf(k4cmn::kDefaultFileType);
    const std::vector<std::string> plurals = k4cmn::PluralNamesOf(k4cmn::kDefaultFileType);
    const auto at = static_cast<std::size_t>(
        std::find(extensions.begin(), extensions.end(), extension) - extensions.begin());
    return at < plurals.size() ? plurals[at] : std::string();
}

int ParseType(const std::string& text, std::string& type, std::string& problem) {
    std::vector<std::string> types;
    if (!ParseTypes(text, types, problem)) {
        return 0;
    }
    if (types.size() > 1) {
        problem = "a report is of one type of files";
        return 0;
    }
    type = types.front();
    return 1;
}

}  // namespace

CommandText StoreReportCommand::Text() const {
    return {
        "store report", "Report the sequences of a library, as text or PDF",
        "  k4ctl store report 'A:\\64x192.RGB16M.LED.Sign\\Default.Lib'\n"
        "  k4ctl store report A:/64x192.RGB16M.LED.Sign/Default.Lib --modified 7days\n"
        "  k4ctl store report A:/64x192.RGB16M.LED.Sign/Default.Lib --pdf report.pdf --force\n"};
}

void StoreReportCommand::AddArguments(CLI::App& app) {
    app.add_option("LIBRARY", m_library, "The library")->required();
    AddParsed(
        app, "--type", "EXT", ParseType, m_type,
        "Files of this type, SQ4 without it; the report ends at a file that isn't a sequence");
    m_options.AddOrderTo(app);
    app.add_option("--pdf", m_pdf, "A PDF file to make instead of lines of text")->type_name("OUT");
    app.add_flag("--force", m_force, "Replace a file that is there");
}

bool StoreReportCommand::PrintText(k4cmn::FileListReport& report, StoreSession& session) const {
    TextPages pages;
    const bool isComplete = report.Print(pages, kLabel, k4cmn::SecondsNow(), session.Person());
    QJsonArray lines;
    for (const std::string& line : pages.Lines()) {
        session.answer.Say(line);
        lines.append(k4cmn::ToQt(line));
    }
    session.answer.json.insert(QStringLiteral("lines"), lines);
    return isComplete;
}

bool StoreReportCommand::PrintPdf(k4cmn::FileListReport& report, StoreSession& session) const {
    Answer& answer = session.answer;
    answer.json.insert(QStringLiteral("pdf"), k4cmn::ToQt(m_pdf));
    const std::string native = PlacesOf(Home())(m_pdf);
    std::error_code ignored;
    if (native.empty()) {
        answer.Fail(ExitCode::Refused, NoPlaceWords(m_pdf));
        return false;
    }
    if (!m_force && fs::exists(fs::symlink_status(native, ignored))) {
        answer.Fail(ExitCode::Refused, "\"" + native + "\" is there already; --force replaces it.");
        return false;
    }
    k4suite::PdfSurface surface(native);
    const bool isComplete = report.Print(surface, kLabel, k4cmn::SecondsNow(), session.Person());
    if (!surface.Problem().empty()) {
        answer.Fail(ExitCode::Refused,
                    "Cannot write \"" + native + "\": " + surface.Problem() + ".");
    }
    return isComplete && surface.IsPrinted();
}

void StoreReportCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    answer.json.insert(QStringLiteral("library"), k4cmn::ToQt(m_library));
    const auto library = session.Find(m_library, StorePlace::Kind::Library);
    if (!library || !CanRead(*library, answer)) {
        return;
    }
    const k4cmn::FileRows rows = m_options.RowsAt(library->where, m_type);
    FileLocation place = library->where;
    place.fileExtension = m_type;
    k4cmn::FileListReport report(rows, place, PluralOf(m_type));
    const bool isComplete = m_pdf.empty() ? PrintText(report, session) : PrintPdf(report, session);
    if (!isComplete) {
        answer.Fail(ExitCode::Refused, "The report isn't complete.");
    } else if (!m_pdf.empty()) {
        answer.Say(m_pdf + ": " + CountText(rows.Rows().size(), "file"));
    }
    answer.json.insert(QStringLiteral("done"), isComplete);
}

}  // namespace k4ctl

#include "apps/k4ctl/store/ListOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "apps/k4ctl/sequence/OptionWords.h"
#include "k4cmndlg/filesel/FileTreeItem.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4ctl {
namespace {

using k4cmn::FileRows;

// In the order of k4cmn::kLastModifiedTexts and of the columns.
constexpr std::array<const char*, k4cmn::kLastModifiedTexts.size()> kModifiedWords{
    "today", "7days", "last-month", "this-month", "any"};
constexpr std::array<const char*, FileRows::kColumnCount> kColumnWords{"name", "size", "type",
                                                                       "modified"};

/// The files of a type at a place, in the order of their names.
FileRows Filled(FileLocation place, const std::string& extension, int modified) {
    place.fileExtension = extension;
    FileRows rows;
    rows.Fill(place, k4cmn::TypeNameOfExtension(extension), k4cmn::kFirstFileImage,
              k4cmn::LastModifiedFilter(modified, k4cmn::SecondsNow()));
    return rows;
}

/// Puts rows into an order by one of their texts, as clicks on the column's heading do: descending
/// dates are the reversal of the ascending ones.
std::vector<std::size_t> OrderOf(const std::vector<std::string>& texts, int column, bool reverse) {
    const bool isDate = column == FileRows::kModified;
    std::vector<std::size_t> order = FileRows::Order(texts, column, isDate || !reverse);
    if (isDate && reverse) {
        std::reverse(order.begin(), order.end());
    }
    return order;
}

}  // namespace

int ParseTypes(const std::string& text, std::vector<std::string>& types, std::string& problem) {
    const std::vector<std::string> known = k4cmn::ExtensionsOf(k4cmn::kDefaultFileType);
    std::vector<std::string> parsed;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(',', at), text.size());
        int index = 0;
        if (!ParseWord(text.substr(at, end - at), known, "type of files", index, problem)) {
            return 0;
        }
        parsed.push_back(known[static_cast<std::size_t>(index)]);
        at = end + 1;
    }
    types = std::move(parsed);
    return 1;
}

int ParseModified(const std::string& text, int& modified, std::string& problem) {
    return ParseWord(text, kModifiedWords, "time of a last change", modified, problem);
}

int ParseColumn(const std::string& text, int& column, std::string& problem) {
    return ParseWord(text, kColumnWords, "column", column, problem);
}

void ListOptions::AddTo(CLI::App& app) {
    AddParsed(app, "--type", "EXT[,EXT...]", ParseTypes, types,
              "Files of these types: SQ4, SD4, SC4, SEQ, DL4, SP4, AVI; without it all");
    AddOrderTo(app);
}

void ListOptions::AddOrderTo(CLI::App& app) {
    AddParsed(app, "--modified", "WHEN", ParseModified, modified,
              "Files that were changed today, 7days, last-month, this-month or any time");
    AddParsed(app, "--sort", "COLUMN", ParseColumn, column,
              "Order by name, the usual one, size, type or modified");
    app.add_flag("-r,--reverse", reverse, "Turn the order round");
}

std::vector<std::string> ListOptions::Extensions() const {
    std::vector<std::string> extensions = k4cmn::ExtensionsOf(k4cmn::kDefaultFileType);
    std::erase_if(extensions, [this](const std::string& each) {
        return !types.empty() && std::find(types.begin(), types.end(), each) == types.end();
    });
    return extensions;
}

FileRows ListOptions::RowsAt(const FileLocation& place, const std::string& extension) const {
    FileRows rows = Filled(place, extension, modified);
    // Descending dates reverse what is there.
    if (column == FileRows::kModified && reverse) {
        rows.Sort(column, true);
    }
    if (column != FileRows::kName || reverse) {
        rows.Sort(column, !reverse);
    }
    return rows;
}

std::vector<ListedFile> ListOptions::FilesAt(const FileLocation& place) const {
    std::vector<ListedFile> files;
    for (const std::string& extension : Extensions()) {
        const FileRows rows = Filled(place, extension, modified);
        for (std::size_t at = 0; at < rows.Rows().size(); ++at) {
            ListedFile file{rows.Rows()[at].name + "." + extension, extension, rows.Rows()[at], {}};
            for (int each = 0; each < FileRows::kColumnCount; ++each) {
                file.texts[static_cast<std::size_t>(each)] = rows.Text(at, each);
            }
            files.push_back(std::move(file));
        }
    }
    const auto sort = [&files](int by, bool turned) {
        std::vector<std::string> texts;
        for (const ListedFile& file : files) {
            texts.push_back(file.texts[static_cast<std::size_t>(by)]);
        }
        std::vector<ListedFile> sorted;
        for (const std::size_t row : OrderOf(texts, by, turned)) {
            sorted.push_back(std::move(files[row]));
        }
        files = std::move(sorted);
    };
    // A list begins in the order of its names; equal rows of another order keep it.
    sort(FileRows::kName, false);
    if (column != FileRows::kName || reverse) {
        sort(column, reverse);
    }
    return files;
}

}  // namespace k4ctl

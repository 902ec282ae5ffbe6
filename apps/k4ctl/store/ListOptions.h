#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/filestore/FileLocation.h"

namespace CLI {
class App;
}

namespace k4ctl {

/// One file of a list: what the columns of the file selection dialog show of it, and what is behind
/// that.
struct ListedFile {
    std::string name;       ///< with extension
    std::string extension;  ///< as the store knows it
    k4cmn::FileRow row;
    std::array<std::string, k4cmn::FileRows::kColumnCount> texts;
};

/// Which files a list has, and in which order.
struct ListOptions {
    std::vector<std::string> types;  ///< extensions; none: all of the store's
    int modified = k4cmn::kAnyTime;  ///< an entry of k4cmn::kLastModifiedTexts
    int column = k4cmn::FileRows::kName;
    bool reverse = false;

    /// Declares --type, --modified, --sort and --reverse.
    void AddTo(CLI::App& app);
    /// Declares these without --type.
    void AddOrderTo(CLI::App& app);

    /// The extensions in the store's order.
    std::vector<std::string> Extensions() const;

    /// The files of a type at a place, in the order that is asked for.
    k4cmn::FileRows RowsAt(const FileLocation& place, const std::string& extension) const;
    /// The files of all types at a place, in the order that is asked for.
    std::vector<ListedFile> FilesAt(const FileLocation& place) const;
};

// How the words of these options become values, as the operations of Arguments.h do it.

/// Extensions with commas between; case doesn't count.
int ParseTypes(const std::string& text, std::vector<std::string>& types, std::string& problem);
/// "today", "7days", "last-month", "this-month" or "any".
int ParseModified(const std::string& text, int& modified, std::string& problem);
/// "name", "size", "type" or "modified".
int ParseColumn(const std::string& text, int& column, std::string& problem);

}  // namespace k4ctl

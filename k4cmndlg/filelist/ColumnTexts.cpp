#include "k4cmndlg/filelist/ColumnTexts.h"

#include <algorithm>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/LibraryStrings.h"

namespace k4cmn {

std::vector<FileColumn> ColumnsOf(std::uint32_t resource, std::size_t rightAligned) {
    const std::string text = LoadString(resource) + " ";
    std::vector<FileColumn> columns;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(',', at), text.size());
        columns.push_back({text.substr(at, end - at), columns.size() == rightAligned});
        at = end + 1;
    }
    return columns;
}

std::string SizeText(std::uint64_t bytes) {
    return Format("%5llu KB", static_cast<unsigned long long>(bytes / 1024));
}

}  // namespace k4cmn

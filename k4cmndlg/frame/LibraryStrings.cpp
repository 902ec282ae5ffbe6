#include "k4cmndlg/frame/LibraryStrings.h"

namespace k4cmn {

namespace {

// clang-format off: one row a line, however long the headings are.
constexpr StringRow kRows[] = {
    {IDS_FILE_COLUMNS,
     "Name                       ,         Size,Type                , Modified                "},
    {IDS_FOUND_COLUMNS,
     "Name                       , In Folder                 ,         Size,Type                , "
     "Modified                "},
    {IDS_DOWNLOAD_COLUMNS,
     "Command           ,Param 1                        ,Param 2                       ,     "
     "Param3               , Param4    "},
    {IDS_CONNECT_COLUMNS, "Service               ,   Phone Book Entry,   Connected State"},
    {AFX_IDP_PARSE_INT, "Enter an integer."},
    {AFX_IDP_PARSE_INT_RANGE, "Enter an integer between %1 and %2."},
    {AFX_IDP_PARSE_STRING_SIZE, "Enter no more than %1 characters."},
};
// clang-format on

}  // namespace

StringTable LibraryStrings() {
    return kRows;
}

}  // namespace k4cmn

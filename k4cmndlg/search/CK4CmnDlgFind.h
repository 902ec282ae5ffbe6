#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "k4cmndlg/frame/CPropertySheet.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/search/CK4CmnDlgFindNam.h"
#include "k4cmndlg/search/CK4CmnDlgFindSign.h"
#include "k4cmndlg/search/CK4CmnDlgFindSize.h"

/// The dialog "Find Files": looks for files of the store by name, keywords, sign, size and time,
/// and lists what it finds. A search in "New" mode goes through the store; one in "Previous" mode
/// narrows what is listed. A double click on a row ends the dialog with that file.
///
/// The list appears at the first search. Its context menu shows the properties of the selected
/// sequence (the sheet stays and follows the selection), deletes and prints the file, and prints
/// the list.
///
/// Use:
///
///     CK4CmnDlgFind dialog("Find Files", this, 0);
///     dialog.SetSearchPath(path);
///     dialog.SetFileType(0);
///     if (dialog.DoModal() == IDOK)
///         Open(dialog.GetSearchPath(), dialog.GetFileSel(), dialog.GetFileType());
///
/// Ownership: the caller's; the parent isn't owned. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnDlgFind final : public CPropertySheet {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnDlgFind)

 public:
    /// @param captionId resource number of the title. @param parent may be null. @param firstPage
    /// has
    ///        no effect: the first page is in front.
    CK4CmnDlgFind(std::uint32_t captionId, QWidget* parent, int firstPage = 0);
    /// @param caption the title.
    CK4CmnDlgFind(const char* caption, QWidget* parent, int firstPage = 0);
    ~CK4CmnDlgFind() override;

    // Before the dialog runs.
    void SetServer(const std::string& server);
    void SetSignType(const std::string& signType);
    void SetLibrary(const std::string& library);
    /// @param type an index in k4cmn::kSearchExtensions.
    void SetFileType(int type);
    /// Takes a path apart into the place to search, and shows it in "Look in:". The file type
    /// becomes that of the path, if it has a known one.
    void SetSearchPath(const std::string& path);

    // After it has ended: the row that was selected last.
    const std::string& GetServer() const;
    const std::string& GetSignType() const;
    const std::string& GetLibrary() const;
    /// The name of the chosen file without its extension; empty for none.
    const std::string& GetFileSel() const;
    /// The file type of the chosen file; -1 for one out of the list of types, and for none.
    int GetFileType() const;
    /// The folder of the chosen file, with '\' at its end; empty without a server.
    std::string GetSearchPath() const;
};

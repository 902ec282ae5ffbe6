#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <string>

#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"

namespace k4cmn {

/// The properties sheet that stands beside a dialog with a list of files and follows the list. The
/// sheet is made when it is first asked for, and again after it has been closed.
///
/// Showing a file may show messages: the object must be kept alive meanwhile, the window needn't.
/// Ownership: the sheet is owned; the window isn't. Threads: the user interface thread.
class PropertiesLink {
 public:
    /// @param window the sheet's parent, which the sheet's messages go to.
    explicit PropertiesLink(QWidget& window) : m_window(&window) {}
    ~PropertiesLink();
    PropertiesLink(const PropertiesLink&) = delete;
    PropertiesLink& operator=(const PropertiesLink&) = delete;

    /// Shows a sequence in a sheet, making one if none is open. A sheet that shows it already comes
    /// to the front. @param path in any case of letters; empty for none.
    void Open(const std::string& path);
    /// Tells an open sheet of the file that was taken over; the one that it shows is read anew.
    void Follow(const std::string& path);
    /// Has an open sheet show another file. Does nothing where it shows that one, in any case of
    /// letters.
    void MoveTo(const std::string& path);
    bool IsOpen() const { return m_sheet != nullptr; }

    /// A sheet's window is going. @param sheet its address.
    void Forget(std::uintptr_t sheet);
    /// Closes an open sheet as its OK does, so that changes are saved; one that can't save them
    /// says so and is closed all the same.
    void Close();

 private:
    void Show(const std::string& path);
    bool Shows(const std::string& path) const;

    QPointer<QWidget> m_window;
    QPointer<CK4CmnDlgFileProp> m_sheet;
    bool m_isShowing = false;
};

}  // namespace k4cmn

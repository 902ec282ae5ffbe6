#pragma once

namespace k4cmn {

/// The dialog with a list of files beside which a preview pane stands: what the pane asks of it.
///
/// GetListFile() and ShowFilesList() may show another file in the pane; PropertiesButtonPressed()
/// may also end or delete it.
/// Ownership: the pane doesn't own it. Threads: the user interface thread.
class FileListOwner {
 public:
    virtual ~FileListOwner() = default;

    /// Takes over the first selected row of the list. @return 1, or 0 if there is none.
    virtual int GetListFile() = 0;
    /// Fills the list anew. @return 1, or 0 if there is nothing to list.
    virtual int ShowFilesList() = 0;
    /// Does what a press on the properties button (id 1079) does: the pane has been closed.
    virtual void PropertiesButtonPressed() = 0;
};

}  // namespace k4cmn

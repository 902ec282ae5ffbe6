#pragma once

#include <string>

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "k4cmndlg/k4cmncore_export.h"

/// A file of chunks with its file record, keywords and notes.
/// Ownership: pointers that it gives stay its own, and end with Close() and with the object.
/// Threads: one at a time. An int result is 1 for success and 0 for failure.
class K4CMNCORE_EXPORT CK4RiffFile {
 public:
    virtual ~CK4RiffFile();

    /// The file record. The compression level may be changed; saving stores it.
    /// @return null if no file is open.
    virtual tag_K4_RIFF_FILE_DATA* RiffHdr() = 0;

    /// The keywords; empty if no file is open, never null.
    virtual const char* GetPtrToKeywords() const = 0;
    /// The notes; empty if no file is open, never null.
    virtual const char* GetPtrToComments() const = 0;
    /// Changes the keywords, until they are saved in this object alone.
    /// @return 0 if no file is open, or the text has more than 1023 bytes or a 0 byte.
    virtual int SetKeywordsString(const std::string& text) = 0;
    /// Changes the notes, as SetKeywordsString() does the keywords.
    virtual int SetCommentsString(const std::string& text) = 0;

    /// The words of the last failure; empty if there was none, never null.
    virtual const char* GetPtrToErrorString() const = 0;

    /// Closes the file. Changes that weren't saved are lost.
    virtual void Close() = 0;
};

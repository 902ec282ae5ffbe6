#pragma once

#include <cstdint>
#include <string>

#include "k4cmndlg/filestore/contracts/CK4Frame.h"
#include "k4cmndlg/filestore/contracts/CK4RiffFile.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"

/// A sequence file: facts, texts and frames. Made by SequenceLibrary::Create(); destroying it
/// releases everything.
class K4CMNCORE_EXPORT CK4SequenceFile : public CK4RiffFile {
 public:
    ~CK4SequenceFile() override;

    /// Opens a file, the one that was open being closed.
    /// @param path a composed path of the store.
    /// @return 1, or 0 with words: there is no such file, it can't be read or written, or it isn't
    ///         a sequence.
    virtual int Open(const std::string& path, K4OpenFlags flags) = 0;

    /// The start record. The thumbnail frame and the run time may be changed; saving stores them.
    /// @return null if no file is open.
    virtual tag_K4_SOS_FRM* SosData() = 0;
    /// The number of frames; 0 if no file is open.
    virtual int FrameCount() const = 0;
    /// One frame, from 1. It lives until the next call of Frame(), Open() or Close().
    /// @return null if there is no such frame; words tell where a file isn't sound.
    virtual CK4Frame* Frame(int number) = 0;
    /// The run time in milliseconds: the sum of the dwell times of the frames that are there,
    /// 4,294,967,295 at most. Include frames have no time of their own.
    virtual std::uint32_t CalcRunTime() = 0;
    /// Not 0 for a preview-only sequence.
    virtual int IsPreviewOnly() const = 0;

    /// Writes what was changed of header, keywords and notes since the file was opened or saved.
    /// Whatever happens, the file then has all of the old values or all of the new ones. Values
    /// that weren't changed here stay as the file has them by now, and show from then on. The file
    /// stays open, and may be changed and saved again.
    /// @return 1, or 0 with words: the file isn't open for writing, is cut short, was removed or
    ///         replaced, is kept locked by another program, or can't be written, as on a full disk.
    virtual int Save() = 0;
};

#pragma once

#include "k4cmndlg/filestore/contracts/SequenceRecords.h"
#include "k4cmndlg/k4cmncore_export.h"

/// What unpacks the bulb data of one frame.
class K4CMNCORE_EXPORT CK4BulbData {
 public:
    /// The bytes that Unpack() writes before the bulb data.
    static constexpr int kHeadBytes = 8;

    virtual ~CK4BulbData();

    /// Says how the data is packed. It begins as the method in the frame's header.
    virtual void SetCompressMethod(tag_K4_BULB_COMPRESS_TYPE method) = 0;

    /// Unpacks into a caller's buffer: a chunk head of 8 bytes, and the bulb data behind it.
    /// @param buffer     has room for the frame's bulb data and 10 bytes.
    /// @param firstFrame 0.
    /// @param frames     how many frames to unpack: 1.
    /// @return 1, or 0 if the data can't be read or isn't sound, or an argument isn't as above; the
    ///         file has the words, and what is in the buffer is undefined.
    virtual int Unpack(void* buffer, int firstFrame, int frames) = 0;
};

#pragma once

#include <cstdint>

#include "k4cmndlg/filestore/contracts/CK4BulbData.h"
#include "k4cmndlg/filestore/contracts/CK4Frame.h"
#include "k4cmndlg/filestore/contracts/SequenceRecords.h"

/// A frame that shows a picture.
class K4CMNCORE_EXPORT CK4GphFrame : public CK4Frame {
 public:
    ~CK4GphFrame() override;

    /// The frame's bulb data, unpacked: k4cmn::BytesOfFrame() bytes, the frame's own.
    /// @return null if the data can't be read or isn't sound; the file has the words.
    virtual const std::uint8_t* BulbData() = 0;
    /// The frame's header, the frame's own. Never null.
    virtual const tag_K4_GRP_HDR* GphHdr() const = 0;
    /// What unpacks the frame, the frame's own. Never null.
    virtual CK4BulbData* GetBulbObj() = 0;
};

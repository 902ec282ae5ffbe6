#pragma once

#include <vector>

#include "k4cmndlg/filestore/contracts/CK4GphFrame.h"
#include "suite/sequence/SequenceReader.h"

namespace k4suite {

/// A graphic frame of an open file, and what unpacks it. Its data is read when it is asked for.
class GraphicFrame final : public CK4GphFrame, private CK4BulbData {
 public:
    /// @param reader, words the file's; must outlive the object. `words` takes those of failures.
    GraphicFrame(SequenceReader& reader, const FramePlace& place, const tag_K4_GRP_HDR& header,
                 std::string& words);

    std::uint32_t Type() const override { return m_place.type; }
    const std::uint8_t* BulbData() override;
    const tag_K4_GRP_HDR* GphHdr() const override { return &m_header; }
    CK4BulbData* GetBulbObj() override { return this; }

 private:
    void SetCompressMethod(tag_K4_BULB_COMPRESS_TYPE method) override { m_method = method; }
    int Unpack(void* buffer, int firstFrame, int frames) override;
    int Fail(const SequenceDefect& defect);

    SequenceReader& m_reader;
    const FramePlace m_place;
    const tag_K4_GRP_HDR m_header;
    std::string& m_words;
    tag_K4_BULB_COMPRESS_TYPE m_method;
    std::vector<std::uint8_t> m_data;
};

}  // namespace k4suite

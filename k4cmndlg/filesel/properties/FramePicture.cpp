#include "k4cmndlg/filesel/properties/FramePicture.h"

#include <new>

#include "k4cmndlg/filestore/contracts/CK4GphFrame.h"

namespace k4cmn {

namespace {

/// Room that unpacking wants beyond the bulb data.
constexpr std::size_t kUnpackRoom = 10;

bool IsGraphic(std::uint32_t type, bool textIsGraphic) {
    return type == kGraphicFrame || type == kDataFrame || (textIsGraphic && type == kTextFrame);
}

/// The frame's bulb data: its own, or unpacked into `buffer`. Null if it can't be had.
const std::uint8_t* BulbsOf(CK4GphFrame& frame, std::uint32_t level, std::uint64_t bytes,
                            std::vector<std::uint8_t>& buffer) {
    if (level == K4_COMPRESS_NONE)
        return frame.BulbData();
    buffer.resize(static_cast<std::size_t>(bytes) + kUnpackRoom);
    CK4BulbData& bulbs = *frame.GetBulbObj();
    bulbs.SetCompressMethod(
        static_cast<tag_K4_BULB_COMPRESS_TYPE>(frame.GphHdr()->compressionType));
    return bulbs.Unpack(buffer.data(), 0, 1) ? buffer.data() + CK4BulbData::kHeadBytes : nullptr;
}

}  // namespace

void FramePicture::Clear() {
    *this = {};
}

FrameResult FramePicture::Convert(CK4SequenceFile& file, int number, bool textIsGraphic) {
    CK4Frame* frame = file.Frame(number);
    if (!frame)
        return FrameResult::NoFrame;
    Clear();
    if (!IsGraphic(frame->Type(), textIsGraphic))
        return FrameResult::NonGraphic;
    const tag_K4_SOS_FRM& start = *file.SosData();
    const std::uint64_t bytes = BytesOfFrame(start.rows, start.columns, start.color);
    const auto color = static_cast<tag_K4_SIGN_COLOR>(start.color);
    try {
        std::vector<std::uint8_t> unpacked;
        const std::uint8_t* bulbs = BulbsOf(static_cast<CK4GphFrame&>(*frame),
                                            file.RiffHdr()->compressionLevel, bytes, unpacked);
        if (!bulbs) {
            words = file.GetPtrToErrorString();
            return FrameResult::Unreadable;
        }
        pixels.resize(std::size_t{start.rows} * start.columns * 4);
        if (Provided<K4BulbCv>::Current().Bulb2DIB(bulbs, bytes, start.rows, start.columns, color,
                                                   &header, pixels.data(), pixels.size(),
                                                   color == K4_SIGN_COLOR_MONO1 ? 1 : 8))
            return FrameResult::Picture;
        Clear();
        words = "The frame can't be made a picture.";
    } catch (const std::bad_alloc&) {
        Clear();
        words = "There is no memory for the frame.";
    }
    return FrameResult::Unreadable;
}

}  // namespace k4cmn

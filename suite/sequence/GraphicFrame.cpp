#include "suite/sequence/GraphicFrame.h"

#include <cstring>
#include <new>

namespace k4suite {

namespace {

/// What BulbData() gives for a technology without bulb data, which is no failure.
constexpr std::uint8_t kNoData = 0;

}  // namespace

GraphicFrame::GraphicFrame(SequenceReader& reader, const FramePlace& place,
                           const tag_K4_GRP_HDR& header, std::string& words)
    : m_reader(reader),
      m_place(place),
      m_header(header),
      m_words(words),
      m_method(static_cast<tag_K4_BULB_COMPRESS_TYPE>(header.compressionType)) {}

int GraphicFrame::Fail(const SequenceDefect& defect) {
    m_words = DefectText(defect);
    return 0;
}

const std::uint8_t* GraphicFrame::BulbData() {
    const auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(m_header.compressionType);
    SequenceDefect defect;
    if (!m_data.empty())
        return m_data.data();
    // The numbers are looked at before memory is taken.
    if (!m_reader.CanReadBulbs(m_place, method, defect)) {
        Fail(defect);
        return nullptr;
    }
    try {
        std::vector<std::uint8_t> data(m_reader.FrameBytes());
        if (m_reader.ReadBulbs(m_place, method, data, defect)) {
            m_data = std::move(data);
            return m_data.empty() ? &kNoData : m_data.data();
        }
    } catch (const std::bad_alloc&) {
        defect = {m_place.offset, "There is no memory for the frame."};
    }
    Fail(defect);
    return nullptr;
}

int GraphicFrame::Unpack(void* buffer, int firstFrame, int frames) {
    if (!buffer || firstFrame != 0 || frames != 1)
        return Fail({m_place.offset, "The frame is unpacked alone, into a buffer."});
    auto* to = static_cast<std::uint8_t*>(buffer);
    SequenceDefect defect;
    try {
        if (!m_reader.ReadBulbs(m_place, m_method, {to + kHeadBytes, m_reader.FrameBytes()},
                                defect))
            return Fail(defect);
    } catch (const std::bad_alloc&) {
        return Fail({m_place.offset, "There is no memory for the frame."});
    }
    const ChunkHead head{k4cmn::FourCharacterCode("blb "),
                         static_cast<std::uint32_t>(m_reader.FrameBytes())};
    static_assert(sizeof head == kHeadBytes);
    std::memcpy(to, &head, sizeof head);
    return 1;
}

}  // namespace k4suite

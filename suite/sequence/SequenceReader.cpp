#include "suite/sequence/SequenceReader.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "suite/sequence/BulbPacking.h"

namespace k4suite {

namespace {

constexpr char kCutShort[] = "The file is shorter than it was, or can't be read.";

std::uint16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
    return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

bool ParseFields(std::span<const std::uint8_t> content, std::vector<IncludeField>& fields,
                 SequenceDefect& defect) {
    constexpr std::size_t kFieldHead = 4;
    const std::size_t count = WordAt(content, 0);
    std::size_t at = kFieldHead;
    for (std::size_t i = 0; i < count; ++i) {
        if (content.size() - at < kFieldHead ||
            content.size() - at - kFieldHead < WordAt(content, at + 2)) {
            defect = {at, "The include frame ends inside of a field."};
            return false;
        }
        const std::size_t length = WordAt(content, at + 2);
        const auto* path = reinterpret_cast<const char*>(content.data() + at + kFieldHead);
        if (std::memchr(path, 0, length)) {
            defect = {at + kFieldHead, "A path of the include frame has a 0 byte."};
            return false;
        }
        fields.push_back({WordAt(content, at), std::string(path, length)});
        at += kFieldHead + length;
    }
    if (at != content.size())
        defect = {at, "There are bytes behind the include frame's fields."};
    return at == content.size();
}

}  // namespace

bool IsGraphicFrame(std::uint32_t type) {
    return type == k4cmn::kGraphicFrame || type == k4cmn::kDataFrame || type == k4cmn::kTextFrame;
}

bool IsFrame(std::uint32_t type) {
    return IsGraphicFrame(type) || type == k4cmn::kIncludeFrame;
}

SequenceReader::SequenceReader(ByteSource& bytes, const SequenceHead& head)
    : m_bytes(bytes),
      m_ahead(bytes),
      m_frameBytes(static_cast<std::size_t>(
          k4cmn::BytesOfFrame(head.start.rows, head.start.columns, head.start.color))),
      m_end(std::min(bytes.Size(), head.FormEnd())),
      m_next(sizeof(SequenceHead)) {}

std::optional<FramePlace> SequenceReader::Find(std::uint32_t number, SequenceDefect& defect) {
    while (m_places.size() < number)
        if (!FindNext(defect))
            return {};
    return m_places[number - 1];
}

bool SequenceReader::FindNext(SequenceDefect& defect) {
    while (m_next < m_end) {
        const std::uint64_t left = m_end - m_next;
        ChunkHead head;
        std::array<std::uint8_t, sizeof head> raw{};
        if (left < sizeof head) {
            defect = {m_next, "The file ends inside of a chunk's head."};
            return false;
        }
        if (!m_ahead.Read(m_next, raw)) {
            defect = {m_next, kCutShort};
            return false;
        }
        std::memcpy(&head, raw.data(), sizeof head);
        // Where a machine stopped before all was written, a file is filled up with 0.
        if (head.type == 0) {
            defect = {m_next, "A chunk has no type."};
            return false;
        }
        if (head.size > left - sizeof head) {
            defect = {m_next, "A chunk of " + std::to_string(head.size) +
                                  " bytes goes over the file's end."};
            return false;
        }
        FramePlace place{m_next + sizeof head, head.type, head.size, 0};
        if (!ReadDwell(place, defect))
            return false;
        const bool isFrame = IsFrame(head.type);
        if (isFrame)
            m_places.push_back(place);
        m_next = place.offset + head.PaddedSize();
        if (isFrame)
            return true;
    }
    defect = {m_end, "The file ends after " + std::to_string(m_places.size()) + " frames."};
    return false;
}

bool SequenceReader::ReadDwell(FramePlace& place, SequenceDefect& defect) {
    if (!IsGraphicFrame(place.type) || place.size < sizeof(tag_K4_GRP_HDR))
        return true;
    std::array<std::uint8_t, sizeof place.dwell> dwell{};
    if (!m_ahead.Read(place.offset, dwell)) {
        defect = {place.offset, kCutShort};
        return false;
    }
    std::memcpy(&place.dwell, dwell.data(), sizeof place.dwell);
    return true;
}

bool SequenceReader::ReadExactly(std::uint64_t offset, std::span<std::uint8_t> bytes,
                                 SequenceDefect& defect) {
    const std::size_t count = m_bytes.ReadAt(offset, bytes);
    if (count != bytes.size())
        defect = {offset + count, kCutShort};
    return count == bytes.size();
}

bool SequenceReader::ReadHeader(const FramePlace& place, tag_K4_GRP_HDR& header,
                                SequenceDefect& defect) {
    if (place.size < sizeof header) {
        defect = {place.offset, "A graphic frame of " + std::to_string(place.size) +
                                    " bytes is too short for its header."};
        return false;
    }
    std::array<std::uint8_t, sizeof header> raw{};
    if (!ReadExactly(place.offset, raw, defect))
        return false;
    std::memcpy(&header, raw.data(), sizeof header);
    return true;
}

bool SequenceReader::CanReadBulbs(const FramePlace& place, tag_K4_BULB_COMPRESS_TYPE method,
                                  SequenceDefect& defect) const {
    defect.offset = place.offset;
    return CanUnpack(method, place.size - sizeof(tag_K4_GRP_HDR), m_frameBytes, defect);
}

bool SequenceReader::ReadBulbs(const FramePlace& place, tag_K4_BULB_COMPRESS_TYPE method,
                               std::span<std::uint8_t> data, SequenceDefect& defect) {
    if (!CanReadBulbs(place, method, defect))
        return false;
    const std::uint64_t offset = place.offset + sizeof(tag_K4_GRP_HDR);
    if (method == K4_BULB_COMPRESS_NONE)
        return ReadExactly(offset, data, defect);
    std::vector<std::uint8_t> packed(place.size - sizeof(tag_K4_GRP_HDR));
    if (!ReadExactly(offset, packed, defect))
        return false;
    if (UnpackBulbs(method, packed, data, defect))
        return true;
    defect.offset += offset;
    return false;
}

bool SequenceReader::ReadInclude(const FramePlace& place, std::vector<IncludeField>& fields,
                                 SequenceDefect& defect) {
    if (place.size < 4 || place.size > kLongestInclude) {
        defect = {place.offset, "An include frame of " + std::to_string(place.size) +
                                    " bytes is too short or too long."};
        return false;
    }
    std::vector<std::uint8_t> content(place.size);
    if (!ReadExactly(place.offset, content, defect))
        return false;
    if (ParseFields(content, fields, defect))
        return true;
    defect.offset += place.offset;
    return false;
}

}  // namespace k4suite

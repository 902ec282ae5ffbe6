#include "suite/sequence/Deflate.h"

#include <zlib.h>

#include <limits>

namespace k4suite {

namespace {

/// An unpacking stream that is ended with its object.
class Inflater {
 public:
    Inflater() { m_ready = inflateInit(&stream) == Z_OK; }
    ~Inflater() {
        if (m_ready)
            inflateEnd(&stream);
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    explicit operator bool() const { return m_ready; }

    z_stream stream{};

 private:
    bool m_ready = false;
};

bool IsInRange(std::size_t bytes) {
    return bytes < std::numeric_limits<uInt>::max();
}

}  // namespace

std::vector<std::uint8_t> PackDeflate(std::span<const std::uint8_t> data) {
    uLongf length = compressBound(static_cast<uLong>(data.size()));
    std::vector<std::uint8_t> packed(length);
    if (compress2(packed.data(), &length, data.data(), static_cast<uLong>(data.size()),
                  Z_DEFAULT_COMPRESSION) != Z_OK)
        return {};
    packed.resize(length);
    return packed;
}

bool UnpackDeflate(std::span<const std::uint8_t> packed, std::span<std::uint8_t> data,
                   SequenceDefect& defect) {
    Inflater inflater;
    if (!inflater || !IsInRange(packed.size()) || !IsInRange(data.size())) {
        defect = {0, "The packed data can't be unpacked here."};
        return false;
    }
    z_stream& stream = inflater.stream;
    // The stream takes a pointer to changeable bytes and doesn't change them.
    stream.next_in = const_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    std::uint8_t spare = 0;
    // A stream without content still wants a place to write to.
    stream.next_out = data.empty() ? &spare : data.data();
    stream.avail_out = static_cast<uInt>(data.size());
    int state = inflate(&stream, Z_FINISH);
    const bool isFull = stream.avail_out == 0;
    if (isFull && state != Z_STREAM_END && state != Z_DATA_ERROR) {
        // One more byte shows whether only the stream's end is still to come, or more data.
        stream.next_out = &spare;
        stream.avail_out = 1;
        state = inflate(&stream, Z_FINISH);
        if (stream.avail_out == 0) {
            defect = {stream.total_in, "The packed data holds more than the frame's bulb data."};
            return false;
        }
    }
    if (state == Z_DATA_ERROR || state == Z_NEED_DICT) {
        defect = {stream.total_in, "The packed data isn't a sound zlib stream."};
        return false;
    }
    if (state != Z_STREAM_END) {
        defect = {stream.total_in, "The packed data ends inside of its zlib stream."};
        return false;
    }
    if (!isFull) {
        defect = {stream.total_in, "The packed data holds less than the frame's bulb data."};
        return false;
    }
    if (stream.avail_in != 0) {
        defect = {stream.total_in, "There are bytes behind the packed data."};
        return false;
    }
    return true;
}

}  // namespace k4suite

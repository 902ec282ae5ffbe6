#include "suite/signservice/SequenceFrames.h"

#include <algorithm>
#include <utility>

#include "suite/signservice/BulbLight.h"
#include "suite/signservice/PictureFit.h"

namespace k4suite {

namespace {

/// How many bytes of bulb data are unpacked in search of a sound frame.
constexpr std::uint64_t kMostSearched = 256U << 20;

tag_K4_PIXEL_TECH PixelOf(const tag_K4_SOS_FRM& facts) {
    const bool isKnown = facts.pixel >= K4_PIXEL_TECH_INCAND && facts.pixel <= K4_PIXEL_TECH_LED;
    return isKnown ? static_cast<tag_K4_PIXEL_TECH>(facts.pixel) : K4_PIXEL_TECH_INCAND;
}

}  // namespace

SequenceFrames::SequenceFrames(k4cmn::FilesProvider& files, const k4cmn::SignSettings& sign)
    : m_parts(files),
      m_rows(sign.rows),
      m_columns(sign.columns),
      m_color(sign.color),
      m_light(Lamps(sign.rows, sign.columns)) {}

std::unique_ptr<SequenceFrames> SequenceFrames::Open(k4cmn::FilesProvider& files,
                                                     const std::string& path,
                                                     const k4cmn::SignSettings& sign) {
    std::unique_ptr<SequenceFrames> frames(new SequenceFrames(files, sign));
    const std::optional<std::uint32_t> first = frames->m_parts.Find(path);
    if (!first)
        return nullptr;
    FrameList list(frames->m_parts);
    list.Add(*first);
    frames->m_frames = list.Frames();
    return frames->HasReadableFrame() ? std::move(frames) : nullptr;
}

// Usually it is the first one.
bool SequenceFrames::HasReadableFrame() {
    std::uint64_t searched = 0;
    for (const ListedFrame& frame : m_frames) {
        SequencePart* part = m_parts.Opened(frame.part);
        if (part && part->ReadBulbs(PlaceOf(frame), m_reading))
            return true;
        searched += m_reading.size();
        if (searched > kMostSearched)
            return false;
    }
    return false;
}

const FramePlace& SequenceFrames::PlaceOf(const ListedFrame& frame) const {
    return m_parts.Part(frame.part).Frames()[frame.frame];
}

std::chrono::milliseconds SequenceFrames::Dwell(std::uint32_t frame) const {
    return std::chrono::milliseconds(std::max(1U, PlaceOf(m_frames[frame]).dwell));
}

bool SequenceFrames::Read(std::uint32_t frame) {
    const ListedFrame& listed = m_frames[frame];
    SequencePart* part = m_parts.Opened(listed.part);
    if (!part || !part->ReadBulbs(PlaceOf(listed), m_reading))
        return false;
    const tag_K4_SOS_FRM& facts = part->Facts();
    const auto color = static_cast<tag_K4_SIGN_COLOR>(facts.color);
    if (facts.rows == m_rows && facts.columns == m_columns && color == m_color) {
        m_bulbs.swap(m_reading);
        m_light.reset();
        return true;
    }
    m_light = Fitted(BulbsToLight({m_reading, facts.rows, facts.columns, color, PixelOf(facts)}),
                     m_rows, m_columns);
    return true;
}

FramePicture SequenceFrames::Picture(std::uint32_t frame) {
    if (m_asked != frame) {
        Read(frame);
        m_asked = frame;
    }
    return m_light ? FramePicture{{}, &*m_light} : FramePicture{m_bulbs, nullptr};
}

}  // namespace k4suite

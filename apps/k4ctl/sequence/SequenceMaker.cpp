#include "apps/k4ctl/sequence/SequenceMaker.h"

#include <algorithm>

#include "apps/k4ctl/sequence/PictureReader.h"
#include "k4cmndlg/frame/Format.h"
#include "suite/bulbcv/BulbEncoder.h"
#include "suite/dither/Dither.h"

namespace k4ctl {

SequenceMaker::SequenceMaker(const SequenceOrder& order, const FilePlaces& places)
    : m_order(order), m_places(places) {}

int SequenceMaker::Fail(const std::string& words) {
    m_problem = words;
    return 0;
}

std::uint32_t SequenceMaker::DwellOfNext(std::uint32_t delay) const {
    if (!m_order.dwells.empty()) {
        return m_order.dwells[std::min<std::size_t>(m_graphics, m_order.dwells.size() - 1)];
    }
    return delay > 0 ? delay : SequenceOrder::kUsualDwell;
}

int SequenceMaker::AddPicture(k4suite::SequenceWriter& writer, const QImage& picture,
                              std::uint32_t delay) {
    const k4suite::SequenceFacts& facts = m_order.facts;
    const k4suite::LampTechnology technology = k4suite::TechnologyOf(facts.color);
    // A quad sign shows a picture by cells of two by two lamps.
    const int unit = technology.family == k4suite::LampFamily::Quad ? 2 : 1;
    k4suite::Lamps lamps =
        FittedLamps(picture, QSize(facts.columns, facts.rows), m_order.fit, unit);
    if (m_order.dither) {
        lamps = k4suite::Dithered(lamps, technology, facts.pixel);
    }
    const std::uint32_t dwell = DwellOfNext(delay);
    if (!writer.AddGraphic(m_order.frameType, dwell,
                           k4suite::EncodeBulbs(k4suite::Quantise(lamps, technology)))) {
        return Fail(writer.Problem());
    }
    ++m_graphics;
    m_runTime += dwell;
    return 1;
}

int SequenceMaker::AddImage(k4suite::SequenceWriter& writer, const std::string& path) {
    const std::string native = m_places(path);
    if (native.empty()) {
        return Fail(NoPlaceWords(path));
    }
    PictureReader reader(native, QSize(m_order.facts.columns, m_order.facts.rows));
    for (QImage picture; reader.Next(picture);) {
        if (!AddPicture(writer, picture, reader.Delay())) {
            return 0;
        }
    }
    return reader.Problem().empty() ? 1 : Fail(reader.Problem());
}

int SequenceMaker::AddInclude(k4suite::SequenceWriter& writer, const std::string& path) {
    const k4suite::IncludeField field{1, path};
    if (!writer.AddInclude({&field, 1})) {
        return Fail(writer.Problem());
    }
    ++m_includes;
    return 1;
}

int SequenceMaker::Make(const std::string& nativePath) {
    k4suite::SequenceWriter writer(nativePath, m_order.facts);
    for (const SequencePart& part : m_order.parts) {
        if (!writer.Problem().empty()) {
            break;
        }
        if (!(part.kind == SequencePart::Kind::Image ? AddImage(writer, part.path)
                                                     : AddInclude(writer, part.path))) {
            return 0;
        }
    }
    if (m_order.facts.thumbnailFrame > Frames()) {
        return Fail(k4cmn::Format("Frame %u can't be the thumbnail: there are %u frames.",
                                  unsigned{m_order.facts.thumbnailFrame}, Frames()));
    }
    return writer.Finish() ? 1 : Fail(writer.Problem());
}

}  // namespace k4ctl

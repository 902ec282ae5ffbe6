#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/k4ctl/Answer.h"
#include "apps/k4ctl/sequence/FilePlace.h"
#include "apps/k4ctl/sequence/PictureFit.h"
#include "suite/sequence/SequenceWriter.h"

namespace k4ctl {

/// What a sequence is made of, in the order in which it is played.
struct SequencePart {
    enum class Kind { Image, Include };

    Kind kind = Kind::Image;
    std::string path;  ///< of the image file, or what stands in the include frame
};

/// A sequence as it is wanted.
struct SequenceOrder {
    k4suite::SequenceFacts facts;
    std::uint32_t frameType = k4cmn::kGraphicFrame;  ///< of the graphic frames
    Fit fit = Fit::Scale;
    bool dither = true;
    /// Of the graphic frames in their order, the last one for all that follow. Empty: an animated
    /// image's own, and kUsualDwell where there is none.
    std::vector<std::uint32_t> dwells;
    std::vector<SequencePart> parts;

    static constexpr std::uint32_t kUsualDwell = 100;  ///< milliseconds
};

/// Makes a sequence file out of pictures. One picture at a time is in memory.
class SequenceMaker {
 public:
    /// @param order  lives as long as the object. Its sign type is one that there is.
    /// @param places where image files lie.
    SequenceMaker(const SequenceOrder& order, const FilePlaces& places);

    /// Makes the file, or leaves what was there.
    /// @return 1, or 0 with words in Problem().
    int Make(const std::string& nativePath);

    std::uint32_t Frames() const { return m_graphics + m_includes; }
    std::uint32_t Includes() const { return m_includes; }
    std::uint64_t RunTime() const { return m_runTime; }  ///< milliseconds
    const std::string& Problem() const { return m_problem; }

 private:
    int Fail(const std::string& words);
    int AddImage(k4suite::SequenceWriter& writer, const std::string& path);
    int AddPicture(k4suite::SequenceWriter& writer, const QImage& picture, std::uint32_t delay);
    int AddInclude(k4suite::SequenceWriter& writer, const std::string& path);
    std::uint32_t DwellOfNext(std::uint32_t delay) const;

    const SequenceOrder& m_order;
    const FilePlaces& m_places;
    std::uint32_t m_graphics = 0;
    std::uint32_t m_includes = 0;
    std::uint64_t m_runTime = 0;
    std::string m_problem;
};

}  // namespace k4ctl

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "suite/signservice/FrameList.h"
#include "suite/signservice/FrameSource.h"
#include "suite/signservice/SequenceParts.h"

namespace k4suite {

/// The frames of a sequence file and of those that it includes (see FrameList), unpacked as they
/// are asked for; the last one shown is kept.
///
/// A frame that is made for the sign, in size and color technology, is shown by its bulb data as it
/// is. Any other one is turned into light and brought onto the sign as Fitted() tells; its lamps of
/// one color have the light of the pixel technology that it was made for.
///
/// A frame that can't be read leaves the last picture that could be, and the dark if there was
/// none: the file may be damaged, or may have been cut short since it was opened. A file that is
/// replaced or deleted plays on, as long as it is open (see SequenceParts). Threads: one at a time.
class SequenceFrames final : public FrameSource {
 public:
    /// Opens a sequence.
    /// @param files where its files lie; must outlive the object.
    /// @param path  in the store.
    /// @return null if it isn't a sequence, or has no frame that can be shown.
    static std::unique_ptr<SequenceFrames> Open(k4cmn::FilesProvider& files,
                                                const std::string& path,
                                                const k4cmn::SignSettings& sign);

    std::uint32_t FrameCount() const override {
        return static_cast<std::uint32_t>(m_frames.size());
    }
    std::chrono::milliseconds Dwell(std::uint32_t frame) const override;
    FramePicture Picture(std::uint32_t frame) override;

 private:
    SequenceFrames(k4cmn::FilesProvider& files, const k4cmn::SignSettings& sign);
    bool HasReadableFrame();
    bool Read(std::uint32_t frame);
    const FramePlace& PlaceOf(const ListedFrame& frame) const;

    SequenceParts m_parts;
    std::vector<ListedFrame> m_frames;
    const std::uint32_t m_rows;
    const std::uint32_t m_columns;
    const tag_K4_SIGN_COLOR m_color;

    std::optional<std::uint32_t> m_asked;  ///< the frame that was asked for last
    std::vector<std::uint8_t> m_reading;   ///< room for the next frame
    std::vector<std::uint8_t> m_bulbs;     ///< of the picture, where it is made for the sign
    std::optional<Lamps> m_light;          ///< the picture, where it isn't
};

}  // namespace k4suite

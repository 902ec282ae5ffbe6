#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "suite/lamps/Shades.h"
#include "suite/signservice/Dimming.h"
#include "suite/signservice/Sign.h"

namespace k4suite {

class Machine;

/// What the signs of a machine show at one moment: the frame, with the pictures of the signs in its
/// open windows on top, a higher window number above a lower one. Those signs have windows of their
/// own; a picture goes four windows deep, and no sign appears inside itself. A blank sign shows no
/// windows either. Lamps that no window covers do what the frame says, to the bit where it is made
/// for the sign.
class PictureComposer {
 public:
    /// @param machine must outlive the object, and is not to change while it is used.
    PictureComposer(const Machine& machine, TimePoint now);

    /// Writes what the sign's lamps do, dimmed, as EncodeBulbs() does. Where nothing is to be done
    /// to a frame that is made for the sign, it is the frame's bulb data to the bit.
    /// @param bytes has BulbBytes().
    void BulbsOf(const Sign& sign, std::span<std::uint8_t> bytes) const;
    /// Writes the light of the sign's lamps, dimmed, as EncodeDib() does.
    /// @param bytes has DibBytes().
    void DibOf(const Sign& sign, std::span<std::uint8_t> bytes) const;
    /// The brightness of the sign's lamps, of 255.
    std::uint8_t BrightnessOf(const Sign& sign) const;
    /// The light at the sign's own photocell, 0 to 255.
    std::uint8_t PhotocellOf(const Sign& sign) const;
    /// A number that stands for the sign's state and picture: as long as it stays, both do.
    std::uint64_t LookOf(const Sign& sign) const;

 private:
    using Path = std::vector<const Sign*>;

    /// The signs that are visible in the windows of the last sign of a path; null for a window that
    /// is closed or too deep.
    std::vector<const Sign*> WindowSigns(const Path& path) const;
    ShadePicture Compose(Path& path) const;
    void PaintWindows(Path& path, const std::vector<const Sign*>& shown, Lamps& picture) const;
    /// The frame of a sign that shows nothing else, where it is made for the sign.
    std::optional<std::span<const std::uint8_t>> PlainBulbs(const Sign& sign) const;
    std::uint64_t HashOf(Path& path, std::uint64_t hash) const;

    const Machine& m_machine;
    TimePoint m_now;
    std::uint32_t m_minute;
};

}  // namespace k4suite

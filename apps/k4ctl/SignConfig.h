#pragma once

#include <QJsonObject>
#include <cstdint>
#include <string>

#include "k4cmndlg/clients/SignServiceTypes.h"
#include "k4cmndlg/filestore/SignTypes.h"

class CK4CmnSS;

namespace k4ctl {

/// A sign's configuration, as its service tells it, and how the program shows it.
struct SignConfig {
    std::uint32_t rows = 0;
    std::uint32_t columns = 0;
    tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
    tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
    tag_K4_SIGN_DIM_MODE dimMode = K4_SIGN_DIM_MANUAL_0;
    std::int32_t dimLevel = 0;
    std::int32_t photocellOffset = 0;

    /// Reads it over the client's present connection. @return 1, or 0 with the client's words.
    int Read(CK4CmnSS& client, const std::string& sign);

    /// The size as "ROWSxCOLUMNS".
    std::string SizeText() const;
    /// The color technology's short name; its number where it has none.
    std::string ColorText() const;
    /// The pixel technology's short name.
    std::string PixelText() const;
    /// The dimming mode with what accompanies it, as "manual 200" or "photocell +10".
    std::string DimmingText() const;

    /// Adds "rows", "columns", "color", "pixel" and "dimming" to a sign's object for machines.
    void AddTo(QJsonObject& sign) const;
};

}  // namespace k4ctl

#include "apps/k4ctl/SignConfig.h"

#include "apps/k4ctl/Names.h"
#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"

namespace k4ctl {

int SignConfig::Read(CK4CmnSS& client, const std::string& sign) {
    return client.GetSignConfig(sign, &rows, &columns, &color, &pixel, &dimMode, &dimLevel,
                                &photocellOffset);
}

std::string SignConfig::SizeText() const {
    return k4cmn::Format("%ux%u", rows, columns);
}

std::string SignConfig::ColorText() const {
    const std::string name(k4cmn::ColorShortName(color));
    return name.empty() ? std::to_string(static_cast<std::int32_t>(color)) : name;
}

std::string SignConfig::PixelText() const {
    return std::string(k4cmn::PixelShortName(pixel));
}

std::string SignConfig::DimmingText() const {
    const std::string name = DimmingName(dimMode);
    switch (dimMode) {
        case K4_SIGN_DIM_PHOTOCELL:
            return name + k4cmn::Format(" %+d", photocellOffset);
        case K4_SIGN_DIM_REMOTE_PHOTOCELL:
        case K4_SIGN_DIM_SCHEDULED:
            return name;
        default:
            return name + k4cmn::Format(" %d", dimLevel);
    }
}

void SignConfig::AddTo(QJsonObject& sign) const {
    sign.insert(QStringLiteral("rows"), static_cast<qint64>(rows));
    sign.insert(QStringLiteral("columns"), static_cast<qint64>(columns));
    sign.insert(QStringLiteral("color"),
                NamedValue(color, std::string(k4cmn::ColorShortName(color))));
    sign.insert(QStringLiteral("pixel"),
                NamedValue(pixel, std::string(k4cmn::PixelShortName(pixel))));
    QJsonObject dimming = NamedValue(dimMode, DimmingName(dimMode));
    dimming.insert(QStringLiteral("level"), dimLevel);
    dimming.insert(QStringLiteral("offset"), photocellOffset);
    sign.insert(QStringLiteral("dimming"), dimming);
}

}  // namespace k4ctl

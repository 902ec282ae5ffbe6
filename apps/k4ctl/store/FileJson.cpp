#include "apps/k4ctl/store/FileJson.h"

#include <QDateTime>

#include "k4cmndlg/frame/Text.h"

namespace k4ctl {

QJsonObject FileJson(const std::string& path, std::uint64_t size, const std::string& type,
                     std::int64_t modified) {
    return {{QStringLiteral("path"), k4cmn::ToQt(path)},
            {QStringLiteral("size"), static_cast<qint64>(size)},
            {QStringLiteral("type"), k4cmn::ToQt(type)},
            {QStringLiteral("modified"),
             QDateTime::fromSecsSinceEpoch(modified, Qt::UTC).toString(Qt::ISODate)}};
}

}  // namespace k4ctl

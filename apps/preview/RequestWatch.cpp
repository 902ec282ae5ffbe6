#include "apps/preview/RequestWatch.h"

#include <utility>

namespace preview {

RequestWatch::RequestWatch(k4suite::IniRegistry& registry, const k4suite::DataHome& home,
                           QObject* parent)
    : QObject(parent), m_registry(registry) {
    const std::string file = home.UserSettings().string();
    const FileStamp stamp = FileStamp::Of(file);
    m_registry.ReadPreviewRequest(m_last);
    connect(&m_watch, &FileWatch::Changed, this, &RequestWatch::Look);
    m_watch.Watch({{file, stamp}});
}

void RequestWatch::Look() {
    k4suite::PreviewRequest request;
    if (!m_registry.ReadPreviewRequest(request))
        return;
    // Settings that were removed or set aside hold no request; that asks for nothing.
    const bool isNew = request.number != 0 && request != m_last;
    m_last = std::move(request);
    if (isNew)
        Q_EMIT Requested(m_last);
}

}  // namespace preview

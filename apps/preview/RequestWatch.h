#pragma once

#include <QObject>

#include "apps/preview/FileWatch.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/PreviewRequest.h"

namespace preview {

/// Tells of each new request to the preview application in the settings of a data home, whichever
/// process made it.
/// Threads: the one that made it, which must run an event loop.
class RequestWatch final : public QObject {
    Q_OBJECT

 public:
    /// The request that is there now counts as known.
    /// @param registry the settings of `home`; must outlive the object.
    RequestWatch(k4suite::IniRegistry& registry, const k4suite::DataHome& home,
                 QObject* parent = nullptr);

    /// The request that was seen last.
    const k4suite::PreviewRequest& Last() const { return m_last; }

 Q_SIGNALS:
    void Requested(const k4suite::PreviewRequest& request);

 private:
    void Look();

    k4suite::IniRegistry& m_registry;
    k4suite::PreviewRequest m_last;
    FileWatch m_watch;
};

}  // namespace preview

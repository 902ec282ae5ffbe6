#include "apps/preview/PreviewSuite.h"

#include <string>
#include <utility>

namespace preview {

PreviewSuite::PreviewSuite(k4suite::DataHome home)
    : m_home(std::move(home)),
      m_files(m_home),
      m_registry(m_home),
      m_profile(m_home.Path() / "settings" / "profile-K4Prevu.ini"),
      m_sequences([this](const std::string& path) { return m_files.NativePath(path); }) {}

}  // namespace preview

#include "suite/platform/SharedEvents.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "k4cmndlg/frame/Format.h"
#include "suite/platform/SharedEvent.h"
#include "suite/signservice/NameHash.h"

namespace k4suite {

namespace {

constexpr std::size_t kLongestName = 200;

bool IsInName(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' || byte == '.';
}

/// One text for a place, by whatever way it is named.
std::string PlaceOf(const std::filesystem::path& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    std::filesystem::path place = std::filesystem::weakly_canonical(absolute, error);
    if (error)
        place = absolute.lexically_normal();
    // "home/" is "home".
    return place.has_filename() ? place.string() : place.parent_path().string();
}

}  // namespace

SharedEvents::SharedEvents(const DataHome& home)
    : m_prefix(k4cmn::Format("/k4-%u-%016llx-", static_cast<unsigned>(geteuid()),
                             static_cast<unsigned long long>(NameHash(PlaceOf(home.Path()))))) {}

std::string SharedEvents::MemoryName(const std::string& name) const {
    return m_prefix + name;
}

std::unique_ptr<k4cmn::NamedEvent> SharedEvents::CreateOrOpen(const std::string& name) {
    if (name.empty() || name.size() > kLongestName ||
        !std::all_of(name.begin(), name.end(), IsInName))
        return nullptr;
    return SharedEvent::CreateOrOpen(MemoryName(name));
}

}  // namespace k4suite

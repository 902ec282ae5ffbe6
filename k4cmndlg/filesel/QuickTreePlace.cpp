#include "k4cmndlg/filesel/QuickTreePlace.h"

#include <algorithm>
#include <cstdint>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"

namespace k4cmn {

namespace {

constexpr char kSizeKey[] = "Quick_Tree_Size";
constexpr int kLeastHeight = 10;
constexpr int kPlainHeight = 100;
/// No screen is higher; a kept number may be anything.
constexpr std::uint32_t kMostHeight = 0x7FFF;

constexpr bool IsOff(int edge, int extent) {
    return edge < 0 || edge > extent;
}

}  // namespace

QuickTreePlace::QuickTreePlace(const char* key) : m_hasKey(key != nullptr), m_key(key ? key : "") {}

int QuickTreePlace::KeptHeight(int fallback) const {
    CK4Registry registry;
    std::uint32_t height = 0;
    if (!m_hasKey || !registry.OpenUserRegistryKey(m_key) ||
        !registry.GetRegistryDword(kSizeKey, &height))
        return fallback;
    return static_cast<int>(std::min(height, kMostHeight));
}

int QuickTreePlace::InitialHeight(int top, int clientHeight, int usableHeight) const {
    const int height = std::min(KeptHeight(clientHeight), usableHeight - top);
    return height < kLeastHeight ? kPlainHeight : height;
}

int QuickTreePlace::MovedHeight(int top, int usableHeight) const {
    const int height = std::min(KeptHeight(usableHeight / 7), usableHeight - top);
    return height == 0 ? kPlainHeight : height;
}

void QuickTreePlace::Keep(int clientHeight) const {
    CK4Registry registry;
    const auto height = static_cast<std::uint32_t>(std::max(clientHeight, 0));
    if (m_hasKey && registry.CreateUserRegistryKey(m_key))
        registry.SetRegistryDword(kSizeKey, &height);
}

ScreenPlace QuickTreePlace::OnScreen(ScreenPlace place, int screenWidth, int screenHeight) {
    if (IsOff(place.left, screenWidth))
        place.left = 0;
    if (IsOff(place.top, screenHeight))
        place.top = 0;
    return place;
}

bool QuickTreePlace::AcceptsBottomDrag(const ScreenPlace& place, int screenWidth,
                                       int screenHeight) {
    return place.width > screenWidth / 5 && place.height > screenHeight / 7;
}

}  // namespace k4cmn

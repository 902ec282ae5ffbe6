#include "k4cmndlg/frame/contracts/Profile.h"

namespace k4cmn {

Profile::~Profile() = default;

namespace {

class AbsentProfile final : public Profile {
 public:
    std::string GetString(const std::string&, const std::string&,
                          const std::string& fallback) override {
        return fallback;
    }
    int WriteString(const std::string&, const std::string&, const std::string&) override {
        return 0;
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(Profile, AbsentProfile)

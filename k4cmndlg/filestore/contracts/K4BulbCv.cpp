#include "k4cmndlg/filestore/contracts/K4BulbCv.h"

K4BulbCv::~K4BulbCv() = default;

namespace k4cmn {
namespace {

class AbsentBulbCv final : public K4BulbCv {
 public:
    int Bulb2DIB(const void*, std::uint64_t, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                 K4ImageHeader*, void*, std::size_t, int) override {
        return 0;
    }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(K4BulbCv, AbsentBulbCv)

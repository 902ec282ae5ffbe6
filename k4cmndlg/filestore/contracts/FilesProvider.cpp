#include "k4cmndlg/filestore/contracts/FilesProvider.h"

namespace k4cmn {

FilesProvider::~FilesProvider() = default;

namespace {

class AbsentFiles final : public FilesProvider {
 public:
    std::string LibraryOf(const std::string&) override { return {}; }
    std::string BuildSign(std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH,
                          int) override {
        return {};
    }
    std::string BuildPath(const std::string&, std::uint32_t, std::uint32_t, tag_K4_SIGN_COLOR,
                          tag_K4_PIXEL_TECH, const std::string&, const std::string&,
                          const std::string&) override {
        return {};
    }
    std::string GetFullPath(const std::string&, const std::string&) override { return {}; }
    int FindFiles(std::vector<std::string>& names, const std::string&, int) override {
        names.clear();
        return 0;
    }
    int IsColorAndPixelTechValid(tag_K4_SIGN_COLOR, tag_K4_PIXEL_TECH) override { return 0; }
    std::string NativePath(const std::string&) override { return {}; }
};

}  // namespace
}  // namespace k4cmn

K4_DEFINE_PROVIDED(FilesProvider, AbsentFiles)

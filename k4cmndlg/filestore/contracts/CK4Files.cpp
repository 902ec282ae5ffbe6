#include "k4cmndlg/filestore/contracts/CK4Files.h"

#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"

namespace {

k4cmn::FilesProvider& Files() {
    return k4cmn::Provided<k4cmn::FilesProvider>::Current();
}

/// Calls the store; an exception out of it becomes its failure.
template <class Call>
auto Guarded(const Call& call) noexcept -> decltype(call(Files())) {
    try {
        return call(Files());
    } catch (...) {
        return {};
    }
}

}  // namespace

std::string CK4Files::GetLibrary() const {
    return Guarded([&](auto& files) { return files.LibraryOf(m_path); });
}

std::string CK4Files::BuildSign(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                tag_K4_PIXEL_TECH pixel, int palette) const {
    return Guarded(
        [&](auto& files) { return files.BuildSign(rows, columns, color, pixel, palette); });
}

std::string CK4Files::BuildPath(const std::string& server, std::uint32_t rows,
                                std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                tag_K4_PIXEL_TECH pixel, const std::string& library,
                                const std::string& file, const std::string& extension) const {
    return Guarded([&](auto& files) {
        return files.BuildPath(server, rows, columns, color, pixel, library, file, extension);
    });
}

std::string CK4Files::GetFullPath(const std::string& path, const std::string& referrer) const {
    return Guarded([&](auto& files) { return files.GetFullPath(path, referrer); });
}

int CK4Files::FindFiles(std::vector<std::string>& names, const std::string& pattern, int folders) {
    const int found =
        Guarded([&](auto& files) { return files.FindFiles(names, pattern, folders); });
    if (!found)
        names.clear();
    return found;
}

int CK4Files::IsColorAndPixelTechValid(tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel) {
    return Guarded([&](auto& files) { return files.IsColorAndPixelTechValid(color, pixel); });
}

tag_K4_SIGN_COLOR CK4Files::IntToColorTech(int index) {
    return static_cast<tag_K4_SIGN_COLOR>(index);
}

tag_K4_PIXEL_TECH CK4Files::IntToPixelTech(int indexPlusOne) {
    return static_cast<tag_K4_PIXEL_TECH>(indexPlusOne);
}

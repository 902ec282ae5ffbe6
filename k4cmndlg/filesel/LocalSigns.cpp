#include "k4cmndlg/filesel/LocalSigns.h"

#include <vector>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"

namespace k4cmn {

LocalSigns::LocalSigns() {
    std::vector<std::string> signs;
    CK4Registry::GetLocalSignList(signs);
    for (const std::string& sign : signs) {
        std::uint32_t rows = 0;
        std::uint32_t columns = 0;
        tag_K4_SIGN_COLOR color = K4_SIGN_COLOR_MONO1;
        tag_K4_PIXEL_TECH pixel = K4_PIXEL_TECH_INCAND;
        if (CK4Registry::GetSignConfigEx(sign, &rows, &columns, &color, &pixel, nullptr, nullptr,
                                         nullptr)) {
            const std::string type = CK4Files().BuildSign(rows, columns, color, pixel, 0);
            m_names[WithoutCase(type)].push_back(sign);
        }
    }
}

std::vector<std::string> LocalSigns::NamesOf(std::string_view signType) const {
    const auto names = m_names.find(WithoutCase(signType));
    return names == m_names.end() ? std::vector<std::string>() : names->second;
}

std::string LocalSigns::NamesBehind(std::string_view signType) const {
    std::string text;
    for (const std::string& sign : NamesOf(signType))
        text += " , (" + sign + ")";
    return text;
}

}  // namespace k4cmn

#include "apps/workbench/TourRecord.h"

#include <QPixmap>
#include <QWidget>
#include <cctype>
#include <cstdio>
#include <utility>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace workbench {

using k4cmn::Format;
using k4cmn::ToQt;

namespace {

/// Removes what Picture() left: "01-name.png".
void RemovePictures(const std::filesystem::path& folder) {
    std::error_code ignored;  // a picture that stays is overwritten, or is one too many
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        const std::string name = entry.path().filename().string();
        const bool isNumbered =
            name.size() > 3 && std::isdigit(static_cast<unsigned char>(name[0])) != 0 &&
            std::isdigit(static_cast<unsigned char>(name[1])) != 0 && name[2] == '-';
        if (isNumbered && entry.path().extension() == ".png")
            std::filesystem::remove(entry.path(), ignored);
    }
}

}  // namespace

TourRecord::TourRecord(std::filesystem::path folder) : m_folder(std::move(folder)) {
    std::error_code ignored;  // the first picture tells if the folder is no good
    std::filesystem::create_directories(m_folder, ignored);
    RemovePictures(m_folder);
    m_summary.open(m_folder / "summary.txt", std::ios::trunc);
    Step(m_summary.is_open(), "the folder of the tour can be written");
}

bool TourRecord::Step(bool passed, const std::string& what) {
    ++m_steps;
    if (!passed)
        ++m_failures;
    const std::string line = (passed ? "ok   " : "FAIL ") + what;
    m_summary << line << std::endl;
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
    return passed;
}

void TourRecord::Picture(QWidget& window, const std::string& name) {
    const std::string file = Format("%02d-%s.png", ++m_pictures, name.c_str());
    if (!window.grab().save(ToQt((m_folder / file).string())))
        Step(false, "the picture " + file + " can be saved");
}

}  // namespace workbench

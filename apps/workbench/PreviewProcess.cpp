#include "apps/workbench/PreviewProcess.h"

#include <QWidget>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/frame/contracts/Programs.h"

namespace workbench {

int ShowInPreviewApplication(const std::string& path, QWidget* parent) {
    constexpr std::uint32_t kPlay = 1;
    CK4Registry::SetPreviewOptions(path, nullptr, nullptr, &kPlay);
    std::string program;
    CK4Registry::GetExePath(program);
    program += "\\K4Prevu.exe";
    // It outlives this program and its record here: a preview that is looked at isn't taken away.
    if (k4cmn::Provided<k4cmn::Programs>::Current().Start(program, k4cmn::SW_RESTORE))
        return 1;
    k4cmn::WindowPrompt(parent).Ask(k4cmn::PlainMessage("ERROR: Could not start " + program));
    return 0;
}

}  // namespace workbench

#include "apps/workbench/PreviewProcess.h"

#include <QProcess>
#include <QWidget>

#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace workbench {

int ShowInPreviewApplication(const std::string& path, QWidget* parent) {
    constexpr std::uint32_t kPlay = 1;
    CK4Registry::SetPreviewOptions(path, nullptr, nullptr, &kPlay);
    std::string program;
    CK4Registry::GetExePath(program);
    program += "/K4Prevu";
    // It outlives this program: a preview that is looked at isn't taken away.
    if (QProcess::startDetached(k4cmn::ToQt(program), {}))
        return 1;
    k4cmn::WindowPrompt(parent).Ask(k4cmn::PlainMessage("ERROR: Could not start " + program));
    return 0;
}

}  // namespace workbench

#include "k4cmndlg/frame/CK4CmnDlgBase.h"

#include "k4cmndlg/frame/LibraryStrings.h"

int CK4CmnDlgBase::DoModal() {
    const k4cmn::ResourceScope ownTexts(k4cmn::LibraryStrings());
    return DialogFrame::DoModal();
}

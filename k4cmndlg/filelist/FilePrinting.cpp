#include "k4cmndlg/filelist/FilePrinting.h"

#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

void PrintFile(const std::string& path, Prompt& prompt) {
    if (Provided<Shell>::Current().PrintVerb(path) <= kLastOpenError)
        prompt.Ask(PlainMessage("ERROR: Could not print " + path));
}

}  // namespace k4cmn

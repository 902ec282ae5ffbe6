#include "apps/k4ctl/store/Readable.h"

#include <vector>

#include "k4cmndlg/filestore/contracts/CK4Files.h"

namespace k4ctl {

bool CanRead(const StorePlace& folder, Answer& answer) {
    std::vector<std::string> names;
    if (CK4Files::FindFiles(names, folder.Path() + "*.Lib", 1)) {
        return true;
    }
    answer.Fail(ExitCode::Refused, "\"" + folder.Path() + "\" can't be read.");
    return false;
}

}  // namespace k4ctl

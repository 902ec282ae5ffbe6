#include "k4cmndlg/filestore/PlayedPaths.h"

namespace k4cmn {

std::vector<std::string> PlayedPaths(const CK4IncFrame& frame) {
    std::vector<std::string> paths;
    for (int field = 0; field < frame.GetFieldCount(); ++field) {
        const char* path = frame.GetPtrToFieldPath(field);
        if (frame.GetFieldStatus(field) != 0 && path)
            paths.emplace_back(path);
    }
    return paths;
}

}  // namespace k4cmn

#include "apps/preview/FileStamp.h"

#include <sys/stat.h>

#include "k4cmndlg/filestore/contracts/FilesProvider.h"

namespace preview {

FileStamp FileStamp::Of(const std::string& path) {
    const std::string native = k4cmn::Provided<k4cmn::FilesProvider>::Current().NativePath(path);
    return native.empty() ? FileStamp{} : OfNative(native);
}

FileStamp FileStamp::OfNative(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0)
        return {};
    return {facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec};
}

}  // namespace preview

#include "suite/platform/PrintableFile.h"

#include <QMimeDatabase>

namespace k4suite {

namespace {

constexpr const char* kPrintableTypes[] = {
    "text/plain",  // and all that derives from it
    "application/pdf",
    "application/postscript",
    "image/gif",
    "image/jpeg",
    "image/png",
    "image/tiff",
    "image/x-portable-anymap",
    "image/x-portable-bitmap",
    "image/x-portable-graymap",
    "image/x-portable-pixmap",
    "image/x-sun-raster",
    "image/x-xbitmap",
    "image/x-xpixmap",
};

}  // namespace

bool IsPrintable(const std::string& path) {
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QString::fromStdString(path));
    for (const char* const printable : kPrintableTypes)
        if (type.inherits(QString::fromLatin1(printable)))
            return true;
    return false;
}

}  // namespace k4suite

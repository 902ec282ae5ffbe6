#include "suite/printing/PrintFace.h"

#include <QFontDatabase>
#include <QStringList>

#include "k4cmndlg/filelist/contracts/PrintSurface.h"

namespace k4suite {

namespace {

// The first three have the metrics of the face that is asked for.
constexpr const char* kFixedFaces[] = {
    k4cmn::kPrintFontFace, "Liberation Mono", "Cousine",
    "Nimbus Mono PS",      "FreeMono",        "DejaVu Sans Mono"};

constexpr const char* kSerifFaces[] = {k4cmn::kPrintSerifFace, "Liberation Serif", "Tinos",
                                       "Nimbus Roman",         "FreeSerif",        "DejaVu Serif"};

bool IsSuitable(const QString& face) {
    return QFontDatabase::isFixedPitch(face) && QFontDatabase::isSmoothlyScalable(face);
}

}  // namespace

QString PrintFace() {
    const QStringList present = QFontDatabase::families(QFontDatabase::Latin);
    for (const char* const name : kFixedFaces) {
        const QString face = QString::fromLatin1(name);
        if (present.contains(face) && IsSuitable(face))
            return face;
    }
    for (const QString& face : present)
        if (IsSuitable(face))
            return face;
    return {};
}

QString PrintSerifFace() {
    const QStringList present = QFontDatabase::families(QFontDatabase::Latin);
    for (const char* const name : kSerifFaces) {
        const QString face = QString::fromLatin1(name);
        if (present.contains(face) && QFontDatabase::isSmoothlyScalable(face))
            return face;
    }
    return {};
}

}  // namespace k4suite

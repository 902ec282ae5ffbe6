#include "apps/workbench/SignWords.h"

#include <QCoreApplication>

#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Text.h"

namespace workbench {

namespace {

QString Tr(const char* text) {
    return QCoreApplication::translate("workbench", text);
}

QString DimmingWords(const SignLook& look) {
    switch (look.dimMode) {
        case K4_SIGN_DIM_PHOTOCELL:
            return Tr("photocell, offset %1").arg(look.photocellOffset);
        case K4_SIGN_DIM_REMOTE_PHOTOCELL:
            return Tr("remote photocell");
        case K4_SIGN_DIM_SCHEDULED:
            return Tr("scheduled");
        default:
            return Tr("manual, level %1").arg(look.dimLevel);
    }
}

QString ModeName(tag_K4_PLAY_SEQ_MODE mode) {
    const bool named = mode >= 0 && mode <= K4_PLAY_SEQ_PLAY_CAL;
    return named ? k4cmn::ToQt(K4PlaySeqModeNames[mode]) : QString::number(mode);
}

}  // namespace

QString SizeWords(const SignLook& look) {
    return QStringLiteral("%1 x %2").arg(look.rows).arg(look.columns);
}

QString ColorWords(const SignLook& look) {
    return QStringLiteral("%1, %2").arg(k4cmn::ToQt(k4cmn::ColorShortName(look.color)),
                                        k4cmn::ToQt(k4cmn::PixelLongName(look.pixel)));
}

QString FactWords(const SignLook& look) {
    return Tr("%1  %2    Dimming: %3").arg(SizeWords(look), ColorWords(look), DimmingWords(look));
}

QString StateWords(const SignLook& look) {
    return Tr("%1  %2    Frame %3 of %4    %5, param %6")
        .arg(k4cmn::ToQt(look.state), k4cmn::ToQt(look.sequence))
        .arg(look.frame)
        .arg(look.frameCount)
        .arg(ModeName(look.mode))
        .arg(look.param);
}

}  // namespace workbench

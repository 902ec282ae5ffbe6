#include "k4cmndlg/filesel/OkDecision.h"

namespace k4cmn {

namespace {

constexpr bool NamesANewFile(tag_K4_FILE_MODE mode) {
    return mode == K4_FILE_NEW || mode == K4_FILE_SAVE_AS;
}

}  // namespace

OkStep DecideOk(tag_K4_FILE_MODE mode, bool exists, bool fileIsEmpty) {
    if (exists) {
        if (NamesANewFile(mode))
            return OkStep::AskReplace;
        return mode == K4_FILE_MANAGER ? OkStep::Open : OkStep::Take;
    }
    if (NamesANewFile(mode) || mode == K4_FILE_MANAGER || (mode == K4_FILE_PICK && fileIsEmpty))
        return OkStep::End;
    return OkStep::AskCreate;
}

OkEnd DecideAnswer(OkStep asked, MessageAnswer answer) {
    const bool isReplace = asked == OkStep::AskReplace;
    switch (answer) {
        case MessageAnswer::No:
            return OkEnd::Stay;
        case MessageAnswer::Yes:
            return isReplace ? OkEnd::End : OkEnd::TakeAndEnd;
        default:
            return isReplace ? OkEnd::CancelAndEnd : OkEnd::CancelAndTake;
    }
}

bool DoubleClickIsOk(tag_K4_FILE_MODE mode) {
    return !NamesANewFile(mode);
}

}  // namespace k4cmn

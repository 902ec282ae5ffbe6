#include "k4cmndlg/clients/SignServiceTypes.h"

const char* const K4PlaySeqModeNames[] = {
    "",             // 0
    "Continuous",   // 1
    "Single Step",  // 2
    "Sel Frame",    // 3
    "Num Times",    // 4
    "Play Stop",    // 5
    "Play Blank",   // 6
    "Play Video",   // 7
    "Play Frame",   // 8
    "Play Next",    // 9
    "Play Cal",     // 10
    nullptr,
};

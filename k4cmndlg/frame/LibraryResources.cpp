#include "k4cmndlg/frame/LibraryStrings.h"

// When the library of the windows is loaded it makes its texts known, and withdraws them when it is
// unloaded. Nothing else happens then.
namespace {
const k4cmn::StringModule libraryStrings(k4cmn::LibraryStrings());
}

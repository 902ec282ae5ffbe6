#include "k4cmndlg/frame/LastError.h"

#include <locale.h>
#include <string.h>

#include <cerrno>

namespace {

/// The messages of the system's language in UTF-8; the platform's plain ones where there are none.
locale_t SystemMessages() {
    locale_t messages = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    if (!messages)
        messages = newlocale(LC_ALL_MASK, "C", nullptr);
    if (messages) {
        if (locale_t localised = newlocale(LC_MESSAGES_MASK, "", messages))
            messages = localised;
    }
    return messages;
}

}  // namespace

std::string k4cmnGetLastErrorString() {
    const int code = errno;
    std::string text;
    if (locale_t messages = SystemMessages()) {
        text = strerror_l(code, messages);
        freelocale(messages);
    }
    errno = code;
    return text;
}

#include "k4cmndlg/frame/Format.h"

#include <locale.h>

#include <cstdarg>
#include <cstdio>

namespace k4cmn {

namespace {

/// Numbers are written in one way everywhere, for the life of the object: a window toolkit takes
/// over the person's locale, in which a decimal point may be a comma.
class PlainNumbers {
 public:
    PlainNumbers() : m_former(uselocale(Plain())) {}
    ~PlainNumbers() { uselocale(m_former); }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

 private:
    static locale_t Plain() {
        static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
        return plain;
    }

    const locale_t m_former;
};

}  // namespace

std::string Format(const char* format, ...) {
    const PlainNumbers plain;
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);

    std::string text;
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length));
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    return text;
}

}  // namespace k4cmn

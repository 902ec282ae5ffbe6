#include "k4cmndlg/frame/LinkOpening.h"

#include <exception>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

namespace {

struct OpenError {
    std::uint32_t code;
    const char* text;
};

// The code 26, a sharing violation, has no row: it is reported as unknown.
// clang-format off: one row a line.
constexpr OpenError kOpenErrors[] = {
    {0, "The operating system is out\nof memory or resources."},
    {2, "The specified file was not found."},
    {3, "The specified path was not found."},
    {5, "The operating system denied\naccess to the specified file."},
    {8, "There was not enough memory to complete the operation."},
    {11, "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
    {27, "The filename association is\nincomplete or invalid."},
    {28, "The DDE transaction could not\nbe completed because the request timed out."},
    {29, "The DDE transaction failed."},
    {30,
     "The DDE transaction could not\nbe completed because other DDE transactions\nwere being "
     "processed."},
    {31, "There is no application associated\nwith the given filename extension."},
    {32, "The specified dynamic-link library was not found."},
};
// clang-format on

}  // namespace

std::uint32_t OpenLink(const std::string& text) try {
    Shell& shell = Provided<Shell>::Current();
    const std::uint32_t code = shell.OpenVerb(text, SW_SHOW);
    if (code > kLastOpenError)
        return code;
    const std::string command = shell.OpenCommand(".htm");
    if (command.empty())
        return code;
    return shell.Execute(LinkCommand(command, text), SW_SHOW);
} catch (const std::exception&) {
    return kOutOfResources;
}

std::string LinkCommand(const std::string& command, const std::string& text) {
    std::size_t place = command.find("\"%1\"");
    if (place == std::string::npos)
        place = command.find("%1");
    return command.substr(0, place) + " " + text;
}

std::string OpenErrorText(std::uint32_t code) {
    for (const OpenError& error : kOpenErrors) {
        if (error.code == code)
            return error.text;
    }
    return Format("Unknown Error (%d) occurred.", static_cast<int>(code));
}

std::string OpenErrorMessage(std::uint32_t code) {
    return "Unable to open hyperlink:\n\n" + OpenErrorText(code);
}

}  // namespace k4cmn

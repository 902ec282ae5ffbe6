#include "k4cmndlg/filestore/FileNameRules.h"

#include "k4cmndlg/filestore/Characters.h"

namespace k4cmn {

namespace {

constexpr std::string_view kForbiddenWhenTyped = "\\/:;*?\"<>|#%";
constexpr std::string_view kForbiddenWhenTaken = "#%;/\\";
constexpr std::string_view kLettersAndDigits =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890";
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

bool HoldsOneOf(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) != std::string_view::npos;
}

}  // namespace

bool IsFileNameShortEnough(std::string_view name) {
    return CharacterCount(name) <= kMaxFileNameLength;
}

bool HoldsForbiddenCharacter(std::string_view name) {
    return HoldsOneOf(name, kForbiddenWhenTyped);
}

Message InvalidFileNameMessage() {
    return Message{
        "A filename cannot contain any of the following characters:\n\t\\ / : ; * ? \" < > | # %",
        "Invalid Filename", MessageButtons::Ok, MessageIcon::Stop};
}

std::string WithoutTrailingSpace(std::string_view text) {
    const std::size_t last = text.find_last_not_of(kWhiteSpace);
    return std::string(text.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

bool CanTakeOverFileName(std::string_view name) {
    return !WithoutTrailingSpace(name).empty() && !HoldsOneOf(name, kForbiddenWhenTaken);
}

bool HoldsLetterOrDigit(std::string_view name) {
    return HoldsOneOf(name, kLettersAndDigits);
}

bool IsNameOfOneEntry(std::string_view name) {
    return !HoldsOneOf(name, "\\/");
}

}  // namespace k4cmn

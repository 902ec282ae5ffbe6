#include "suite/remoteservice/PhoneBook.h"

#include <algorithm>

#include "k4cmndlg/frame/Format.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

/// Whether a name can be one of several in a text that newlines and tabs part.
bool IsListable(const std::string& name) {
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char byte) {
        return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
    });
}

PhoneBookEntry& EntryNamed(std::vector<PhoneBookEntry>& book, const std::string& name) {
    const auto found = std::find_if(book.begin(), book.end(), [&](const PhoneBookEntry& entry) {
        return IsSameName(entry.name, name);
    });
    return found != book.end() ? *found : book.emplace_back(PhoneBookEntry{name, {}});
}

}  // namespace

std::vector<PhoneBookEntry> PhoneBookOf(const MachineSettings& settings,
                                        std::vector<std::string>& problems) {
    std::vector<PhoneBookEntry> book;
    for (const ServiceSetup& service : settings.services) {
        if (service.phoneBookEntry.empty())
            continue;
        if (IsListable(service.phoneBookEntry) && IsListable(service.name))
            EntryNamed(book, service.phoneBookEntry).services.push_back(service.name);
        else
            problems.push_back(
                k4cmn::Format("The service \"%s\" of the phone book entry \"%s\" was left out: one "
                              "of the names is not possible.",
                              service.name.c_str(), service.phoneBookEntry.c_str()));
    }
    return book;
}

}  // namespace k4suite

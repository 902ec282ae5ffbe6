// A party of an event, in a process of its own: SharedEventPeer HOME NAME. It takes a command a
// line and answers each with a line:
//   set, reset      1 or 0
//   wait MS         "waiting" when the wait begins, then "signalled", "timed out", "abandoned" or
//                   "failed"
//   hammer COUNT    sets and resets so many times, then 1; killed in between it is in the midst of
//                   one of them
// It ends with its input.

#include <cstdint>
#include <iostream>
#include <string>

#include "suite/platform/SharedEvents.h"

namespace {

const char* Words(k4cmn::NamedEvent::Wait wait) {
    switch (wait) {
        case k4cmn::NamedEvent::Wait::Signalled:
            return "signalled";
        case k4cmn::NamedEvent::Wait::TimedOut:
            return "timed out";
        case k4cmn::NamedEvent::Wait::Abandoned:
            return "abandoned";
        case k4cmn::NamedEvent::Wait::Failed:
            break;
    }
    return "failed";
}

}  // namespace

int main(int count, char** words) {
    if (count != 3)
        return 2;
    k4suite::SharedEvents events{k4suite::DataHome(words[1])};
    const auto event = events.CreateOrOpen(words[2]);
    std::cout << (event ? "open" : "no event") << std::endl;
    std::string command;
    while (event && std::cin >> command) {
        std::uint32_t number = 0;
        if (command == "set") {
            std::cout << event->Set() << std::endl;
        } else if (command == "reset") {
            std::cout << event->Reset() << std::endl;
        } else if (command == "wait" && std::cin >> number) {
            std::cout << "waiting" << std::endl;
            std::cout << Words(event->WaitFor(number)) << std::endl;
        } else if (command == "hammer" && std::cin >> number) {
            std::cout << "hammering" << std::endl;
            for (std::uint32_t round = 0; round < number; ++round) {
                event->Set();
                event->Reset();
            }
            std::cout << 1 << std::endl;
        } else {
            return 2;
        }
    }
    return event ? 0 : 1;
}

#include "apps/k4ctl/sequence/FilePlace.h"

#include "suite/store/NativePath.h"
#include "suite/store/StorePath.h"

namespace k4ctl {

FilePlaces PlacesOf(const k4suite::DataHome& home) {
    return [home](const std::string& argument) {
        const bool isOfStore = k4suite::HasDrive(argument) || argument.starts_with("\\\\");
        return isOfStore ? k4suite::NativePath(home, argument) : argument;
    };
}

std::string NoPlaceWords(const std::string& argument) {
    return "There is no place \"" + argument + "\".";
}

}  // namespace k4ctl

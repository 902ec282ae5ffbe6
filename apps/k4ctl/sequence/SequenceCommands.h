#pragma once

#include <memory>
#include <vector>

#include "apps/k4ctl/Command.h"
#include "apps/k4ctl/sequence/FilePlace.h"

namespace k4ctl {

/// The commands on sequence files: make, show, export, check. They work with the reader, the writer
/// and the check of the suite, on files alone: without services, settings, or a data home.
/// @param places where the files of arguments lie.
std::vector<std::unique_ptr<Command>> SequenceCommands(const FilePlaces& places);

}  // namespace k4ctl

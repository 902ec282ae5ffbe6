#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/k4ctl/Answer.h"
#include "apps/k4ctl/store/Dialogue.h"
#include "apps/k4ctl/store/StorePlace.h"
#include "suite/settings/DataHome.h"

namespace k4ctl {

/// The store of a data home, open for one command: what the library requires of a suite for work on
/// files, installed for the life of the object. It runs no services, so that it neither disturbs a
/// program that does nor keeps one from it.
///
/// A home that doesn't exist yet is made and filled with sample data; one that can't be is a
/// failure of the answer, and so is a change of a damaged one.
class StoreSession {
 public:
    StoreSession(const k4suite::DataHome& home, const Terminal& terminal, Replies replies,
                 bool mayDestroy);
    ~StoreSession();
    StoreSession(const StoreSession&) = delete;
    StoreSession& operator=(const StoreSession&) = delete;

    /// Finds one place. @return nothing, with a failure in the answer, where it isn't there.
    std::optional<StorePlace> Find(const std::string& argument);
    /// Finds one place that has to be of a kind.
    std::optional<StorePlace> Find(const std::string& argument, StorePlace::Kind kind);
    /// Finds all that arguments name; what isn't there is a failure in the answer.
    std::vector<StorePlace> FindAll(const std::vector<std::string>& arguments);

    /// Adds to the answer what was asked, and what the settings have to complain about.
    void Close();

    Answer answer;

 private:
    struct Parts;

 public:
    Dialogue& Person();
    StorePlaces& Places();

 private:
    std::unique_ptr<Parts> m_parts;
};

}  // namespace k4ctl

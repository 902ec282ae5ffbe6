#include "apps/k4ctl/store/StoreSession.h"

#include "k4cmndlg/filestore/contracts/Drives.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/access/FolderAccess.h"
#include "suite/access/HomeDrives.h"
#include "suite/platform/FreedesktopShell.h"
#include "suite/sample/SampleData.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/settings/IniRegistry.h"
#include "suite/store/FolderFiles.h"

namespace k4ctl {
namespace {

/// @return what went wrong; empty where the home has its data.
std::string SeedProblem(const k4suite::DataHome& home) {
    std::string problem;
    return k4suite::SeedSampleData(home, &problem) ? std::string() : problem;
}

}  // namespace

// In the order of dependence: what comes later uses what comes before, and goes first.
struct StoreSession::Parts {
    Parts(const k4suite::DataHome& home, const Terminal& terminal, Replies replies, bool mayDestroy,
          Answer& answer)
        : problem(SeedProblem(home)),
          dialogue(terminal, replies, mayDestroy, answer),
          files(home),
          access(home),
          drives(home),
          registry(home),
          shell(dialogue, [this](const std::string& path) { return files.NativePath(path); }),
          sequences([this](const std::string& path) { return files.NativePath(path); }),
          useFiles(files),
          useAccess(access),
          useDrives(drives),
          useRegistry(registry),
          useShell(shell),
          useSequences(sequences) {}

    std::string problem;
    Dialogue dialogue;
    k4suite::FolderFiles files;
    k4suite::FolderAccess access;
    k4suite::HomeDrives drives;
    k4suite::IniRegistry registry;
    k4suite::FreedesktopShell shell;
    k4suite::RiffSequenceLibrary sequences;
    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles;
    k4cmn::ScopedProvider<k4cmn::StoreAccess> useAccess;
    k4cmn::ScopedProvider<k4cmn::Drives> useDrives;
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useRegistry;
    k4cmn::ScopedProvider<k4cmn::Shell> useShell;
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences;
    StorePlaces places;
};

StoreSession::StoreSession(const k4suite::DataHome& home, const Terminal& terminal, Replies replies,
                           bool mayDestroy)
    : m_parts(std::make_unique<Parts>(home, terminal, replies, mayDestroy, answer)) {
    if (!m_parts->problem.empty()) {
        answer.Fail(ExitCode::Refused, m_parts->problem);
    }
}

StoreSession::~StoreSession() = default;

Dialogue& StoreSession::Person() {
    return m_parts->dialogue;
}

StorePlaces& StoreSession::Places() {
    return m_parts->places;
}

std::optional<StorePlace> StoreSession::Find(const std::string& argument) {
    std::string problem;
    auto place = Places().Find(argument, problem);
    if (!place) {
        answer.Fail(ExitCode::Refused, problem);
    }
    return place;
}

std::optional<StorePlace> StoreSession::Find(const std::string& argument, StorePlace::Kind kind) {
    auto place = Find(argument);
    if (place && place->kind != kind) {
        StorePlace wanted;
        wanted.kind = kind;
        answer.Fail(ExitCode::Refused, "\"" + argument + "\" is " + place->KindText() + ", not " +
                                           wanted.KindText() + ".");
        return std::nullopt;
    }
    return place;
}

std::vector<StorePlace> StoreSession::FindAll(const std::vector<std::string>& arguments) {
    std::vector<StorePlace> all;
    for (const std::string& argument : arguments) {
        std::string problem;
        const std::vector<StorePlace> places = Places().FindAll(argument, problem);
        if (places.empty()) {
            answer.Fail(ExitCode::Refused, problem);
        }
        all.insert(all.end(), places.begin(), places.end());
    }
    return all;
}

void StoreSession::Close() {
    if (!Person().Questions().isEmpty()) {
        answer.json.insert(QStringLiteral("questions"), Person().Questions());
    }
    for (const std::string& problem : m_parts->registry.Problems()) {
        answer.words.push_back(problem);
    }
}

}  // namespace k4ctl

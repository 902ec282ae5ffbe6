#include "suite/EmbeddedSuite.h"

#include <filesystem>
#include <utility>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "k4cmndlg/clients/contracts/K4rsRpc.h"
#include "k4cmndlg/filestore/contracts/Drives.h"
#include "k4cmndlg/filestore/contracts/FileKinds.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/contracts/NamedEvent.h"
#include "k4cmndlg/frame/contracts/PowerControl.h"
#include "k4cmndlg/frame/contracts/Profile.h"
#include "k4cmndlg/frame/contracts/Programs.h"
#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/access/FolderAccess.h"
#include "suite/access/HomeDrives.h"
#include "suite/access/MimeKinds.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/platform/FreedesktopShell.h"
#include "suite/platform/LogindPower.h"
#include "suite/platform/SharedEvents.h"
#include "suite/platform/SilentFileOperationUi.h"
#include "suite/platform/SuitePrograms.h"
#include "suite/remoteservice/RemoteEngine.h"
#include "suite/remoteservice/RemoteRpc.h"
#include "suite/sequence/RiffSequenceLibrary.h"
#include "suite/settings/IniProfile.h"
#include "suite/settings/IniRegistry.h"
#include "suite/settings/MachineSettings.h"
#include "suite/signservice/EngineRpc.h"
#include "suite/signservice/ServicesLock.h"
#include "suite/signservice/SignEngine.h"
#include "suite/store/FolderFiles.h"

namespace k4suite {

namespace {

void Append(std::vector<std::string>& all, const std::vector<std::string>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

// In the order of dependence: what comes later uses what comes before, and goes first.
struct EmbeddedSuite::Parts {
    Parts(DataHome dataHome, const std::string& program, FileOperationUi* ui, k4cmn::Clock& clock)
        : home(std::move(dataHome)),
          files(home),
          access(home),
          drives(home),
          registry(home),
          profile(home.Path() / "settings" / ("profile-" + program + ".ini")),
          shell(ui ? *ui : silent,
                [this](const std::string& path) { return files.NativePath(path); }),
          programs({{"K4_HOME", std::filesystem::absolute(home.Path()).string()}}),
          sequences([this](const std::string& path) { return files.NativePath(path); }),
          events(home),
          lock(home, program),
          useFiles(files),
          useAccess(access),
          useDrives(drives),
          useKinds(kinds),
          useRegistry(registry),
          useProfile(profile),
          useShell(shell),
          usePrograms(programs),
          useSequences(sequences),
          usePower(power),
          useBulbCv(bulbCv),
          useEvents(events) {
        std::string problem;
        MachineSettings settings;
        if (!ReadMachineSettings(home, settings, &problem) && !problem.empty())
            problems.push_back(problem);
        if (!lock.TryAcquire())
            return;
        engine = std::make_unique<SignEngine>(settings, home.SignState(), clock, files);
        rpc = std::make_unique<EngineRpc>(*engine);
        useRpc = std::make_unique<k4cmn::ScopedProvider<K4SSRpc>>(*rpc);
        remote = std::make_unique<RemoteEngine>(settings, home.DownLoadEvents(), clock, events);
        remoteRpc = std::make_unique<RemoteRpc>(*remote);
        useRemoteRpc = std::make_unique<k4cmn::ScopedProvider<K4rsRpc>>(*remoteRpc);
    }

    DataHome home;
    std::vector<std::string> problems;
    SilentFileOperationUi silent;
    FolderFiles files;
    FolderAccess access;
    HomeDrives drives;
    MimeKinds kinds;
    IniRegistry registry;
    IniProfile profile;
    FreedesktopShell shell;
    SuitePrograms programs;
    LogindPower power;
    RiffSequenceLibrary sequences;
    PlaneBulbCv bulbCv;
    SharedEvents events;
    ServicesLock lock;
    std::unique_ptr<SignEngine> engine;
    std::unique_ptr<EngineRpc> rpc;
    std::unique_ptr<RemoteEngine> remote;
    std::unique_ptr<RemoteRpc> remoteRpc;

    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles;
    k4cmn::ScopedProvider<k4cmn::StoreAccess> useAccess;
    k4cmn::ScopedProvider<k4cmn::Drives> useDrives;
    k4cmn::ScopedProvider<k4cmn::FileKinds> useKinds;
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useRegistry;
    k4cmn::ScopedProvider<k4cmn::Profile> useProfile;
    k4cmn::ScopedProvider<k4cmn::Shell> useShell;
    k4cmn::ScopedProvider<k4cmn::Programs> usePrograms;
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences;
    k4cmn::ScopedProvider<k4cmn::PowerControl> usePower;
    k4cmn::ScopedProvider<K4BulbCv> useBulbCv;
    k4cmn::ScopedProvider<k4cmn::NamedEvents> useEvents;
    std::unique_ptr<k4cmn::ScopedProvider<K4SSRpc>> useRpc;
    std::unique_ptr<k4cmn::ScopedProvider<K4rsRpc>> useRemoteRpc;
};

EmbeddedSuite::EmbeddedSuite(DataHome home, const std::string& program, FileOperationUi* ui,
                             k4cmn::Clock* clock)
    : m_parts(std::make_unique<Parts>(std::move(home), program, ui,
                                      clock ? *clock : k4cmn::Provided<k4cmn::Clock>::Current())) {}

EmbeddedSuite::~EmbeddedSuite() = default;

const DataHome& EmbeddedSuite::Home() const {
    return m_parts->home;
}

FolderFiles& EmbeddedSuite::Files() {
    return m_parts->files;
}

bool EmbeddedSuite::RunsServices() const {
    return m_parts->engine != nullptr;
}

ServicesHolder EmbeddedSuite::Holder() const {
    return RunsServices() ? ServicesHolder{} : m_parts->lock.Holder();
}

SignEngine* EmbeddedSuite::Engine() {
    return m_parts->engine.get();
}

RemoteEngine* EmbeddedSuite::Remote() {
    return m_parts->remote.get();
}

std::vector<std::string> EmbeddedSuite::Problems() const {
    std::vector<std::string> problems = m_parts->problems;
    Append(problems, m_parts->registry.Problems());
    if (m_parts->engine)
        Append(problems, m_parts->engine->Problems());
    if (m_parts->remote)
        Append(problems, m_parts->remote->Problems());
    return problems;
}

}  // namespace k4suite

#include "suite/EmbeddedSuite.h"

#include <utility>

#include "k4cmndlg/clients/contracts/K4SSRpc.h"
#include "k4cmndlg/filestore/contracts/FilesProvider.h"
#include "k4cmndlg/filestore/contracts/K4BulbCv.h"
#include "k4cmndlg/filestore/contracts/RegistryProvider.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/contracts/PowerControl.h"
#include "k4cmndlg/frame/contracts/Profile.h"
#include "k4cmndlg/frame/contracts/Shell.h"
#include "suite/bulbcv/PlaneBulbCv.h"
#include "suite/platform/FreedesktopShell.h"
#include "suite/platform/LogindPower.h"
#include "suite/platform/SilentFileOperationUi.h"
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
          registry(home),
          profile(home.Path() / "settings" / ("profile-" + program + ".ini")),
          shell(ui ? *ui : silent,
                [this](const std::string& path) { return files.NativePath(path); }),
          sequences([this](const std::string& path) { return files.NativePath(path); }),
          lock(home, program),
          useFiles(files),
          useRegistry(registry),
          useProfile(profile),
          useShell(shell),
          useSequences(sequences),
          usePower(power),
          useBulbCv(bulbCv) {
        std::string problem;
        MachineSettings settings;
        if (!ReadMachineSettings(home, settings, &problem) && !problem.empty())
            problems.push_back(problem);
        if (!lock.TryAcquire())
            return;
        engine = std::make_unique<SignEngine>(settings, home.SignState(), clock, files);
        rpc = std::make_unique<EngineRpc>(*engine);
        useRpc = std::make_unique<k4cmn::ScopedProvider<K4SSRpc>>(*rpc);
    }

    DataHome home;
    std::vector<std::string> problems;
    SilentFileOperationUi silent;
    FolderFiles files;
    IniRegistry registry;
    IniProfile profile;
    FreedesktopShell shell;
    LogindPower power;
    RiffSequenceLibrary sequences;
    PlaneBulbCv bulbCv;
    ServicesLock lock;
    std::unique_ptr<SignEngine> engine;
    std::unique_ptr<EngineRpc> rpc;

    k4cmn::ScopedProvider<k4cmn::FilesProvider> useFiles;
    k4cmn::ScopedProvider<k4cmn::RegistryProvider> useRegistry;
    k4cmn::ScopedProvider<k4cmn::Profile> useProfile;
    k4cmn::ScopedProvider<k4cmn::Shell> useShell;
    k4cmn::ScopedProvider<k4cmn::SequenceLibrary> useSequences;
    k4cmn::ScopedProvider<k4cmn::PowerControl> usePower;
    k4cmn::ScopedProvider<K4BulbCv> useBulbCv;
    std::unique_ptr<k4cmn::ScopedProvider<K4SSRpc>> useRpc;
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

std::vector<std::string> EmbeddedSuite::Problems() const {
    std::vector<std::string> problems = m_parts->problems;
    Append(problems, m_parts->registry.Problems());
    if (m_parts->engine)
        Append(problems, m_parts->engine->Problems());
    return problems;
}

}  // namespace k4suite

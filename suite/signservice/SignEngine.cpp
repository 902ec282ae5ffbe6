#include "suite/signservice/SignEngine.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "k4cmndlg/frame/Format.h"
#include "suite/settings/NameText.h"
#include "suite/signservice/FileNames.h"
#include "suite/signservice/Machine.h"

namespace k4suite {

namespace {

constexpr char kLocal[] = "Local";
/// More problems than this aren't remembered: something keeps going wrong.
constexpr std::size_t kMostProblems = 100;

}  // namespace

SignEngine::SignEngine(const MachineSettings& settings, const std::filesystem::path& stateFolder,
                       k4cmn::Clock& clock, k4cmn::FilesProvider& files)
    : m_clock(clock), m_store(files) {
    std::vector<std::string> problems;
    for (const ServiceSetup& service : settings.services) {
        if (IsFileName(service.name) && MachineNamed(service.name).empty())
            m_machines.push_back(
                std::make_unique<Machine>(service, m_store, stateFolder, m_clock.Now(), problems));
        else
            problems.push_back(
                k4cmn::Format("The machine \"%s\" was left out: its name is not possible.",
                              service.name.c_str()));
    }
    Tell(std::move(problems));
}

SignEngine::~SignEngine() = default;

std::string SignEngine::MachineNamed(const std::string& service) const {
    const std::string& name = service == "." ? kLocal : service;
    for (const std::unique_ptr<Machine>& machine : m_machines)
        if (IsSameName(machine->Name(), name))
            return machine->Name();
    return {};
}

Machine* SignEngine::Find(const std::string& machine) {
    const auto at = std::find_if(m_machines.begin(), m_machines.end(),
                                 [&](const auto& one) { return one->Name() == machine; });
    return at == m_machines.end() ? nullptr : at->get();
}

bool SignEngine::Call(const std::string& machine, const char* stub, const Work& work) {
    try {
        if (!m_faults.Pass(machine, stub))
            return false;
        const std::lock_guard lock(m_mutex);
        Machine* at = Find(machine);
        if (!at)
            return false;
        const k4cmn::Clock::TimePoint now = m_clock.Now();
        at->AdvanceTo(now);
        const bool done = work(*at, now);
        std::vector<std::string> problems;
        at->Save(problems);
        Tell(std::move(problems));
        return done;
    } catch (const std::exception&) {
        return false;
    }
}

void SignEngine::SetFault(const std::string& service, const Fault& fault) {
    const std::string machine = MachineNamed(service);
    if (!machine.empty())
        m_faults.Set(machine, fault);
}

void SignEngine::ClearFaults() {
    m_faults.Clear();
}

void SignEngine::SetWaiter(Faults::Waiter waiter) {
    m_faults.SetWaiter(std::move(waiter));
}

std::vector<std::string> SignEngine::Problems() const {
    const std::lock_guard lock(m_mutex);
    return m_problems;
}

void SignEngine::Tell(std::vector<std::string> problems) {
    for (std::string& problem : problems)
        if (m_problems.size() < kMostProblems &&
            std::find(m_problems.begin(), m_problems.end(), problem) == m_problems.end())
            m_problems.push_back(std::move(problem));
}

}  // namespace k4suite

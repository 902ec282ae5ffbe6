#include "suite/signservice/EngineRpc.h"

#include "suite/signservice/Machine.h"
#include "suite/signservice/ReplyText.h"

namespace k4suite {

namespace {

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kFailed = 1;

}  // namespace

std::string EngineRpc::Connected() const {
    const std::lock_guard lock(m_mutex);
    return m_machine;
}

std::int32_t EngineRpc::OnMachine(const char* stub, const SignEngine::Work& work) {
    const std::string machine = Connected();
    return !machine.empty() && m_engine.Call(machine, stub, work) ? kDone : kFailed;
}

std::int32_t EngineRpc::OnSign(const char* stub, const char* sign, const SignWork& work) {
    return OnMachine(stub, [&](Machine& machine, k4cmn::Clock::TimePoint now) {
        Sign* found = sign ? machine.Find(sign) : nullptr;
        return found && work(machine, *found, now);
    });
}

std::int32_t EngineRpc::k4ssConnectSignAsUser(const char* service, const char*, const char*,
                                              const char*) {
    const std::string machine = service ? m_engine.MachineNamed(service) : std::string();
    const auto reach = [](Machine&, k4cmn::Clock::TimePoint) { return true; };
    if (machine.empty() || !m_engine.Call(machine, "k4ssConnectSignAsUser", reach))
        return kFailed;
    const std::lock_guard lock(m_mutex);
    m_machine = machine;
    return kDone;
}

std::int32_t EngineRpc::k4ssDisconnectSign() {
    const std::lock_guard lock(m_mutex);
    m_machine.clear();
    return kDone;
}

// The connection is this side's own affair: no machine is asked.
std::int32_t EngineRpc::k4ssIsServer(const char* service) {
    const std::string machine = service ? m_engine.MachineNamed(service) : std::string();
    return !machine.empty() && machine == Connected() ? 1 : 0;
}

std::int32_t EngineRpc::k4ssPing() {
    return OnMachine("k4ssPing", [](Machine&, k4cmn::Clock::TimePoint) { return true; });
}

std::int32_t EngineRpc::k4ssListSigns(char* buffer, std::uint32_t capacity, std::uint32_t* length) {
    return OnMachine("k4ssListSigns", [&](Machine& machine, k4cmn::Clock::TimePoint) {
        PutLines(machine.ListText(), buffer, capacity, length);
        return true;
    });
}

}  // namespace k4suite

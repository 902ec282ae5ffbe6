#include "suite/platform/LogindPower.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QStringList>
#include <string_view>

namespace k4suite {

namespace {

constexpr std::uint32_t kNotHeld = 1300;    // the platform's error for a privilege that isn't held
constexpr int kPasswordPatience = 120'000;  // milliseconds

QString Service() {
    return QStringLiteral("org.freedesktop.login1");
}

QDBusMessage Call(const char* method) {
    return QDBusMessage::createMethodCall(Service(), QStringLiteral("/org/freedesktop/login1"),
                                          QStringLiteral("org.freedesktop.login1.Manager"),
                                          QLatin1String(method));
}

}  // namespace

int LogindPower::OpenProcessToken() {
    m_canPowerOff = m_canReboot = m_isEnabled = m_isOpen = false;
    if (!m_bus)
        m_bus = QDBusConnection::systemBus();
    QDBusConnectionInterface* const bus = m_bus->isConnected() ? m_bus->interface() : nullptr;
    if (!bus)
        return 0;
    m_isOpen = bus->isServiceRegistered(Service()) ||
               bus->activatableServiceNames().value().contains(Service());
    return m_isOpen;
}

int LogindPower::LookupPrivilege(const char* name) {
    if (!m_isOpen || !name || std::string_view(name) != "SeShutdownPrivilege")
        return 0;
    m_canPowerOff = Can("CanPowerOff");
    m_canReboot = Can("CanReboot");
    return m_canPowerOff || m_canReboot;
}

bool LogindPower::Can(const char* question) {
    const QDBusReply<QString> answer = m_bus->call(Call(question));
    return answer.isValid() &&
           (answer.value() == QLatin1String("yes") || answer.value() == QLatin1String("challenge"));
}

std::uint32_t LogindPower::AdjustPrivilege(int enable) {
    m_isEnabled = enable && (m_canPowerOff || m_canReboot);
    return enable && !m_isEnabled ? kNotHeld : 0;
}

int LogindPower::ExitSystem(std::uint32_t how) {
    const bool isReboot = how == k4cmn::EWX_REBOOT;
    if (!m_isEnabled || (!isReboot && how != k4cmn::EWX_SHUTDOWN) ||
        !(isReboot ? m_canReboot : m_canPowerOff))
        return 0;
    QDBusMessage call = Call(isReboot ? "Reboot" : "PowerOff");
    call << true;  // may ask for a password
    call.setInteractiveAuthorizationAllowed(true);
    return m_bus->call(call, QDBus::Block, kPasswordPatience).type() == QDBusMessage::ReplyMessage;
}

}  // namespace k4suite

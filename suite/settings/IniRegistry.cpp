#include "suite/settings/IniRegistry.h"

#include <algorithm>
#include <utility>

#include "suite/settings/IniName.h"
#include "suite/settings/IniRegistryKey.h"
#include "suite/settings/IniValue.h"
#include "suite/settings/NameText.h"

namespace k4suite {

namespace {

constexpr char kLocal[] = "Local";
constexpr char kPreviewKey[] = "Preview\\Request";

QString Mark(const QString& key) {
    return key + QLatin1Char('/') + QLatin1String(kKeyMark);
}

bool KeyExists(QSettings& file, const QString& key) {
    if (key.isEmpty() || file.contains(Mark(key)))
        return true;
    file.beginGroup(key);
    const bool holdsSomething = !file.allKeys().isEmpty();
    file.endGroup();
    return holdsSomething;
}

const ServiceSetup* FindService(const MachineSettings& settings, const std::string& service,
                                const std::string& phoneBookEntry) {
    for (const ServiceSetup& setup : settings.services) {
        if (IsSameName(setup.name, service) && IsSameName(setup.phoneBookEntry, phoneBookEntry))
            return &setup;
    }
    return nullptr;
}

void WriteOptional(QSettings& file, const QString& key, const std::uint32_t* number) {
    if (number)
        WriteNumber(file, key, *number);
    else
        file.remove(key);
}

std::optional<std::uint32_t> ReadOptional(const QSettings& file, const QString& key) {
    std::uint32_t number = 0;
    return ReadNumber(file, key, number) ? std::optional(number) : std::nullopt;
}

}  // namespace

IniRegistry::IniRegistry(DataHome home)
    : m_home(std::move(home)), m_user(std::make_shared<IniFile>(m_home.UserSettings())) {}

IniRegistry::~IniRegistry() = default;

std::unique_ptr<k4cmn::RegistryKey> IniRegistry::OpenUserKey(const std::string& key,
                                                             const std::string& subkey,
                                                             int create) {
    const QString place = EncodeKey(BuildKey(key, subkey));
    bool exists = false;
    if (!m_user->Read([&](QSettings& file) { exists = KeyExists(file, place); }))
        return nullptr;
    if (!exists && create) {
        exists = m_user->Update([&](QSettings& file) { file.setValue(Mark(place), true); }) != 0;
    }
    return exists ? std::make_unique<IniRegistryKey>(m_user, place) : nullptr;
}

std::string IniRegistry::BuildKey(const std::string& key, const std::string& subkey) {
    if (key.empty() || subkey.empty())
        return key + subkey;
    return key + "\\" + subkey;
}

int IniRegistry::ReadMachine(MachineSettings& settings) {
    std::string problem;
    if (ReadMachineSettings(m_home, settings, &problem))
        return 1;
    const std::lock_guard guard(m_mutex);
    const auto known = std::find(m_machineProblems.begin(), m_machineProblems.end(), problem);
    if (!problem.empty() && known == m_machineProblems.end())
        m_machineProblems.push_back(problem);
    return 0;
}

int IniRegistry::GetServers(std::vector<std::string>& servers, const std::string& service,
                            const std::string& phoneBookEntry) {
    MachineSettings settings;
    if (!ReadMachine(settings))
        return 0;
    const ServiceSetup* setup =
        FindService(settings, service.empty() ? kLocal : service, phoneBookEntry);
    if (!setup)
        return 0;
    servers = setup->servers;
    return 1;
}

int IniRegistry::GetServices(std::vector<std::string>& services,
                             const std::string& phoneBookEntry) {
    MachineSettings settings;
    if (!ReadMachine(settings))
        return 0;
    services.clear();
    if (phoneBookEntry.empty() && !FindService(settings, kLocal, {}))
        services.push_back(kLocal);
    for (const ServiceSetup& setup : settings.services) {
        if (IsSameName(setup.phoneBookEntry, phoneBookEntry))
            services.push_back(setup.name);
    }
    return 1;
}

int IniRegistry::GetLocalSigns(std::vector<std::string>& signs) {
    MachineSettings settings;
    if (!ReadMachine(settings))
        return 0;
    signs.clear();
    if (const ServiceSetup* local = FindService(settings, kLocal, {})) {
        for (const SignSetup& sign : local->signs)
            signs.push_back(sign.name);
    }
    return 1;
}

int IniRegistry::GetSignSettings(const std::string& sign, k4cmn::SignSettings& settings) {
    MachineSettings machine;
    if (!ReadMachine(machine))
        return 0;
    const ServiceSetup* local = FindService(machine, kLocal, {});
    if (!local)
        return 0;
    for (const SignSetup& setup : local->signs) {
        if (IsSameName(setup.name, sign)) {
            settings = setup.settings;
            return 1;
        }
    }
    return 0;
}

int IniRegistry::GetDataPath(std::string& path) {
    path = m_home.Path().string();
    return 1;
}

int IniRegistry::GetExePath(std::string& path) {
    std::error_code failed;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (failed)
        return 0;
    path = program.parent_path().string();
    return 1;
}

int IniRegistry::SetPreviewOptions(const std::string& sequencePath,
                                   const k4cmn::PreviewOptions& options) {
    if (!IsStorable(sequencePath) || (options.text && !IsStorable(*options.text)))
        return 0;
    return m_user->Update([&](QSettings& file) {
        const QString key = EncodeKey(kPreviewKey);
        WriteText(file, EncodeValue(key, "Sequence"), sequencePath);
        if (options.text)
            WriteText(file, EncodeValue(key, "Text"), *options.text);
        else
            file.remove(EncodeValue(key, "Text"));
        WriteOptional(file, EncodeValue(key, "First"), options.first);
        WriteOptional(file, EncodeValue(key, "Second"), options.second);
        std::uint32_t number = 0;
        ReadNumber(file, EncodeValue(key, "Number"), number);
        WriteNumber(file, EncodeValue(key, "Number"), number + 1);
    });
}

int IniRegistry::ReadPreviewRequest(PreviewRequest& request) {
    PreviewRequest read;
    const int done = m_user->Read([&](QSettings& file) {
        const QString key = EncodeKey(kPreviewKey);
        ReadText(file, EncodeValue(key, "Sequence"), read.sequence);
        if (std::string text; ReadText(file, EncodeValue(key, "Text"), text))
            read.text = text;
        read.first = ReadOptional(file, EncodeValue(key, "First"));
        read.second = ReadOptional(file, EncodeValue(key, "Second"));
        ReadNumber(file, EncodeValue(key, "Number"), read.number);
    });
    if (done)
        request = std::move(read);
    return done;
}

std::vector<std::string> IniRegistry::Problems() const {
    std::vector<std::string> problems = m_user->Problems();
    const std::lock_guard guard(m_mutex);
    problems.insert(problems.end(), m_machineProblems.begin(), m_machineProblems.end());
    return problems;
}

}  // namespace k4suite

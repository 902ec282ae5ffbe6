#include "k4cmndlg/filestore/contracts/CK4Registry.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filestore/contracts/RegistryProvider.h"

namespace {

k4cmn::RegistryProvider& Settings() {
    return k4cmn::Provided<k4cmn::RegistryProvider>::Current();
}

/// Calls the settings; an exception out of them becomes their failure.
template <class Call>
auto Guarded(const Call& call) noexcept -> decltype(call()) {
    try {
        return call();
    } catch (...) {
        return {};
    }
}

std::string TextOrEmpty(const std::string* text) {
    return text ? *text : std::string();
}

/// Reads a list; what it held is replaced only by a list that could be read.
template <class Read>
int ReadList(std::vector<std::string>& list, const Read& read) noexcept {
    return Guarded([&] {
        std::vector<std::string> answer;
        if (!read(answer))
            return 0;
        list = std::move(answer);
        return 1;
    });
}

int ReadText(std::string& text, int (k4cmn::RegistryProvider::*read)(std::string&)) noexcept {
    return Guarded([&] {
        std::string answer;
        if (!(Settings().*read)(answer))
            return 0;
        text = std::move(answer);
        return 1;
    });
}

template <class Value>
void Fill(Value* target, const Value& value) {
    if (target)
        *target = value;
}

template <class Value>
void FillList(std::vector<Value>* target, const std::vector<Value>& values) {
    if (!target)
        return;
    const auto count = std::min(values.size(), CK4Registry::kMaxFurtherSettings);
    target->assign(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count));
}

}  // namespace

CK4Registry::CK4Registry() = default;
CK4Registry::~CK4Registry() = default;

int CK4Registry::Open(const std::string& key, const std::string& subkey, int create) {
    CloseRegistryKey();
    m_key = Guarded([&] { return Settings().OpenUserKey(key, subkey, create); });
    return m_key ? 1 : 0;
}

int CK4Registry::OpenUserRegistryKey(const std::string& key, const std::string& subkey) {
    return Open(key, subkey, 0);
}

int CK4Registry::CreateUserRegistryKey(const std::string& key, const std::string& subkey) {
    return Open(key, subkey, 1);
}

void CK4Registry::CloseRegistryKey() {
    m_key.reset();
}

int CK4Registry::GetRegistryString(const std::string& name, std::string* text) const {
    return Guarded([&] { return m_key && text ? m_key->GetString(name, text) : 0; });
}

int CK4Registry::SetRegistryString(const std::string& name, const std::string& text) {
    return Guarded([&] { return m_key ? m_key->SetString(name, text) : 0; });
}

int CK4Registry::GetRegistryDword(const std::string& name, std::uint32_t* value) const {
    return Guarded([&] { return m_key && value ? m_key->GetDword(name, value) : 0; });
}

int CK4Registry::SetRegistryDword(const std::string& name, const std::uint32_t* value) {
    return Guarded([&] { return m_key && value ? m_key->SetDword(name, *value) : 0; });
}

int CK4Registry::GetRegistryServers(std::vector<std::string>& servers, const std::string* service,
                                    const std::string* phoneBookEntry) {
    return ReadList(servers, [&](auto& list) {
        return Settings().GetServers(list, TextOrEmpty(service), TextOrEmpty(phoneBookEntry));
    });
}

int CK4Registry::GetRegistryServices(std::vector<std::string>& services,
                                     const std::string* phoneBookEntry) {
    return ReadList(services, [&](auto& list) {
        return Settings().GetServices(list, TextOrEmpty(phoneBookEntry));
    });
}

int CK4Registry::GetLocalSignList(std::vector<std::string>& signs) {
    return ReadList(signs, [](auto& list) { return Settings().GetLocalSigns(list); });
}

int CK4Registry::GetSignConfig(const std::string& sign, std::uint32_t* rows, std::uint32_t* columns,
                               tag_K4_SIGN_COLOR* color, tag_K4_PIXEL_TECH* pixel) {
    return GetSignConfigEx(sign, rows, columns, color, pixel, nullptr, nullptr, nullptr);
}

int CK4Registry::GetSignConfigEx(const std::string& sign, std::uint32_t* rows,
                                 std::uint32_t* columns, tag_K4_SIGN_COLOR* color,
                                 tag_K4_PIXEL_TECH* pixel, std::vector<std::string>* texts,
                                 std::vector<std::uint32_t>* numbers,
                                 tag_K4_OUTPUT_ORIENTATION* orientation) {
    return Guarded([&] {
        k4cmn::SignSettings settings;
        if (!Settings().GetSignSettings(sign, settings))
            return 0;
        Fill(rows, settings.rows);
        Fill(columns, settings.columns);
        Fill(color, settings.color);
        Fill(pixel, settings.pixel);
        FillList(texts, settings.texts);
        FillList(numbers, settings.numbers);
        Fill(orientation, settings.orientation);
        return 1;
    });
}

int CK4Registry::GetDataPath(std::string& path) {
    return ReadText(path, &k4cmn::RegistryProvider::GetDataPath);
}

int CK4Registry::GetExePath(std::string& path) {
    return ReadText(path, &k4cmn::RegistryProvider::GetExePath);
}

int CK4Registry::SetPreviewOptions(const std::string& sequencePath, const std::string* text,
                                   const std::uint32_t* first, const std::uint32_t* second) {
    return Guarded([&] {
        return Settings().SetPreviewOptions(sequencePath, {text, first, second});
    });
}

std::string CK4Registry::BuildRegistryKey(const std::string& key, const std::string& subkey) {
    return Guarded([&] { return Settings().BuildKey(key, subkey); });
}

int CK4Registry::EnumerateKeys(const CK4Registry& openKey, std::vector<std::string>& names,
                               const std::string* prefix) {
    if (!openKey.m_key)
        return 0;
    return ReadList(names, [&](auto& list) {
        if (!openKey.m_key->Subkeys(list))
            return 0;
        if (prefix)
            std::erase_if(list,
                          [&](const std::string& name) { return !name.starts_with(*prefix); });
        return 1;
    });
}

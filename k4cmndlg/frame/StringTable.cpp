#include "k4cmndlg/frame/StringTable.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace k4cmn {

namespace {

struct Modules {
    std::mutex guard;
    StringTable application;
    std::vector<StringTable> extensions;
};

// Never destroyed: a module may withdraw its texts later than this library's own statics go.
Modules& Known() {
    static Modules& modules = *new Modules;
    return modules;
}

thread_local const ResourceScope* innermost = nullptr;

const char* Find(StringTable table, std::uint32_t id) {
    const auto row = std::find_if(table.begin(), table.end(),
                                  [id](const StringRow& candidate) { return candidate.id == id; });
    return row == table.end() ? nullptr : row->text;
}

}  // namespace

std::string LoadString(std::uint32_t id) {
    for (const ResourceScope* scope = innermost; scope; scope = scope->m_outer) {
        if (const char* text = Find(scope->m_table, id))
            return text;
    }
    Modules& known = Known();
    const std::lock_guard lock(known.guard);
    if (const char* text = Find(known.application, id))
        return text;
    for (const StringTable& table : known.extensions) {
        if (const char* text = Find(table, id))
            return text;
    }
    return {};
}

void SetApplicationStrings(StringTable table) {
    Modules& known = Known();
    const std::lock_guard lock(known.guard);
    known.application = table;
}

StringModule::StringModule(StringTable table) : m_table(table) {
    Modules& known = Known();
    const std::lock_guard lock(known.guard);
    known.extensions.push_back(table);
}

StringModule::~StringModule() {
    Modules& known = Known();
    const std::lock_guard lock(known.guard);
    const auto own =
        std::find_if(known.extensions.begin(), known.extensions.end(),
                     [this](const StringTable& table) { return table.data() == m_table.data(); });
    if (own != known.extensions.end())
        known.extensions.erase(own);
}

ResourceScope::ResourceScope(StringTable table) : m_table(table), m_outer(innermost) {
    innermost = this;
}

ResourceScope::~ResourceScope() {
    innermost = m_outer;
}

std::string FormatMessage1(std::string_view text,
                           std::initializer_list<std::string_view> arguments) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPlace =
            text[at] == '%' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
        if (!isPlace) {
            result.push_back(text[at]);
            continue;
        }
        ++at;
        const auto index = static_cast<std::size_t>(text[at] - '1');
        if (index < arguments.size())
            result.append(arguments.begin()[index]);
    }
    return result;
}

}  // namespace k4cmn

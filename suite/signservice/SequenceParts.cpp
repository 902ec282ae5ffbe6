#include "suite/signservice/SequenceParts.h"

#include <algorithm>
#include <utility>

namespace k4suite {

std::optional<std::uint32_t> SequenceParts::Find(const std::string& path) {
    const auto [at, isNew] = m_numbers.try_emplace(path);
    if (!isNew || m_numbers.size() > kMostFiles)
        return at->second;
    const std::string native = m_files.NativePath(path);
    if (native.empty())
        return std::nullopt;
    MakeRoom();
    std::unique_ptr<SequencePart> part =
        SequencePart::Open(path, native, kMostLookedUp - m_lookedUp);
    if (!part)
        return std::nullopt;
    m_lookedUp += part->Frames().size();
    at->second = static_cast<std::uint32_t>(m_parts.size());
    m_parts.push_back({std::move(part), ++m_uses});
    return at->second;
}

std::optional<std::uint32_t> SequenceParts::Find(const std::string& path, std::uint32_t from) {
    return Find(m_files.GetFullPath(path, Part(from).Path()));
}

SequencePart* SequenceParts::Opened(std::uint32_t number) {
    Used& used = m_parts[number];
    used.lastUse = ++m_uses;
    if (!used.part->IsOpen()) {
        MakeRoom();
        if (!used.part->Reopen())
            return nullptr;
    }
    return used.part.get();
}

void SequenceParts::MakeRoom() {
    const auto isOpen = [](const Used& used) { return used.part->IsOpen(); };
    if (static_cast<std::size_t>(std::count_if(m_parts.begin(), m_parts.end(), isOpen)) < kMostOpen)
        return;
    const auto oldest = std::min_element(
        m_parts.begin() + 1, m_parts.end(), [&](const Used& one, const Used& other) {
            return isOpen(one) > isOpen(other) ||
                   (isOpen(one) == isOpen(other) && one.lastUse < other.lastUse);
        });
    oldest->part->Close();
}

}  // namespace k4suite

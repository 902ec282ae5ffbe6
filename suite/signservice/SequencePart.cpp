#include "suite/signservice/SequencePart.h"

#include <sys/stat.h>

#include <algorithm>

#include "suite/sequence/HeadJournal.h"

namespace k4suite {

namespace {

SequencePart::Identity IdentityOf(const FileBytes& file) {
    struct stat facts {};
    if (fstat(file.Handle(), &facts) != 0)
        return {};
    return {facts.st_dev, facts.st_ino};
}

}  // namespace

SequencePart::SequencePart(std::string path, std::string native)
    : m_path(std::move(path)), m_native(std::move(native)) {}

std::unique_ptr<SequencePart> SequencePart::Open(std::string path, std::string native,
                                                 std::size_t most) {
    std::unique_ptr<SequencePart> part(new SequencePart(std::move(path), std::move(native)));
    if (!part->OpenFile())
        return nullptr;
    part->m_id = IdentityOf(*part->m_bytes);
    part->LookUpFrames(most);
    return part;
}

// Saving texts changes nothing of the head that counts here, so that nobody needs to wait for it.
bool SequencePart::OpenFile() {
    std::string problem;
    m_bytes = FileBytes::Open(m_native, false, problem);
    if (!m_bytes)
        return false;
    const std::optional<SequenceHead> head = ReadCountingHead(*m_bytes);
    if (!head || FindHeadDefect(*head)) {
        Close();
        return false;
    }
    m_facts = head->start;
    m_reader.emplace(*m_bytes, *head);
    return true;
}

void SequencePart::LookUpFrames(std::size_t most) {
    const std::size_t count = std::min<std::size_t>(most, m_facts.frameCount);
    SequenceDefect defect;
    for (std::uint32_t number = 1; number <= count; ++number) {
        const std::optional<FramePlace> place = m_reader->Find(number, defect);
        if (!place)
            return;
        m_frames.push_back(*place);
    }
}

void SequencePart::Close() {
    m_reader.reset();
    m_bytes.reset();
}

bool SequencePart::Reopen() {
    if (IsOpen())
        return true;
    const tag_K4_SOS_FRM before = m_facts;
    const bool isSame = OpenFile() && IdentityOf(*m_bytes) == m_id && m_facts.rows == before.rows &&
                        m_facts.columns == before.columns && m_facts.color == before.color;
    if (!isSame) {
        Close();
        m_facts = before;
    }
    return isSame;
}

std::vector<IncludeField> SequencePart::ReadInclude(const FramePlace& place) {
    SequenceDefect defect;
    std::vector<IncludeField> fields;
    if (!m_reader->ReadInclude(place, fields, defect))
        fields.clear();
    return fields;
}

bool SequencePart::ReadBulbs(const FramePlace& place, std::vector<std::uint8_t>& bulbs) {
    SequenceDefect defect;
    tag_K4_GRP_HDR header{};
    if (!m_reader->ReadHeader(place, header, defect))
        return false;
    const auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(header.compressionType);
    // The numbers are looked at before memory is taken.
    if (!m_reader->CanReadBulbs(place, method, defect))
        return false;
    bulbs.resize(m_reader->FrameBytes());
    return m_reader->ReadBulbs(place, method, bulbs, defect);
}

}  // namespace k4suite

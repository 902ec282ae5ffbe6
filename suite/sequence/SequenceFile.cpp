#include "suite/sequence/SequenceFile.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include "suite/sequence/GraphicFrame.h"
#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/IncludeFrame.h"

namespace k4suite {

SequenceFile::OpenFile::OpenFile(std::unique_ptr<FileBytes> openBytes, const SequenceHead& head,
                                 bool forWriting)
    : bytes(std::move(openBytes)),
      facts(head.start),
      reader(*bytes, head),
      writable(forWriting),
      file(head.file),
      start(head.start) {}

SequenceFile::SequenceFile(PathMapping native) : m_native(std::move(native)) {}

SequenceFile::~SequenceFile() = default;

int SequenceFile::Fail(const std::string& words) {
    m_words = words;
    return 0;
}

void SequenceFile::Close() {
    m_open.reset();
    m_keywords.clear();
    m_notes.clear();
}

int SequenceFile::Open(const std::string& path, K4OpenFlags flags) {
    Close();
    if (flags != K4_OPEN_READ && flags != K4_OPEN_READWRITE)
        return Fail("A file is opened for reading, or for reading and writing.");
    const std::string native = m_native ? m_native(path) : path;
    if (native.empty())
        return Fail("There is no place \"" + path + "\".");
    const bool writable = flags == K4_OPEN_READWRITE;
    std::unique_ptr<FileBytes> bytes = FileBytes::Open(native, writable, m_words);
    if (!bytes)
        return 0;
    const std::optional<SequenceHead> head = ReadCountingHeadLocked(*bytes);
    if (!head)
        return Fail(DefectText({bytes->Size(), "The file is too short for a sequence."}));
    if (const auto defect = FindHeadDefect(*head))
        return Fail(DefectText(*defect));
    m_keywords = TextOfArea(head->keywords);
    m_notes = TextOfArea(head->notes);
    m_open.emplace(std::move(bytes), *head, writable);
    m_words.clear();
    return 1;
}

tag_K4_RIFF_FILE_DATA* SequenceFile::RiffHdr() {
    return m_open ? &m_open->file : nullptr;
}

tag_K4_SOS_FRM* SequenceFile::SosData() {
    return m_open ? &m_open->start : nullptr;
}

int SequenceFile::FrameCount() const {
    return m_open ? m_open->facts.frameCount : 0;
}

int SequenceFile::IsPreviewOnly() const {
    return m_open && m_open->facts.flags & k4cmn::kPreviewOnlyFlag ? 1 : 0;
}

int SequenceFile::SetText(const std::string& text, std::string& target) {
    if (!m_open)
        return Fail("No file is open.");
    if (!FitsArea(text))
        return Fail("The text is too long.");
    target = text;
    return 1;
}

int SequenceFile::SetKeywordsString(const std::string& text) {
    return SetText(text, m_keywords);
}

int SequenceFile::SetCommentsString(const std::string& text) {
    return SetText(text, m_notes);
}

std::unique_ptr<CK4Frame> SequenceFile::MakeFrame(const FramePlace& place, SequenceDefect& defect) {
    if (place.type == k4cmn::kIncludeFrame) {
        std::vector<IncludeField> fields;
        if (!m_open->reader.ReadInclude(place, fields, defect))
            return nullptr;
        return std::make_unique<IncludeFrame>(std::move(fields));
    }
    tag_K4_GRP_HDR header{};
    if (!m_open->reader.ReadHeader(place, header, defect))
        return nullptr;
    return std::make_unique<GraphicFrame>(m_open->reader, place, header, m_words);
}

CK4Frame* SequenceFile::Frame(int number) {
    if (!m_open || number < 1 || number > FrameCount())
        return nullptr;
    SequenceDefect defect;
    try {
        m_open->frame.reset();
        if (const auto place = m_open->reader.Find(static_cast<std::uint32_t>(number), defect))
            m_open->frame = MakeFrame(*place, defect);
    } catch (const std::bad_alloc&) {
        defect = {0, "There is no memory for the frame."};
    }
    if (!m_open->frame)
        Fail(DefectText(defect));
    return m_open->frame.get();
}

std::uint32_t SequenceFile::CalcRunTime() {
    std::uint64_t total = 0;
    for (int number = 1; number <= FrameCount(); ++number) {
        SequenceDefect defect;
        const auto place = m_open->reader.Find(static_cast<std::uint32_t>(number), defect);
        if (!place) {
            Fail(DefectText(defect));
            break;
        }
        total += place->dwell;
    }
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(total, std::numeric_limits<std::uint32_t>::max()));
}

int SequenceFile::Save() {
    if (!m_open)
        return Fail("No file is open.");
    if (!m_open->writable)
        return Fail("The file isn't open for writing.");
    const HeadValues values{m_open->file.compressionLevel, m_open->start.thumbnailFrame,
                            m_open->start.runTime, m_keywords, m_notes};
    if (!SaveHead(*m_open->bytes, values, m_words))
        return 0;
    m_words.clear();
    return 1;
}

}  // namespace k4suite

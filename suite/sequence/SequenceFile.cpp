#include "suite/sequence/SequenceFile.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <new>
#include <utility>

#include "suite/sequence/GraphicFrame.h"
#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/IncludeFrame.h"

namespace k4suite {

namespace {

/// The words of a failure that came as an exception, which never leaves.
std::string WordsOf(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure))
        return "There is no memory for the file.";
    return failure.what();
}

}  // namespace

SequenceFile::OpenFile::OpenFile(std::unique_ptr<FileBytes> openBytes, const SequenceHead& found,
                                 bool forWriting)
    : bytes(std::move(openBytes)),
      writable(forWriting),
      saved(found),
      head(found),
      reader(*bytes, found) {
    Show(found);
}

void SequenceFile::OpenFile::Show(const SequenceHead& values) {
    CopyChangeable(values, head);
    head.keywords[kTextArea - 1] = '\0';
    head.notes[kTextArea - 1] = '\0';
}

SequenceFile::SequenceFile(PathMapping native) : m_native(std::move(native)) {}

SequenceFile::~SequenceFile() = default;

int SequenceFile::Fail(const std::string& words) {
    m_words = words;
    return 0;
}

void SequenceFile::Close() {
    m_open.reset();
}

int SequenceFile::Open(const std::string& path, K4OpenFlags flags) {
    Close();
    try {
        return TryOpen(path, flags);
    } catch (const std::exception& failure) {
        return Fail(WordsOf(failure));
    }
}

int SequenceFile::TryOpen(const std::string& path, K4OpenFlags flags) {
    if (flags != K4_OPEN_READ && flags != K4_OPEN_READWRITE)
        return Fail("A file is opened for reading, or for reading and writing.");
    const std::string native = m_native ? m_native(path) : path;
    if (native.empty())
        return Fail("There is no place \"" + path + "\".");
    const bool writable = flags == K4_OPEN_READWRITE;
    std::unique_ptr<FileBytes> bytes = FileBytes::Open(native, writable, m_words);
    if (!bytes)
        return 0;
    const std::optional<SequenceHead> head = ReadSharedHead(*bytes);
    if (!head)
        return Fail(DefectText({bytes->Size(), "The file is too short for a sequence."}));
    if (const auto defect = FindHeadDefect(*head))
        return Fail(DefectText(*defect));
    m_open.emplace(std::move(bytes), *head, writable);
    m_words.clear();
    return 1;
}

tag_K4_RIFF_FILE_DATA* SequenceFile::RiffHdr() {
    return m_open ? &m_open->head.file : nullptr;
}

tag_K4_SOS_FRM* SequenceFile::SosData() {
    return m_open ? &m_open->head.start : nullptr;
}

int SequenceFile::FrameCount() const {
    return m_open ? m_open->saved.start.frameCount : 0;
}

int SequenceFile::IsPreviewOnly() const {
    return m_open && m_open->saved.start.flags & k4cmn::kPreviewOnlyFlag ? 1 : 0;
}

int SequenceFile::SetText(const std::string& text, char (&target)[kTextArea]) {
    if (!FitsArea(text))
        return Fail("The text is too long.");
    FillArea(text, target);
    return 1;
}

int SequenceFile::SetKeywordsString(const std::string& text) {
    return m_open ? SetText(text, m_open->head.keywords) : Fail("No file is open.");
}

int SequenceFile::SetCommentsString(const std::string& text) {
    return m_open ? SetText(text, m_open->head.notes) : Fail("No file is open.");
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
    try {
        return SumOfDwells();
    } catch (const std::exception& failure) {
        Fail(WordsOf(failure));
        return 0;
    }
}

std::uint32_t SequenceFile::SumOfDwells() {
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
    try {
        return TrySave();
    } catch (const std::exception& failure) {
        return Fail(WordsOf(failure));
    }
}

int SequenceFile::TrySave() {
    if (!m_open)
        return Fail("No file is open.");
    if (!m_open->writable)
        return Fail("The file isn't open for writing.");
    const HeadChanges changes = ChangesOf(m_open->head, m_open->saved);
    const std::optional<SequenceHead> now = SaveSharedHead(*m_open->bytes, changes, m_words);
    if (!now)
        return 0;
    // What another program saved meanwhile shows from here on. The frames stay those that were
    // found when the file was opened.
    CopyChangeable(*now, m_open->saved);
    m_open->Show(*now);
    m_words.clear();
    return 1;
}

}  // namespace k4suite

#include "suite/sequence/SequenceHead.h"

#include <algorithm>
#include <cstring>

#include "k4cmndlg/filestore/SignLimits.h"

namespace k4suite {

namespace {

using k4cmn::FourCharacterCode;

constexpr std::uint32_t kForm = FourCharacterCode("RIFF");
constexpr std::uint32_t kFormType = FourCharacterCode("SQ4 ");
constexpr std::uint32_t kVersion = 1;

struct HeadChunk {
    ChunkHead SequenceHead::*chunk;
    std::size_t offset;
    ChunkHead expected;
    const char* name;
};

constexpr HeadChunk kHeadChunks[] = {
    {&SequenceHead::fileChunk,
     offsetof(SequenceHead, fileChunk),
     {FourCharacterCode("fil "), sizeof(tag_K4_RIFF_FILE_DATA)},
     "fil "},
    {&SequenceHead::keywordsChunk,
     offsetof(SequenceHead, keywordsChunk),
     {FourCharacterCode("key "), kTextArea},
     "key "},
    {&SequenceHead::notesChunk,
     offsetof(SequenceHead, notesChunk),
     {FourCharacterCode("not "), kTextArea},
     "not "},
    {&SequenceHead::startChunk,
     offsetof(SequenceHead, startChunk),
     {FourCharacterCode("sos "), sizeof(tag_K4_SOS_FRM)},
     "sos "},
};

std::optional<SequenceDefect> FindStartDefect(const tag_K4_SOS_FRM& start) {
    const std::string size =
        std::to_string(start.rows) + " rows and " + std::to_string(start.columns) + " columns";
    if (start.rows == 0 || start.columns == 0)
        return SequenceDefect{offsetof(SequenceHead, start) + offsetof(tag_K4_SOS_FRM, rows),
                              "A sign of " + size + " has no lamps."};
    if (!k4cmn::IsPixelCountLegal(start.rows, start.columns))
        return SequenceDefect{offsetof(SequenceHead, start) + offsetof(tag_K4_SOS_FRM, rows),
                              "A sign of " + size + " is too large."};
    return {};
}

}  // namespace

SequenceHead MakeSequenceHead() {
    SequenceHead head{};
    head.form = {kForm, sizeof(SequenceHead) - sizeof(ChunkHead)};
    head.formType = kFormType;
    head.file.version = kVersion;
    for (const HeadChunk& row : kHeadChunks)
        head.*row.chunk = row.expected;
    return head;
}

std::optional<SequenceDefect> FindHeadDefect(const SequenceHead& head) {
    if (head.form.type != kForm)
        return SequenceDefect{0, "The file isn't a RIFF file."};
    if (head.formType != kFormType)
        return SequenceDefect{offsetof(SequenceHead, formType), "The file isn't a sequence."};
    if (head.FormEnd() < sizeof(SequenceHead))
        return SequenceDefect{offsetof(SequenceHead, form) + sizeof head.form.type,
                              "The form is too short for a sequence."};
    for (const HeadChunk& row : kHeadChunks) {
        const ChunkHead& found = head.*row.chunk;
        if (found.type != row.expected.type)
            return SequenceDefect{
                row.offset, std::string("The chunk \"") + row.name + "\" isn't at its place."};
        if (found.size != row.expected.size)
            return SequenceDefect{row.offset + sizeof found.type,
                                  std::string("The chunk \"") + row.name + "\" has a wrong size."};
    }
    if (head.file.version != kVersion)
        return SequenceDefect{
            offsetof(SequenceHead, file),
            "Version " + std::to_string(head.file.version) + " of the format isn't known."};
    return FindStartDefect(head.start);
}

std::string TextOfArea(const char (&area)[kTextArea]) {
    return {area, strnlen(area, kTextArea - 1)};
}

bool FitsArea(const std::string& text) {
    return text.size() < kTextArea && text.find('\0') == std::string::npos;
}

void FillArea(const std::string& text, char (&area)[kTextArea]) {
    std::fill(std::begin(area), std::end(area), '\0');
    std::copy(text.begin(), text.end(), std::begin(area));
}

}  // namespace k4suite

#include "suite/sequence/SequenceCheck.h"

#include <optional>
#include <utility>

#include "k4cmndlg/filestore/SignTypes.h"
#include "suite/sequence/FileBytes.h"
#include "suite/sequence/HeadJournal.h"
#include "suite/sequence/SequenceReader.h"

namespace k4suite {

namespace {

constexpr std::size_t kMostDefects = 1000;
/// One more than a sequence may have.
constexpr std::uint32_t kMostFrames = 65536;
constexpr std::size_t kStart = offsetof(SequenceHead, start);

/// One look at one file.
class Check {
 public:
    Check(ByteSource& bytes, const SequenceHead& head)
        : m_bytes(bytes), m_head(head), m_reader(bytes, head) {}

    std::vector<SequenceDefect> Run() {
        CheckRecords();
        CheckEnd();
        CheckFrames();
        CheckCounts();
        return std::move(m_defects);
    }

 private:
    void Add(std::uint64_t offset, std::string words) {
        if (m_defects.size() < kMostDefects)
            m_defects.push_back({offset, std::move(words)});
    }

    void CheckText(const char (&area)[kTextArea], std::size_t offset, const char* name) {
        if (area[kTextArea - 1] != '\0')
            Add(offset, std::string("The ") + name + " have no end.");
    }

    void CheckRecords() {
        const std::uint32_t level = m_head.file.compressionLevel;
        if (level != K4_COMPRESS_NONE && level != K4_COMPRESS_LOW && level != K4_COMPRESS_MEDIUM)
            Add(offsetof(SequenceHead, file) + offsetof(tag_K4_RIFF_FILE_DATA, compressionLevel),
                "The compression level " + std::to_string(level) + " isn't known.");
        CheckText(m_head.keywords, offsetof(SequenceHead, keywords), "keywords");
        CheckText(m_head.notes, offsetof(SequenceHead, notes), "notes");
        const tag_K4_SOS_FRM& start = m_head.start;
        if (start.color > std::uint32_t{K4_SIGN_COLOR_RGB16MB})
            Add(kStart + offsetof(tag_K4_SOS_FRM, color),
                "The color technology " + std::to_string(start.color) + " isn't known.");
        if (start.pixel < std::uint32_t{K4_PIXEL_TECH_INCAND} ||
            start.pixel > std::uint32_t{K4_PIXEL_TECH_LED})
            Add(kStart + offsetof(tag_K4_SOS_FRM, pixel),
                "The pixel technology " + std::to_string(start.pixel) + " isn't known.");
        if (start.thumbnailFrame > start.frameCount)
            Add(kStart + offsetof(tag_K4_SOS_FRM, thumbnailFrame),
                "The thumbnail frame " + std::to_string(start.thumbnailFrame) +
                    " isn't one of the " + std::to_string(start.frameCount) + " frames.");
        if (start.frameCount == 0)
            Add(kStart + offsetof(tag_K4_SOS_FRM, frameCount), "The sequence has no frames.");
    }

    void CheckEnd() {
        const std::uint64_t size = m_bytes.Size();
        const std::uint64_t end = m_head.FormEnd();
        if (size < end)
            Add(size,
                "The file is cut short: it should end at offset " + std::to_string(end) + ".");
        if (size > end)
            Add(end, "There are " + std::to_string(size - end) + " bytes behind the form's end.");
    }

    void CheckFrame(const FramePlace& place) {
        SequenceDefect defect;
        if (place.type == k4cmn::kIncludeFrame) {
            ++m_includes;
            std::vector<IncludeField> fields;
            if (!m_reader.ReadInclude(place, fields, defect))
                Add(defect.offset, defect.words);
            return;
        }
        tag_K4_GRP_HDR header{};
        if (!m_reader.ReadHeader(place, header, defect)) {
            Add(defect.offset, defect.words);
            return;
        }
        m_runTime += header.dwell;
        const auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(header.compressionType);
        bool isSound = m_reader.CanReadBulbs(place, method, defect);
        if (isSound) {
            m_data.resize(m_reader.FrameBytes());
            isSound = m_reader.ReadBulbs(place, method, m_data, defect);
        }
        if (!isSound)
            Add(defect.offset, defect.words);
    }

    void CheckFrames() {
        SequenceDefect defect;
        while (m_defects.size() < kMostDefects) {
            if (m_frames == kMostFrames) {
                Add(m_reader.End(), "The sequence has more than 65535 frames.");
                return;
            }
            const auto place = m_reader.Find(m_frames + 1, defect);
            if (!place)
                break;
            ++m_frames;
            CheckFrame(*place);
        }
        // At the end of the last chunk the file simply ends.
        if (m_defects.size() < kMostDefects && defect.offset != m_reader.End())
            Add(defect.offset, defect.words);
    }

    void CheckCount(std::size_t field, const char* name, std::uint64_t said, std::uint64_t found) {
        if (said != found)
            Add(kStart + field, "The start record says " + std::to_string(said) + " " + name +
                                    ", and there are " + std::to_string(found) + ".");
    }

    void CheckCounts() {
        const tag_K4_SOS_FRM& start = m_head.start;
        CheckCount(offsetof(tag_K4_SOS_FRM, frameCount), "frames", start.frameCount, m_frames);
        CheckCount(offsetof(tag_K4_SOS_FRM, includeCount), "include frames", start.includeCount,
                   m_includes);
        CheckCount(offsetof(tag_K4_SOS_FRM, runTime), "milliseconds", start.runTime, m_runTime);
    }

    ByteSource& m_bytes;
    const SequenceHead m_head;
    SequenceReader m_reader;
    std::vector<std::uint8_t> m_data;
    std::uint32_t m_frames = 0;
    std::uint64_t m_includes = 0;
    std::uint64_t m_runTime = 0;
    std::vector<SequenceDefect> m_defects;
};

std::vector<SequenceDefect> CheckHeaded(ByteSource& bytes,
                                        const std::optional<SequenceHead>& head) {
    if (!head)
        return {{bytes.Size(), "The file is too short for a sequence."}};
    if (const auto defect = FindHeadDefect(*head))
        return {*defect};
    return Check(bytes, *head).Run();
}

}  // namespace

std::vector<SequenceDefect> CheckSequence(ByteSource& bytes) {
    return CheckHeaded(bytes, ReadCountingHead(bytes));
}

std::vector<SequenceDefect> CheckSequence(const std::string& path) {
    std::string problem;
    const auto file = FileBytes::Open(path, false, problem);
    if (!file)
        return {{0, problem}};
    return CheckHeaded(*file, ReadSharedHead(*file));
}

}  // namespace k4suite

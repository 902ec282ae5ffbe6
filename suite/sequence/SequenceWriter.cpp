#include "suite/sequence/SequenceWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <limits>
#include <utility>

#include "suite/platform/Descriptor.h"
#include "suite/sequence/BulbPacking.h"
#include "suite/sequence/FileBytes.h"
#include "suite/sequence/SequenceReader.h"
#include "suite/store/UnfinishedCopy.h"

namespace k4suite {

namespace {

namespace fs = std::filesystem;

template <class Record>
std::span<const std::uint8_t> BytesOf(const Record& record) {
    return {reinterpret_cast<const std::uint8_t*>(&record), sizeof record};
}

void PutWord(std::size_t word, std::vector<std::uint8_t>& bytes) {
    bytes.push_back(static_cast<std::uint8_t>(word));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8));
}

fs::path FolderOf(const std::string& path) {
    const fs::path folder = fs::path(path).parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

/// A name beside a file's place that the store doesn't list. Each call gives another one.
std::string NameBeside(const std::string& path) {
    static std::atomic<unsigned> counter = 0;
    return FolderOf(path) / (std::string(kUnfinishedCopy) + std::to_string(getpid()) + "-" +
                             std::to_string(++counter));
}

/// Makes a new file with the permissions of any, beside its later place: without a name, so that it
/// goes with this process whatever ends that; or where the disk has no such files, with a name that
/// the store doesn't list.
/// @param name becomes its path; empty where it has none.
/// @return nothing with errno.
Descriptor MakeUnfinished(const std::string& path, std::string& name) {
    constexpr int kFlags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
    name.clear();
    int file = open(FolderOf(path).c_str(), kFlags | O_TMPFILE, 0666);
    while (file < 0 && (name.empty() || errno == EEXIST)) {
        name = NameBeside(path);
        file = open(name.c_str(), kFlags | O_CREAT | O_EXCL, 0666);
    }
    return Descriptor(file);
}

/// Gives a file without a name one beside its later place.
/// @param name becomes its path.
/// @return false with errno.
bool NameUnfinished(int file, const std::string& path, std::string& name) {
    const std::string open = "/proc/self/fd/" + std::to_string(file);
    do {
        name = NameBeside(path);
        if (linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0)
            return true;
    } while (errno == EEXIST);
    name.clear();
    return false;
}

/// Sees to it that a folder's names outlive the machine. Not every disk can; the file is there in
/// any case.
void FlushFolder(const fs::path& folder) {
    const Descriptor handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle)
        static_cast<void>(fsync(handle.Get()));
}

/// The dwell time in the content of a graphic frame.
std::uint32_t DwellOf(std::span<const std::uint8_t> content) {
    tag_K4_GRP_HDR header{};
    if (content.size() >= sizeof header)
        std::memcpy(&header, content.data(), sizeof header);
    return header.dwell;
}

SequenceHead HeadOf(const SequenceFacts& facts) {
    SequenceHead head = MakeSequenceHead();
    std::copy(facts.maker.begin(), facts.maker.end(), std::begin(head.file.maker));
    head.file.compressionLevel = static_cast<std::uint32_t>(facts.level);
    FillArea(facts.keywords, head.keywords);
    FillArea(facts.notes, head.notes);
    head.start.flags = facts.previewOnly ? k4cmn::kPreviewOnlyFlag : 0;
    head.start.rows = facts.rows;
    head.start.columns = facts.columns;
    head.start.color = static_cast<std::uint32_t>(facts.color);
    head.start.pixel = static_cast<std::uint32_t>(facts.pixel);
    head.start.thumbnailFrame = facts.thumbnailFrame;
    return head;
}

}  // namespace

SequenceWriter::SequenceWriter(std::string path, const SequenceFacts& facts)
    : m_path(std::move(path)), m_head(MakeSequenceHead()) {
    if (facts.maker.size() >= sizeof m_head.file.maker || !FitsArea(facts.keywords) ||
        !FitsArea(facts.notes)) {
        Fail("A text is too long.");
        return;
    }
    m_head = HeadOf(facts);
    if (const auto defect = FindHeadDefect(m_head)) {
        Fail(defect->words);
        return;
    }
    if (m_path.find('\0') != std::string::npos) {
        Fail("A path can't have a 0 byte.");
        return;
    }
    std::string name;
    Descriptor file = MakeUnfinished(m_path, name);
    if (!file) {
        Fail("Cannot make \"" + m_path + "\": " + SystemWords() + ".");
        return;
    }
    m_unfinished = name;
    m_file = fdopen(file.Get(), "wb");
    if (!m_file) {
        Fail("Cannot make \"" + m_path + "\": " + SystemWords() + ".");
        return;
    }
    static_cast<void>(file.Release());
    Write(BytesOf(m_head));
}

SequenceWriter::~SequenceWriter() {
    if (m_file)
        std::fclose(m_file);
    if (!m_unfinished.empty())
        unlink(m_unfinished.c_str());
}

bool SequenceWriter::Fail(const std::string& words) {
    if (m_problem.empty())
        m_problem = words;
    return false;
}

bool SequenceWriter::Write(std::span<const std::uint8_t> bytes) {
    if (!m_problem.empty())
        return false;
    if (bytes.empty())
        return true;
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file) != bytes.size())
        return Fail("Cannot write \"" + m_path + "\": " + SystemWords() + ".");
    m_written += bytes.size();
    return true;
}

bool SequenceWriter::WriteChunk(std::uint32_t type, std::span<const std::uint8_t> first,
                                std::span<const std::uint8_t> second) {
    static constexpr std::uint8_t kPadding[1] = {0};
    const std::uint64_t size = first.size() + second.size();
    if (m_written + sizeof(ChunkHead) + size + 1 > std::numeric_limits<std::uint32_t>::max())
        return Fail("A sequence file can't be longer than 4 GB.");
    const ChunkHead head{type, static_cast<std::uint32_t>(size)};
    return Write(BytesOf(head)) && Write(first) && Write(second) &&
           (size % 2 == 0 || Write(kPadding));
}

bool SequenceWriter::CountFrame(std::uint32_t type, std::uint32_t dwell) {
    if (m_head.start.frameCount == std::numeric_limits<std::uint16_t>::max())
        return Fail("A sequence can't have more than 65535 frames.");
    ++m_head.start.frameCount;
    if (type == k4cmn::kIncludeFrame)
        ++m_head.start.includeCount;
    m_runTime += dwell;
    return true;
}

bool SequenceWriter::AddGraphic(std::uint32_t type, std::uint32_t dwell,
                                std::span<const std::uint8_t> bulbs) {
    const std::uint64_t bytes =
        k4cmn::BytesOfFrame(m_head.start.rows, m_head.start.columns, m_head.start.color);
    if (!IsGraphicFrame(type))
        return Fail("The type isn't a graphic frame's.");
    if (bulbs.size() != bytes)
        return Fail("The bulb data has " + std::to_string(bulbs.size()) +
                    " bytes where the sign needs " + std::to_string(bytes) + ".");
    if (!CountFrame(type, dwell))
        return false;
    auto method = MethodOfLevel(static_cast<tag_K4_COMPRESS_TYPE>(m_head.file.compressionLevel));
    const std::vector<std::uint8_t> packed = PackBulbs(bulbs, method);
    tag_K4_GRP_HDR header{};
    header.dwell = dwell;
    header.compressionType = method;
    return WriteChunk(type, BytesOf(header), packed);
}

bool SequenceWriter::AddInclude(std::span<const IncludeField> fields) {
    constexpr std::size_t kLongest = std::numeric_limits<std::uint16_t>::max();
    std::vector<std::uint8_t> content;
    PutWord(fields.size(), content);
    PutWord(0, content);
    for (const IncludeField& field : fields) {
        if (field.path.size() > kLongest || field.path.find('\0') != std::string::npos)
            return Fail("A path of the include frame is too long.");
        PutWord(field.status, content);
        PutWord(field.path.size(), content);
        content.insert(content.end(), field.path.begin(), field.path.end());
    }
    if (fields.size() > kLongest || content.size() > kLongestInclude)
        return Fail("The include frame is too long.");
    return AddChunk(k4cmn::kIncludeFrame, content);
}

bool SequenceWriter::AddChunk(std::uint32_t type, std::span<const std::uint8_t> content) {
    if (type == 0)
        return Fail("A chunk needs a type.");
    const std::uint32_t dwell = IsGraphicFrame(type) ? DwellOf(content) : 0;
    return (!IsFrame(type) || CountFrame(type, dwell)) && WriteChunk(type, content, {});
}

bool SequenceWriter::CompleteHead() {
    m_head.form.size = static_cast<std::uint32_t>(m_written - sizeof(ChunkHead));
    m_head.start.runTime = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(m_runTime, std::numeric_limits<std::uint32_t>::max()));
    if (std::fseek(m_file, 0, SEEK_SET) != 0 || !Write(BytesOf(m_head)) ||
        std::fflush(m_file) != 0 || fsync(fileno(m_file)) != 0)
        return Fail("Cannot write \"" + m_path + "\": " + SystemWords() + ".");
    return true;
}

bool SequenceWriter::Finish() {
    if (!m_problem.empty())
        return false;
    if (!m_file)
        return Fail("The file is complete.");
    if (!CompleteHead())
        return false;
    if (m_unfinished.empty() && !NameUnfinished(fileno(m_file), m_path, m_unfinished))
        return Fail("Cannot make \"" + m_path + "\": " + SystemWords() + ".");
    if (std::fclose(std::exchange(m_file, nullptr)) != 0)
        return Fail("Cannot write \"" + m_path + "\": " + SystemWords() + ".");
    if (rename(m_unfinished.c_str(), m_path.c_str()) != 0)
        return Fail("Cannot make \"" + m_path + "\": " + SystemWords() + ".");
    m_unfinished.clear();
    FlushFolder(FolderOf(m_path));
    return true;
}

}  // namespace k4suite

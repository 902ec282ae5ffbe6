#include "k4cmndlg/filesel/properties/SequenceDuration.h"

#include <memory>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/PlayedPaths.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"

namespace k4cmn {

namespace {

constexpr int kDeepest = 8;

}  // namespace

SequenceDuration::SequenceDuration(CK4SequenceFile& file, std::string path, bool byPath)
    : m_file(file), m_path(std::move(path)), m_byPath(byPath) {}

std::uint64_t SequenceDuration::Milliseconds() {
    return CalcDuration({}, 0);
}

std::uint64_t SequenceDuration::CalcDuration(const std::string& path, int depth) {
    std::unique_ptr<CK4SequenceFile> other;
    if (!path.empty()) {
        other = Provided<SequenceLibrary>::Current().Create();
        if (!other->Open(path, K4_OPEN_READ))
            return 0;
    }
    CK4SequenceFile& file = other ? *other : m_file;
    const tag_K4_SOS_FRM* start = file.SosData();
    if (!start)
        return 0;
    const std::uint64_t own = other || m_byPath ? start->runTime : file.CalcRunTime();
    if (start->includeCount == 0 || depth >= kDeepest)
        return own;
    return own + Includes(file, other ? start->frameCount : file.FrameCount(), depth);
}

std::uint64_t SequenceDuration::Includes(CK4SequenceFile& file, int frames, int depth) {
    std::uint64_t sum = 0;
    for (int number = 1; number <= frames; ++number) {
        CK4Frame* frame = file.Frame(number);
        if (!frame || frame->Type() != kIncludeFrame)
            continue;
        for (const std::string& field : PlayedPaths(static_cast<const CK4IncFrame&>(*frame)))
            sum += Include(field, depth);
    }
    return sum;
}

std::uint64_t SequenceDuration::Include(const std::string& field, int depth) {
    if (depth == 0)
        m_remembered = m_path;
    m_remembered = CK4Files().GetFullPath(field, m_remembered);
    // Without a path nothing is included; the empty one would mean the sequence itself below.
    if (m_remembered.empty())
        return 0;
    const std::pair<std::string, int> key(m_remembered, depth + 1);
    const auto known = m_known.find(key);
    if (known != m_known.end()) {
        m_remembered = known->second.remembered;
        return known->second.milliseconds;
    }
    const bool isItself = IsSameWithoutCase(m_remembered, m_path);
    const std::uint64_t milliseconds =
        CalcDuration(isItself ? std::string() : m_remembered, depth + 1);
    m_known[key] = {milliseconds, m_remembered};
    return milliseconds;
}

}  // namespace k4cmn

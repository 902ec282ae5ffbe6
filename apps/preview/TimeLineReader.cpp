#include "apps/preview/TimeLineReader.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/PlayedPaths.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4GphFrame.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/Format.h"

namespace preview {

namespace {

bool IsGraphic(std::uint32_t type) {
    return type == k4cmn::kGraphicFrame || type == k4cmn::kDataFrame || type == k4cmn::kTextFrame;
}

FileFacts FactsOf(CK4SequenceFile& file, const std::string& path) {
    const tag_K4_SOS_FRM& start = *file.SosData();
    return {path,
            start.rows,
            start.columns,
            start.color,
            start.pixel,
            file.GetPtrToKeywords(),
            file.IsPreviewOnly() != 0};
}

}  // namespace

TimeLineReader::TimeLineReader(std::string path) : m_path(std::move(path)) {}

TimeLineReader::~TimeLineReader() = default;
TimeLineReader::TimeLineReader(TimeLineReader&&) noexcept = default;
TimeLineReader& TimeLineReader::operator=(TimeLineReader&&) noexcept = default;

void TimeLineReader::Read(int steps) {
    if (m_steps == 0 && !m_isDone) {
        m_problem = Enter(m_path);
        m_isDone = m_levels.empty();
    }
    for (; steps > 0 && !m_isDone; --steps)
        Step();
}

void TimeLineReader::Step() {
    if (++m_steps > kMostSteps) {
        m_notice = k4cmn::Format("Only the first %zu frames are shown.", m_line.Count());
        m_levels.clear();
    } else if (Level& level = m_levels.back(); level.nextInclude < level.includes.size()) {
        Include(level, std::string(level.includes[level.nextInclude++]));
    } else if (level.frame < level.file->FrameCount()) {
        ReadFrame(level);
    } else {
        m_levels.pop_back();
    }
    m_isDone = m_levels.empty();
}

void TimeLineReader::ReadFrame(Level& level) {
    CK4Frame* frame = level.file->Frame(++level.frame);
    if (!frame) {
        // The same words again are the same defect: the file has no frames from there on.
        const std::string words = level.file->GetPtrToErrorString();
        if (words == std::exchange(level.defect, words))
            level.frame = level.file->FrameCount();
        else
            AppendWords(level, MomentKind::Unreadable, words);
        return;
    }
    level.defect.clear();
    if (frame->Type() == k4cmn::kIncludeFrame) {
        level.includes = k4cmn::PlayedPaths(static_cast<const CK4IncFrame&>(*frame));
        level.nextInclude = 0;
        return;
    }
    Moment moment;
    moment.file = level.index;
    moment.frame = static_cast<std::uint32_t>(level.frame);
    if (IsGraphic(frame->Type()))
        moment.dwell = std::max(milliseconds(1),
                                milliseconds(static_cast<CK4GphFrame&>(*frame).GphHdr()->dwell));
    m_line.Append(moment);
}

void TimeLineReader::Include(Level& level, const std::string& field) {
    const std::string path = CK4Files().GetFullPath(field, level.path);
    std::string problem;
    // Going down may move the levels; a moment of words belongs to the level that was.
    const std::size_t depth = m_levels.size();
    if (IsPlaying(path))
        problem = "It is passed over, since it would play inside of itself.";
    else if (depth > kDeepest)
        problem = k4cmn::Format("It is passed over, since it is included %zu levels deep.", depth);
    else
        problem = Enter(path);
    if (!problem.empty())
        AppendWords(m_levels[depth - 1], MomentKind::Include, "Included: " + path + "\n" + problem);
}

std::string TimeLineReader::Enter(const std::string& path) {
    if (m_places.size() < kMostPlaces)
        m_places.emplace(path, FileStamp::Of(path));
    Level level;
    level.file = k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
    level.path = path;
    if (!level.file->Open(path, K4_OPEN_READ)) {
        const std::string words = level.file->GetPtrToErrorString();
        return words.empty() ? "It can't be opened." : words;
    }
    const auto known = m_files.find(path);
    level.index =
        known != m_files.end() ? known->second : m_line.AddFile(FactsOf(*level.file, path));
    m_files.emplace(path, level.index);
    m_levels.push_back(std::move(level));
    return {};
}

void TimeLineReader::AppendWords(const Level& level, MomentKind kind, const std::string& words) {
    const auto known = m_words.find(words);
    Moment moment;
    moment.file = level.index;
    moment.frame = static_cast<std::uint32_t>(level.frame);
    moment.kind = kind;
    moment.words = known != m_words.end() ? known->second : m_line.AddWords(words);
    m_words.emplace(words, moment.words);
    m_line.Append(moment);
}

bool TimeLineReader::IsPlaying(const std::string& path) const {
    return std::any_of(m_levels.begin(), m_levels.end(), [&](const Level& level) {
        return k4cmn::IsSameWithoutCase(level.path, path);
    });
}

}  // namespace preview

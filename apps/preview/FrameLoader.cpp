#include "apps/preview/FrameLoader.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filesel/properties/FrameImage.h"
#include "k4cmndlg/filesel/properties/FramePicture.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"

namespace preview {

namespace {

constexpr std::size_t kMostOpen = 8;

std::string CannotShowFrame(const Moment& moment, const std::string& path,
                            const std::string& words) {
    return "Cannot show frame " + std::to_string(moment.frame) + " of " + path + ":\n" + words;
}

}  // namespace

FrameLoader::Seen FrameLoader::Load(const TimeLine& line, std::size_t index) {
    const Moment& moment = line.At(index);
    const std::string& path = line.Files()[moment.file].path;
    if (moment.kind == MomentKind::Include)
        return {{}, line.Words(moment.words)};
    if (moment.kind == MomentKind::Unreadable)
        return {{}, CannotShowFrame(moment, path, line.Words(moment.words))};

    std::string words;
    CK4SequenceFile* file = FileAt(path, words);
    if (!file)
        return {{}, CannotShowFrame(moment, path, words)};
    k4cmn::FramePicture picture;
    switch (picture.Convert(*file, static_cast<int>(moment.frame), true)) {
        case k4cmn::FrameResult::Picture:
            return {k4cmn::ImageOf(picture), {}};
        case k4cmn::FrameResult::NonGraphic:
            return {{}, "Non Graphic Frame"};
        case k4cmn::FrameResult::NoFrame:
            return {{}, CannotShowFrame(moment, path, file->GetPtrToErrorString())};
        case k4cmn::FrameResult::Unreadable:
            break;
    }
    return {{}, CannotShowFrame(moment, path, picture.words)};
}

CK4SequenceFile* FrameLoader::FileAt(const std::string& path, std::string& words) {
    const auto known = std::find_if(m_open.begin(), m_open.end(),
                                    [&](const Open& open) { return open.path == path; });
    if (known != m_open.end()) {
        m_open.splice(m_open.begin(), m_open, known);
        return m_open.front().file.get();
    }
    auto file = k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
    if (!file->Open(path, K4_OPEN_READ)) {
        words = file->GetPtrToErrorString();
        return nullptr;
    }
    m_open.push_front({path, std::move(file)});
    if (m_open.size() > kMostOpen)
        m_open.pop_back();
    return m_open.front().file.get();
}

}  // namespace preview

#include "apps/k4ctl/sequence/OpenSequence.h"

#include "k4cmndlg/frame/Format.h"
#include "suite/sequence/HeadJournal.h"

namespace k4ctl {

std::unique_ptr<OpenSequence> OpenSequence::Open(const std::string& file, const FilePlaces& places,
                                                 Answer& answer) {
    const std::string native = places(file);
    std::string problem = NoPlaceWords(file);
    std::unique_ptr<k4suite::FileBytes> bytes;
    if (!native.empty()) {
        bytes = k4suite::FileBytes::Open(native, false, problem);
    }
    if (!bytes) {
        answer.Fail(ExitCode::Refused, problem);
        return nullptr;
    }
    const auto head = k4suite::ReadSharedHead(*bytes);
    if (!head) {
        answer.Fail(ExitCode::Refused,
                    k4suite::DefectText({bytes->Size(), "The file is too short for a sequence."}));
        return nullptr;
    }
    if (const auto defect = k4suite::FindHeadDefect(*head)) {
        answer.Fail(ExitCode::Refused, k4suite::DefectText(*defect));
        return nullptr;
    }
    return std::unique_ptr<OpenSequence>(new OpenSequence(std::move(bytes), *head));
}

std::string FrameWords(std::uint32_t frame, const k4suite::SequenceDefect& defect) {
    return k4cmn::Format("Frame %u can't be read: %s", frame, k4suite::DefectText(defect).c_str());
}

}  // namespace k4ctl

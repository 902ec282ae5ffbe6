#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4cmn {

namespace {

constexpr char kFileExists[] =
    "\nFile already exists.\nPlease verify that the path and file name are correct.\n"
    "Yes, File is valid \nNo, File is not valid \nCancel, Cancel this operation";
constexpr char kFileNotFound[] = "\nFile not found.\nDo you want to create a new file?";

bool IsThere(const std::string& path) {
    return Provided<StoreAccess>::Current().GetStatus(path, nullptr) != 0;
}

}  // namespace

SelectorEnd FileSelector::PressOk(Prompt& prompt) {
    m_result.clear();
    m_selectedFiles.clear();
    if (HoldsForbiddenCharacter(m_view->FileNameText())) {
        prompt.Ask(InvalidFileNameMessage());
        return SelectorEnd::Stay;
    }
    if (!ReadControls())
        return SelectorEnd::Stay;
    m_result = ComposeResult();

    const OkStep step = DecideOk(m_mode, IsThere(m_result), m_place.file.empty());
    switch (step) {
        case OkStep::AskReplace:
        case OkStep::AskCreate:
            return AfterAnswer(step, prompt);
        case OkStep::Open:
            if (Provided<Shell>::Current().OpenVerb(m_result, SW_SHOW) <= kLastOpenError)
                prompt.Ask(PlainMessage("ERROR: Could not edit " + m_result));
            return SelectorEnd::Stay;
        case OkStep::Take:
            TakeSelectedRows();
            return SelectorEnd::Ok;
        case OkStep::End:
            break;
    }
    return SelectorEnd::Ok;
}

std::string FileSelector::ComposeResult() {
    const bool isPlace = GetTreeSelections() != 0;
    const bool isFile = GetFileSelection() != 0;
    const bool isExtension = GetExtSelection() != 0;
    if (!isPlace || !isFile || !isExtension)
        return m_mode == K4_FILE_PICK ? FolderResult() : std::string();
    SaveRegistry();
    return HoldsLetterOrDigit(m_place.file) ? m_place.Path() : std::string();
}

std::string FileSelector::FolderResult() const {
    std::string folder = m_place.server;
    if (!m_place.library.empty())
        folder = LibraryFolder(m_place);
    else if (!m_place.signType.empty())
        folder = SignTypeFolder(m_place.server, m_place.signType);
    else
        return folder;
    folder.pop_back();
    return folder;
}

SelectorEnd FileSelector::AfterAnswer(OkStep asked, Prompt& prompt) {
    const char* const text = asked == OkStep::AskReplace ? kFileExists : kFileNotFound;
    const MessageAnswer answer =
        prompt.Ask({m_result + text, {}, MessageButtons::YesNoCancel, MessageIcon::Question});
    const OkEnd end = DecideAnswer(asked, answer);
    if (end == OkEnd::Stay)
        return SelectorEnd::Stay;
    if (end == OkEnd::CancelAndEnd || end == OkEnd::CancelAndTake)
        Cancel();
    if (end == OkEnd::TakeAndEnd || end == OkEnd::CancelAndTake)
        m_selectedFiles.push_back(m_result);
    return SelectorEnd::Ok;
}

void FileSelector::TakeSelectedRows() {
    m_selectedFiles.push_back(m_result);
    for (const std::string& name : SelectedNames()) {
        const std::string path = LibraryFolder(m_place) + name;
        if (!IsSameWithoutCase(path, m_result))
            m_selectedFiles.push_back(path);
    }
}

SelectorEnd FileSelector::DoubleClick(Prompt& prompt) {
    return DoubleClickIsOk(m_mode) ? PressOk(prompt) : SelectorEnd::Stay;
}

tag_K4_FILE_TYPE FileSelector::SearchType() const {
    const bool isByIndex =
        m_requestedType == K4_FILE_TYPE_SEQUENCE_PALETTE || m_requestedType == K4_FILE_TYPE_ALL;
    return isByIndex ? static_cast<tag_K4_FILE_TYPE>(m_fileTypeIndex) : m_requestedType;
}

SelectorEnd FileSelector::AfterSearch(const FoundFile* found, Prompt& prompt) {
    if (!found) {
        ShowFilesList();
        return SelectorEnd::Stay;
    }
    if (m_requestedType != found->type && m_requestedType != K4_FILE_TYPE_SEQUENCE_PALETTE &&
        m_requestedType != K4_FILE_TYPE_ALL) {
        prompt.Ask(PlainMessage("Invalid file type.\n"));
        return SelectorEnd::Stay;
    }
    // The field gives the file to OK, also where the list doesn't show it: a name of before, and a
    // row of it, mustn't take its place.
    m_view->ShowFileName({});
    FillTreeListCtrls(found->server, found->signType, found->library, found->file);
    m_view->ShowFileName(found->file);
    return PressOk(prompt);
}

}  // namespace k4cmn

#include "k4cmndlg/filesel/FileMenu.h"

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileTypes.h"

namespace k4cmn {

namespace {

bool CanPaste(const FileLocation& place, const FileClipboard& clipboard) {
    if (place.server.empty())
        return false;
    const bool isSameSignType =
        place.signType.empty() || IsSameWithoutCase(place.signType, clipboard.signType);
    if (clipboard.HasFiles())
        return isSameSignType;
    if (clipboard.server.empty() || clipboard.signType.empty() || !isSameSignType)
        return false;
    return place.library.empty() ||
           (!clipboard.library.empty() && IsSameWithoutCase(place.library, clipboard.library));
}

bool CanCopy(const FileLocation& place, bool isRowSelected) {
    if (place.server.empty())
        return false;
    if (!place.signType.empty() && place.signType != kNoSignType)
        return true;
    return LiesAtServerRoot(place.fileExtension) && isRowSelected;
}

}  // namespace

FileMenuState::FileMenuState(const FileMenuSituation& situation) {
    const FileLocation& place = situation.place;
    const bool isRow = situation.isRowSelected;
    const bool isSequence = isRow && IsSameWithoutCase(place.fileExtension, "SQ4");
    const bool canCopy = CanCopy(place, isRow);
    const bool hasSignTypes = place.signType != kNoSignType;

    Enable(FileCommand::Preview, isSequence && situation.hasPreviewEntry);
    Enable(FileCommand::Cut, canCopy);
    Enable(FileCommand::Copy, canCopy);
    Enable(FileCommand::Paste, CanPaste(place, situation.clipboard));
    Enable(FileCommand::Rename, isRow);
    Enable(FileCommand::Delete, isRow);
    Enable(FileCommand::CreateLibrary, hasSignTypes);
    Enable(FileCommand::RemoveLibrary, hasSignTypes);
    Enable(FileCommand::CreateSignFolder, true);
    Enable(FileCommand::Print, hasSignTypes);
    Enable(FileCommand::PrintFileList, hasSignTypes);
    Enable(FileCommand::Properties, isSequence);
}

}  // namespace k4cmn

#include "k4cmndlg/filesel/FileSelParts.h"

#include "ui_FileSelection.h"

namespace k4cmn {

namespace {

std::unique_ptr<Ui::FileSelectionDialog> SetUp(CDialog& dialog) {
    auto ui = std::make_unique<Ui::FileSelectionDialog>();
    ui->setupUi(&dialog);
    return ui;
}

}  // namespace

FileSelParts::FileSelParts(CDialog& dialog, const char* path)
    : ui(SetUp(dialog)), view(dialog, *ui), prompt(dialog), selector(path), properties(dialog) {
    selector.SetView(view);
}

FileSelParts::~FileSelParts() = default;

}  // namespace k4cmn

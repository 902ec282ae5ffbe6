#include "k4cmndlg/filesel/properties/PropertiesLink.h"

#include "k4cmndlg/filestore/Characters.h"

namespace k4cmn {

namespace {

constexpr char kTitle[] = "Properties";

}  // namespace

PropertiesLink::~PropertiesLink() {
    delete m_sheet.data();
}

void PropertiesLink::Open(const std::string& path) {
    if (m_isShowing || !m_window || path.empty())
        return;
    if (Shows(path)) {
        m_sheet->raise();
        m_sheet->activateWindow();
        return;
    }
    if (!m_sheet)
        m_sheet = new CK4CmnDlgFileProp(kTitle, m_window, CK4CmnPSProperties::GENERAL_PAGE,
                                        CK4CmnPSProperties::MODELESS);
    Show(path);
}

void PropertiesLink::Follow(const std::string& path) {
    if (!m_isShowing && m_sheet && !path.empty())
        Show(path);
}

void PropertiesLink::MoveTo(const std::string& path) {
    if (!Shows(path))
        Follow(path);
}

bool PropertiesLink::Shows(const std::string& path) const {
    return m_sheet && IsSameWithoutCase(m_sheet->GetCurFilePath(), path);
}

void PropertiesLink::Show(const std::string& path) {
    // A message of the sheet lets other messages through, which may lead to here again.
    m_isShowing = true;
    m_sheet->ShowFileProperties(path);
    m_isShowing = false;
    // Closed, or never opened, for want of a file that can be read.
    if (m_sheet && !m_sheet->HasWindow())
        delete m_sheet.data();
}

void PropertiesLink::Forget(std::uintptr_t sheet) {
    if (!m_sheet || reinterpret_cast<std::uintptr_t>(m_sheet.data()) != sheet)
        return;
    m_sheet->deleteLater();
    m_sheet.clear();
}

void PropertiesLink::Close() {
    const QPointer<CK4CmnDlgFileProp> sheet = m_sheet;
    if (sheet)
        sheet->ReadActivePage();
    if (sheet)
        sheet->CloseProperties(1);
    delete sheet.data();
}

}  // namespace k4cmn

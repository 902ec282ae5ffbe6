#include "k4cmndlg/filesel/CK4CmnDlgFileSel.h"

#include <QPointer>
#include <QScreen>
#include <array>
#include <utility>

#include "k4cmndlg/filesel/FileSelParts.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/search/CK4CmnDlgFind.h"
#include "ui_FileSelection.h"

using k4cmn::FileImages;
using k4cmn::FileSelParts;
using k4cmn::SelectorEnd;

namespace {

constexpr std::uint32_t kTemplate = 110;
constexpr std::uintptr_t kFileOptions = 1009;

/// What a frame needs beside the window on the smallest screen.
constexpr QSize kAroundWindow{16, 48};

struct ToolImage {
    QToolButton* Ui::FileSelectionDialog::*button;
    const char* name;
};
constexpr std::array<ToolImage, 5> kToolImages{{
    {&Ui::FileSelectionDialog::up, "up"},
    {&Ui::FileSelectionDialog::listView, "list"},
    {&Ui::FileSelectionDialog::detailsView, "details"},
    {&Ui::FileSelectionDialog::signFilter, "sign-filter"},
    {&Ui::FileSelectionDialog::properties, "properties"},
}};

}  // namespace

// Construction -------------------------------------------------------------------------------

CK4CmnDlgFileSel::CK4CmnDlgFileSel(unsigned long, const char* path, QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent), m_parts(std::make_shared<FileSelParts>(*this, path)) {
    SetUpControls();
    SetUpTreeAndList();
    SetUpKeys();
    m_parts->view.fileTaken = [this] {
        const std::shared_ptr<FileSelParts> parts = m_parts;
        if (const auto shown = parts->selector.PropertiesPath())
            parts->properties.Follow(*shown);
    };
    resize(sizeHint().boundedTo(screen()->availableSize() - kAroundWindow));
}

CK4CmnDlgFileSel::~CK4CmnDlgFileSel() {
    m_parts->ui->panes->EndDrag();
    m_parts->view.WindowGone();
    m_parts->ui->tree->SetTree(nullptr);
    m_parts->ui->list->SetRows(nullptr);
}

void CK4CmnDlgFileSel::SetUpControls() {
    const Ui::FileSelectionDialog& ui = *m_parts->ui;
    for (const ToolImage& image : kToolImages) {
        (ui.*image.button)->setIcon(FileImages::OfTool(image.name));
        (ui.*image.button)->setIconSize(FileImages::SizeBeside(fontMetrics()));
    }
    connect(ui.fileTypes, &QComboBox::currentIndexChanged, this,
            [this] { m_parts->selector.FileTypeChanged(); });
    connect(ui.lastModified, &QComboBox::currentIndexChanged, this,
            [this] { m_parts->selector.ShowFilesList(); });
    connect(ui.up, &QToolButton::clicked, this, &CK4CmnDlgFileSel::OnUpDir);
    connect(ui.detailsView, &QToolButton::toggled, this, &CK4CmnDlgFileSel::OnViewChosen);
    OnViewChosen(true);
    connect(ui.signFilter, &QToolButton::clicked, this, &CK4CmnDlgFileSel::OnFileselRadioSign);
    connect(ui.properties, &QToolButton::clicked, this, &CK4CmnDlgFileSel::OnFileselRadioPreview);
    connect(ui.search, &QPushButton::clicked, this, &CK4CmnDlgFileSel::OnFileselSearch);
}

void CK4CmnDlgFileSel::SetUpTreeAndList() {
    const Ui::FileSelectionDialog& ui = *m_parts->ui;
    k4cmn::FileSelector& selector = m_parts->selector;
    ui.tree->SetTree(&selector.Tree());
    ui.list->SetRows(&selector.Rows());
    ui.panes->SetPanes(ui.tree, ui.list);

    connect(ui.tree, &k4cmn::FileTreeWidget::FocusTaken, this,
            [this] { m_parts->selector.ShowFilesList(); });
    connect(ui.list, &k4cmn::FileListWidget::SelectionChanged, this,
            [this] { m_parts->selector.ListChanged(); });
    connect(ui.list, &k4cmn::FileListWidget::HeadingClicked, this, &CK4CmnDlgFileSel::OnSortColumn);
    // This and a new label may show messages, and so come when the list is done with what led
    // there.
    connect(
        ui.list, &k4cmn::FileListWidget::RowDoubleClicked, this, [this] { OnDoubleClick(); },
        Qt::QueuedConnection);
    connect(ui.list, &k4cmn::FileListWidget::LabelEdited, this, &CK4CmnDlgFileSel::OnRenamed);
    connect(ui.panes, &k4cmn::FilePanes::EdgeMoved, this,
            [this](std::uint32_t edge) { m_parts->selector.SetTreeRightEdge(edge); });
    connect(ui.panes, &k4cmn::FilePanes::BandLeft, this,
            [this] { m_parts->selector.SaveTreeRightEdge(); });
}

// Before opening -----------------------------------------------------------------------------

void CK4CmnDlgFileSel::SetMode(tag_K4_FILE_MODE mode) {
    m_parts->selector.SetMode(mode);
}

void CK4CmnDlgFileSel::SetType(tag_K4_FILE_TYPE type) {
    m_parts->selector.SetType(type);
}

void CK4CmnDlgFileSel::SetPath(const std::string& path) {
    m_parts->selector.SetPath(path);
}

void CK4CmnDlgFileSel::SetShowSignDirOnly(int only) {
    m_parts->selector.SetShowSignDirOnly(only);
}

int CK4CmnDlgFileSel::SetSignParams(std::uint32_t rows, std::uint32_t cols, tag_K4_SIGN_COLOR color,
                                    tag_K4_PIXEL_TECH pixel, int palette) {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    return parts->selector.SetSignParams(rows, cols, color, pixel, palette, parts->prompt);
}

void CK4CmnDlgFileSel::SetDialogMode(int) {}

void CK4CmnDlgFileSel::DeletePreviewMenuItem() {
    m_parts->selector.DeletePreviewMenuItem();
}

// Opening and ending -------------------------------------------------------------------------

std::string CK4CmnDlgFileSel::DoFileSelection() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    return DoModal() == IDOK ? parts->selector.Result() : std::string();
}

std::vector<std::string> CK4CmnDlgFileSel::GetSelectedFiles() const {
    return m_parts->selector.SelectedFiles();
}

int CK4CmnDlgFileSel::OnCreate() {
    // A dialog that runs once more begins as its template says.
    setWindowTitle(QStringLiteral("Select File"));
    m_parts->view.ShowTemplate();
    return CK4CmnDlgBase::OnCreate();
}

int CK4CmnDlgFileSel::OnInitDialog() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    CK4CmnDlgBase::OnInitDialog();
    parts->selector.Open(parts->prompt);
    if (!self)
        return 1;
    const Ui::FileSelectionDialog& ui = *parts->ui;
    const FileImages images(parts->selector.Extensions());
    ui.tree->SetImages(images);
    ui.list->SetImages(images);
    ui.panes->AdjustListToTree(parts->selector.TreeRightEdge());

    const tag_K4_FILE_MODE mode = parts->selector.Mode();
    if (mode == K4_FILE_NEW || mode == K4_FILE_SAVE_AS) {
        ui.fileName->setFocus();
        ui.fileName->selectAll();
        return 0;
    }
    if (parts->view.SelectedRows().empty())
        ui.tree->setFocus();
    else
        ui.list->setFocus();
    return 1;
}

void CK4CmnDlgFileSel::OnDestroy() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    parts->ui->panes->EndDrag();
    parts->properties.Close();
    if (self)
        CK4CmnDlgBase::OnDestroy();
}

void CK4CmnDlgFileSel::DoDataExchange(CDataExchange* pDX) {
    CK4CmnDlgBase::DoDataExchange(pDX);
    m_parts->view.Exchange(pDX);
}

void CK4CmnDlgFileSel::OnOK() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    const SelectorEnd end = parts->selector.PressOk(parts->prompt);
    if (self)
        End(end);
}

void CK4CmnDlgFileSel::OnDoubleClick() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    const SelectorEnd end = parts->selector.DoubleClick(parts->prompt);
    if (self)
        End(end);
}

void CK4CmnDlgFileSel::End(SelectorEnd end) {
    // What has ended while a question stood stays as it ended.
    if (end == SelectorEnd::Ok && isVisible())
        EndDialog(IDOK);
}

void CK4CmnDlgFileSel::OnCancel() {
    m_parts->selector.Cancel();
    CK4CmnDlgBase::OnCancel();
}

// While it is open ---------------------------------------------------------------------------

int CK4CmnDlgFileSel::ShowFilesList() {
    return m_parts->selector.ShowFilesList();
}

int CK4CmnDlgFileSel::GetListFile() {
    return m_parts->selector.GetListFile();
}

void CK4CmnDlgFileSel::OnViewChosen(bool details) {
    const Ui::FileSelectionDialog& ui = *m_parts->ui;
    ui.list->ShowDetails(details);
    // The two buttons are one stop of the Tab key, at the one that is on.
    ui.detailsView->setFocusPolicy(details ? Qt::TabFocus : Qt::NoFocus);
    ui.listView->setFocusPolicy(details ? Qt::NoFocus : Qt::TabFocus);
}

void CK4CmnDlgFileSel::OnUpDir() {
    m_parts->selector.UpOneLevel();
    if (const k4cmn::FileTreeItem* marked = m_parts->selector.Tree().Marked())
        m_parts->ui->tree->ShowItem(*marked);
}

void CK4CmnDlgFileSel::OnRenamed(std::size_t row, const QString& text) {
    // The row whose label was edited is the file, whatever is selected, shown or typed until then.
    FileLocation file = m_parts->selector.Place();
    file.file = m_parts->selector.Rows().Rows().at(row).name;
    const auto rename = [this, file = std::move(file), to = k4cmn::FromQt(text)] {
        const std::shared_ptr<FileSelParts> parts = m_parts;
        parts->selector.Renamed(file, to, parts->prompt);
    };
    QMetaObject::invokeMethod(this, rename, Qt::QueuedConnection);
}

void CK4CmnDlgFileSel::OnFileselRadioSign() {
    m_parts->selector.ToggleSignFilter();
}

void CK4CmnDlgFileSel::OnFileselSearch() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    // Not on the stack: a window that goes takes its dialogs along.
    const QPointer<CK4CmnDlgFind> search = new CK4CmnDlgFind("Find Files", this);
    search->SetSearchPath(k4cmn::FromQt(parts->ui->path->text()));
    search->SetFileType(parts->selector.SearchType());
    const bool isFound = search->DoModal() == IDOK && search;
    k4cmn::FoundFile found;
    if (isFound)
        found = {search->GetServer(), search->GetSignType(), search->GetLibrary(),
                 search->GetFileSel(), static_cast<tag_K4_FILE_TYPE>(search->GetFileType())};
    delete search.data();
    // A window that has ended meanwhile takes nothing any more.
    if (!self || !isVisible())
        return;
    const SelectorEnd end = parts->selector.AfterSearch(isFound ? &found : nullptr, parts->prompt);
    if (self)
        End(end);
}

void CK4CmnDlgFileSel::OnSortColumn(int column) {
    m_parts->selector.ClickColumn(column);
}

void CK4CmnDlgFileSel::PropertiesButtonPressed() {
    OnFileselRadioPreview();
}

void CK4CmnDlgFileSel::OnFileselRadioPreview() {
    const std::shared_ptr<FileSelParts> parts = m_parts;
    const QPointer<CK4CmnDlgFileSel> self(this);
    const auto path = parts->selector.PropertiesPath();
    if (path)
        parts->properties.Open(*path);
    if (self)
        parts->ui->properties->setChecked(false);
}

std::intptr_t CK4CmnDlgFileSel::OnWindowMessage(std::uint32_t message, std::uintptr_t wParam,
                                                std::intptr_t lParam) {
    switch (message) {
        case k4cmn::WM_SHOW_FILES_LIST:
            return HasWindow() ? ShowFilesList() : 0;
        case k4cmn::WM_GET_LIST_FILE:
            return HasWindow() ? GetListFile() : 0;
        case k4cmn::WM_PROPERTIES_GONE:
            m_parts->properties.Forget(wParam);
            return 0;
        case k4cmn::WM_COMMAND:
            if (wParam == kFileOptions && HasWindow())
                OnFileOptions();
            return 0;
        default:
            return CK4CmnDlgBase::OnWindowMessage(message, wParam, lParam);
    }
}

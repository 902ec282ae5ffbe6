#include "k4cmndlg/signctl/CK4CmnDlgCreateSignFolders.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/signctl/SizeField.h"
#include "k4cmndlg/signctl/SizeRules.h"
#include "ui_CreateSignFolders.h"

using k4cmn::SignFolderForm;
using k4cmn::TickedServer;
using k4cmn::ToQt;
using k4cmn::WindowPrompt;

namespace {

constexpr std::uint32_t kTemplate = 145;

/// The number in a field, 0 in an empty one, pinned to 32 bits.
std::uint32_t NumberIn(const QLineEdit* field) {
    return k4cmn::ParseUnsigned(k4cmn::FromQt(field->text())).value_or(0);
}

void Write(QLineEdit* field, std::uint32_t number) {
    const QString text = QString::number(number);
    if (field->text() != text)
        field->setText(text);
}

}  // namespace

CK4CmnDlgCreateSignFolders::CK4CmnDlgCreateSignFolders(QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent), m_ui(std::make_unique<Ui::CreateSignFoldersDialog>()) {
    m_ui->setupUi(this);
    for (int color = 0; color < k4cmn::kSignColorCount; ++color)
        m_ui->color->addItem(ToQt(k4cmn::ColorLongName(static_cast<tag_K4_SIGN_COLOR>(color))));
    for (int pixel = 1; pixel <= k4cmn::kPixelTechCount; ++pixel)
        m_ui->pixel->addItem(ToQt(k4cmn::PixelLongName(static_cast<tag_K4_PIXEL_TECH>(pixel))));
    // Wide enough for any sign type, since the folder changes while the dialog stands.
    m_ui->folder->ensurePolished();
    m_ui->folder->setMinimumWidth(m_ui->folder->fontMetrics().horizontalAdvance(
        QStringLiteral("Folder: 2048x16384.Quad256.Incand.Palette.Sign ")));
    SetUpSpin(m_ui->rowSpin, m_ui->rows);
    SetUpSpin(m_ui->columnSpin, m_ui->columns);
    connect(m_ui->color, &QComboBox::activated, this,
            &CK4CmnDlgCreateSignFolders::OnSelchangeFolderColorTech);
    connect(m_ui->pixel, &QComboBox::activated, this,
            &CK4CmnDlgCreateSignFolders::OnSelchangeFolderPixelTech);
    connect(m_ui->palette, &QCheckBox::clicked, this, &CK4CmnDlgCreateSignFolders::OnPalette);
}

CK4CmnDlgCreateSignFolders::~CK4CmnDlgCreateSignFolders() = default;

int CK4CmnDlgCreateSignFolders::Initialize(std::uint32_t rows, std::uint32_t columns,
                                           tag_K4_SIGN_COLOR color, tag_K4_PIXEL_TECH pixel,
                                           int fixed) {
    return m_form.Initialize(rows, columns, color, pixel, fixed);
}

void CK4CmnDlgCreateSignFolders::SetUpSpin(CSpinButtonCtrl* spin, QLineEdit* field) {
    k4cmn::SetUpSizeField(field, spin, k4cmn::NextMultipleWord);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textChanged, this, &CK4CmnDlgCreateSignFolders::ShowCurrentFolder);
}

int CK4CmnDlgCreateSignFolders::OnInitDialog() {
    m_isReady = false;
    m_form.InitializeOnce();
    CK4CmnDlgBase::OnInitDialog();
    FillServers();
    m_ui->rowSpin->SetRange(k4cmn::kMinSignRows, k4cmn::kMaxSignRows);
    m_ui->rowSpin->SetAccel({k4cmn::kSignRowSpeeds.begin(), k4cmn::kSignRowSpeeds.end()});
    m_ui->columnSpin->SetRange(k4cmn::kMinSignColumns, k4cmn::kMaxSignColumns);
    m_ui->columnSpin->SetAccel({k4cmn::kSignColumnSpeeds.begin(), k4cmn::kSignColumnSpeeds.end()});
    EnableControls();
    UpdateData(false);
    m_isReady = true;
    ShowCurrentFolder();
    return 1;
}

void CK4CmnDlgCreateSignFolders::FillServers() {
    m_ui->servers->clear();
    m_servers = k4cmn::LocalServers();
    for (const TickedServer& row : m_servers) {
        auto* item = new QListWidgetItem(ToQt(row.server), m_ui->servers);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(row.isTicked ? Qt::Checked : Qt::Unchecked);
    }
    m_ui->servers->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

std::vector<TickedServer> CK4CmnDlgCreateSignFolders::Servers() const {
    std::vector<TickedServer> servers = m_servers;
    for (std::size_t row = 0; row < servers.size(); ++row)
        servers[row].isTicked =
            m_ui->servers->item(static_cast<int>(row))->checkState() == Qt::Checked;
    return servers;
}

void CK4CmnDlgCreateSignFolders::EnableControls() {
    for (QWidget* size :
         {static_cast<QWidget*>(m_ui->rows), static_cast<QWidget*>(m_ui->rowSpin),
          static_cast<QWidget*>(m_ui->columns), static_cast<QWidget*>(m_ui->columnSpin)})
        size->setEnabled(m_form.AreSizesEnabled());
    m_ui->color->setEnabled(m_form.AreTechnologiesEnabled());
    m_ui->pixel->setEnabled(m_form.AreTechnologiesEnabled());
}

void CK4CmnDlgCreateSignFolders::DoDataExchange(CDataExchange* pDX) {
    CK4CmnDlgBase::DoDataExchange(pDX);
    if (!k4cmn::ExchangeSignSize(pDX, m_ui->rows, m_form.rows, m_ui->columns, m_form.columns))
        return;
    if (pDX->Saving()) {
        CheckSize(pDX);
    } else {
        m_ui->color->setCurrentIndex(m_form.colorIndex);
        m_ui->pixel->setCurrentIndex(m_form.pixelIndex);
        m_ui->palette->setChecked(m_form.IsPalette());
    }
}

void CK4CmnDlgCreateSignFolders::CheckSize(CDataExchange* pDX) {
    const auto problem = m_form.SizeProblem();
    if (!problem)
        return;
    // Where rows and product are right, it is the columns.
    const bool isInColumns = k4cmn::IsPixelCountLegal(m_form.rows, m_form.columns) &&
                             k4cmn::IsRowsMultipleLegal(m_form.rows);
    pDX->PrepareControl(isInColumns ? m_ui->columns : m_ui->rows);
    pDX->Fail(*problem);
}

void CK4CmnDlgCreateSignFolders::ReadControls() {
    m_form.rows = NumberIn(m_ui->rows);
    m_form.columns = NumberIn(m_ui->columns);
    m_form.colorIndex = m_ui->color->currentIndex();
    m_form.pixelIndex = m_ui->pixel->currentIndex();
}

void CK4CmnDlgCreateSignFolders::ShowCurrentFolder() {
    if (!m_isReady)
        return;
    ReadControls();
    m_ui->folder->setText(ToQt(m_form.FolderText()));
}

// Handlers -----------------------------------------------------------------------------------

void CK4CmnDlgCreateSignFolders::OnSelchangeFolderColorTech() {
    ReadControls();
    m_form.ColorChanged();
    m_ui->pixel->setCurrentIndex(m_form.pixelIndex);
    ShowCurrentFolder();
}

void CK4CmnDlgCreateSignFolders::OnSelchangeFolderPixelTech() {
    ReadControls();
    WindowPrompt prompt(this);
    m_form.PixelChanged(prompt);
    m_ui->pixel->setCurrentIndex(m_form.pixelIndex);
    ShowCurrentFolder();
}

bool CK4CmnDlgCreateSignFolders::eventFilter(QObject* watched, QEvent* event) {
    // The menu of a field takes the focus only for as long as it is open.
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        if (watched == m_ui->rows)
            OnKillfocusRows();
        else if (watched == m_ui->columns)
            OnKillfocusColumns();
    }
    return CK4CmnDlgBase::eventFilter(watched, event);
}

void CK4CmnDlgCreateSignFolders::OnKillfocusRows() {
    Write(m_ui->rows, SignFolderForm::RowsWhenLeft(NumberIn(m_ui->rows)));
    ShowCurrentFolder();
}

void CK4CmnDlgCreateSignFolders::OnKillfocusColumns() {
    Write(m_ui->columns, SignFolderForm::ColumnsWhenLeft(NumberIn(m_ui->columns)));
    ShowCurrentFolder();
}

void CK4CmnDlgCreateSignFolders::OnPalette() {
    m_form.TogglePalette();
    EnableControls();
    ShowCurrentFolder();
}

void CK4CmnDlgCreateSignFolders::OnOK() {
    if (!UpdateData(true))
        return;
    // What was ticked is made to its end, also if the window goes while a message stands.
    const QPointer<CK4CmnDlgCreateSignFolders> self(this);
    const SignFolderForm form = m_form;
    WindowPrompt prompt(this);
    if (MakeSignFolders(form, Servers(), prompt) && self)
        EndDialog(IDOK);
}

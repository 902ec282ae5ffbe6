#include "suite/ui/FileOperationDialogs.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QThread>
#include <limits>

#include "k4cmndlg/frame/Text.h"

namespace k4suite {

namespace {

constexpr int kSteps = 1000;
constexpr int kProgressWidth = 420;
constexpr qsizetype kLongWord = 40;

struct AnswerRow {
    QMessageBox::StandardButton button;
    FileAnswer answer;
    bool forSeveral;
};

constexpr AnswerRow kAnswers[] = {
    {QMessageBox::Yes, FileAnswer::Yes, false},
    {QMessageBox::YesToAll, FileAnswer::YesToAll, true},
    {QMessageBox::No, FileAnswer::No, false},
    {QMessageBox::NoToAll, FileAnswer::NoToAll, true},
    {QMessageBox::Cancel, FileAnswer::Cancel, false},
};

template <class Action>
void OnWindowThread(Action action) {
    if (QThread::currentThread() == qApp->thread())
        action();
    else
        QMetaObject::invokeMethod(qApp, action, Qt::BlockingQueuedConnection);
}

/// Lets a label break words that would make it wider than a screen, such as long file names.
QString Breakable(const QString& text) {
    QString breakable;
    qsizetype length = 0;
    for (const QChar letter : text) {
        length = letter.isSpace() ? 0 : length + 1;
        if (length > kLongWord && !letter.isLowSurrogate()) {
            breakable += QChar(0x200B);  // a place to break that shows nothing
            length = 1;
        }
        breakable += letter;
    }
    return breakable;
}

}  // namespace

FileOperationDialogs::FileOperationDialogs(std::chrono::milliseconds showAfter)
    : m_showAfter(showAfter) {}

FileOperationDialogs::~FileOperationDialogs() {
    delete m_progress;
}

FileAnswer FileOperationDialogs::Confirm(const FileQuestion& question) {
    FileAnswer answer = FileAnswer::Cancel;
    OnWindowThread([&] { answer = Ask(question); });
    return answer;
}

void FileOperationDialogs::Begin(const std::string& title) {
    OnWindowThread([&] { OpenProgress(title); });
}

bool FileOperationDialogs::Progress(std::uint64_t done, std::uint64_t total,
                                    const std::string& name) {
    bool isWanted = false;
    OnWindowThread([&] { isWanted = ShowProgress(done, total, name); });
    return isWanted;
}

void FileOperationDialogs::End() {
    OnWindowThread([this] { delete m_progress; });
}

FileAnswer FileOperationDialogs::Ask(const FileQuestion& question) {
    const bool isProgressShown = m_progress && m_progress->isVisible();
    const QPointer<QMessageBox> box(
        new QMessageBox(isProgressShown ? m_progress.data() : QApplication::activeWindow()));
    box->setIcon(question.final ? QMessageBox::Warning : QMessageBox::Question);
    box->setWindowTitle(k4cmn::ToQt(question.title));
    box->setTextFormat(Qt::PlainText);
    box->setText(Breakable(k4cmn::ToQt(question.text)));
    for (const AnswerRow& row : kAnswers)
        if (question.several || !row.forSeveral)
            box->addButton(row.button);
    box->setDefaultButton(question.final ? QMessageBox::No : QMessageBox::Yes);
    box->setEscapeButton(QMessageBox::Cancel);
    box->setWindowModality(Qt::ApplicationModal);

    const int clicked = box->exec();
    const bool isAnswered = !box.isNull();
    delete box;
    for (const AnswerRow& row : kAnswers)
        if (isAnswered && row.button == clicked)
            return row.answer;
    return FileAnswer::Cancel;
}

void FileOperationDialogs::OpenProgress(const std::string& title) {
    delete m_progress;
    m_sinceBegin.start();
    m_progress = new QProgressDialog(QApplication::activeWindow());
    m_progress->setWindowTitle(k4cmn::ToQt(title));
    m_progress->setWindowModality(Qt::ApplicationModal);
    m_progress->setMinimumDuration(std::numeric_limits<int>::max());  // shown by ShowProgress()
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    m_progress->setRange(0, kSteps);
    // The dialog's own Escape key works through a shortcut, which a window without the focus lacks.
    QObject::connect(m_progress, &QDialog::rejected, m_progress, &QProgressDialog::cancel);
    m_label = new QLabel(m_progress);
    m_label->setTextFormat(Qt::PlainText);
    m_progress->setLabel(m_label);
    m_progress->setMinimumWidth(kProgressWidth);
}

bool FileOperationDialogs::ShowProgress(std::uint64_t done, std::uint64_t total,
                                        const std::string& name) {
    if (!m_progress)  // gone with the window that it belonged to
        return false;
    const double share = total == 0 ? 0.0 : static_cast<double>(done) / static_cast<double>(total);
    m_label->setText(
        m_label->fontMetrics().elidedText(k4cmn::ToQt(name), Qt::ElideMiddle, kProgressWidth - 40));
    m_progress->setValue(static_cast<int>(share * kSteps));
    if (!m_progress->isVisible() && m_sinceBegin.elapsed() >= m_showAfter.count())
        m_progress->show();
    // Only while it is shown: before that, nothing keeps a person out of the other windows.
    if (m_progress->isVisible())
        QCoreApplication::processEvents();
    return m_progress && !m_progress->wasCanceled();
}

}  // namespace k4suite

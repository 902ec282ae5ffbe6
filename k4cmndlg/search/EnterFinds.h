#pragma once

#include <QObject>
#include <QPointer>

class CPropertyPage;

namespace k4cmn {

/// Makes the Enter key press the Find button of a page's sheet, wherever in the page the key goes
/// down: the sheet gets kFindCommand as a WM_COMMAND, and then the key does what it does anyway. In
/// a list that has dropped down, the key chooses first and the command comes behind that.
///
/// One press is one command, through however many controls the key goes on to their parents, and
/// however long it is held.
///
/// Made when all controls of the page stand. Ownership: the page's. Threads: the user interface
/// thread.
class EnterFinds final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(EnterFinds)

 public:
    explicit EnterFinds(CPropertyPage& page);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    bool IsTravelling(const QObject* watched, const QEvent* event);

    CPropertyPage& m_page;
    const QEvent* m_last = nullptr;  ///< the press seen last; it may be gone
    QPointer<QObject> m_lastSeenBy;
};

}  // namespace k4cmn

#pragma once

#include <QPoint>
#include <QRect>

class CDialog;

namespace k4cmn {

/// Where a dialog stands, between its profile and its window. One for each dialog, which owns it.
class DialogPlace {
 public:
    /// Puts a dialog that is being created where the profile has it under its present title.
    /// Nothing saved, or nothing readable, or a dialog that is a part of another window: it stays
    /// where it is.
    void Restore(CDialog& dialog);

    /// Stores the place of a dialog that is going under its present title. A place that can't be
    /// told leaves the stored one as it is.
    void Save(const CDialog& dialog) const;

 private:
    QPoint NormalPosition(const CDialog& dialog) const;

    QPoint m_restored;        ///< where the dialog was put, frame included
    QRect m_normalThenKnown;  ///< the toolkit's idea of that, if it opened maximized
};

}  // namespace k4cmn

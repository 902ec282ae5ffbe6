#pragma once

#include <QLineEdit>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A path, cut to what a line has room for: of the folders dots take the middle, and the name at
/// its end stays whole. Of a name that is too long itself dots take the middle of all.
/// @param width of the room, in units of the window.
K4CMNDLG_EXPORT QString ElidedPath(const QString& path, const QFontMetrics& font, int width);

/// A field for a path that can only be read. Without the focus it shows the path as ElidedPath()
/// cuts it; with the focus it is a field as any other, and the name is in view. The tool tip is the
/// whole path.
class K4CMNDLG_EXPORT PathField final : public QLineEdit {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PathField)

 public:
    explicit PathField(QWidget* parent = nullptr);

    void SetPath(const QString& path);
    /// What can be read in it now.
    QString Shown() const;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QRect Room() const;
};

}  // namespace k4cmn

#pragma once

#include <QLabel>

namespace preview {

/// One line of plain text that may be longer than there is room: it then ends in dots, and the
/// whole text is its tip.
class ElidedLabel final : public QLabel {
    Q_OBJECT

 public:
    /// @param name of the object.
    explicit ElidedLabel(const char* name);

    void SetWords(const QString& text);
    QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace preview

#pragma once

#include <QLabel>

namespace preview {

/// One line of plain text that may be longer than there is room: dots then take its end, or of a
/// path what is in the middle, and the whole text is its tip.
class ElidedLabel final : public QLabel {
    Q_OBJECT

 public:
    enum class Kind { Text, Path };

    /// @param name of the object.
    explicit ElidedLabel(const char* name, Kind kind = Kind::Text);

    void SetWords(const QString& text);
    QSize minimumSizeHint() const override;
    /// What can be read in it now.
    QString Shown() const;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QRect Room() const;

    const Kind m_kind;
};

}  // namespace preview

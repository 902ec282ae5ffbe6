#pragma once

#include <QImage>
#include <QWidget>

namespace workbench {

/// The picture of a sign, lamp by lamp: as large as the widget allows, in a whole number of
/// pixels a lamp where there is room for that, on the black face of a sign, with the lamps drawn
/// round where they are large enough to be seen.
class SignView final : public QWidget {
    Q_OBJECT

 public:
    explicit SignView(QWidget* parent = nullptr);

    void SetPicture(const QImage& picture);
    /// Shows words in place of a picture.
    void SetWords(const QString& words);
    const QImage& Picture() const { return m_picture; }
    const QString& Words() const { return m_words; }
    /// Whether neither a picture nor words are shown.
    bool IsEmpty() const { return m_picture.isNull() && m_words.isEmpty(); }

    QSize sizeHint() const override { return {720, 320}; }
    QSize minimumSizeHint() const override { return {240, 120}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void PaintLamps(class QPainter& painter, const QRect& face) const;

    QImage m_picture;
    QString m_words;
};

}  // namespace workbench

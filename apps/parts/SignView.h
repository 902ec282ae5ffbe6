#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace parts {

/// The picture of a sign, lamp by lamp, on the black face of a sign. Where a lamp has room to be
/// seen it is round, and one that is off can be told from the face.
///
/// A lamp is a whole number of the screen's pixels wide, whatever the screen's scale. By default it
/// is as large as the widget allows; a picture with more lamps than the widget has pixels is drawn
/// smaller. With a fixed size of the lamps the widget asks for the room of all of them.
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

    /// The color around the sign.
    static QColor AroundColor();

    /// Fixes the size of the lamps.
    /// @param pixelsOfLamp the edge of a lamp, in units of the window; 0 makes the picture fit.
    void SetZoom(int pixelsOfLamp);
    int Zoom() const { return m_zoom; }
    /// The edge of a lamp as it is drawn now, in units of the window; below 1 where a lamp is
    /// smaller than that. 0 without a picture.
    double LampSize() const;

    /// The place in the picture, in lamps from its upper left, that is drawn at a point.
    QPointF LampAt(const QPointF& point) const;
    /// The point at which a place in the picture is drawn.
    QPointF PointOf(const QPointF& lamp) const;

    /// With fixed lamps, the room of all of them.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {160, 80}; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    /// Where the lamps are, in the screen's pixels.
    struct Face {
        QRect place;
        int pitch = 0;  ///< pixels a lamp; 0: less than one
    };
    Face FaceNow() const;
    int FixedPitch() const;
    void PaintWords(QPainter& painter) const;
    void PaintLamps(QPainter& painter, const Face& face, const QRect& exposed);
    const QImage& Lamps();
    const QPixmap& Mask(int pitch);

    QImage m_picture;
    QImage m_lamps;  ///< the picture as round lamps show it; made when it is first painted
    QPixmap m_mask;  ///< the face with holes where the lamps are
    int m_maskPitch = 0;
    QString m_words;
    int m_zoom = 0;
};

}  // namespace parts

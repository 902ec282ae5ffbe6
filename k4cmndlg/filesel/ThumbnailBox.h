#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>

#include "k4cmndlg/filesel/ThumbnailSize.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// The picture box of a thumbnail: a picture that is stretched to the thumbnail's size, or words on
/// white. Each call replaces what was shown before. Words are in its tool tip too, since a low box
/// has no room for them.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT ThumbnailBox final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ThumbnailBox)

 public:
    /// Makes a box of kThumbnailBox by kThumbnailBox units.
    explicit ThumbnailBox(QWidget* parent = nullptr);

    /// Takes the height of a thumbnail, which stands in the middle of the box; the box stays
    /// kThumbnailBox units wide.
    /// @return by how much the box has grown, in units; less than 0 if it has become smaller.
    int SetBoxedThumbnail(const ThumbnailSize& size);
    /// Takes the size of a thumbnail, with 3 units for a frame around it.
    void SetFramedThumbnail(const ThumbnailSize& size);

    void ShowPicture(const QImage& picture);
    /// Shows words from a place of the box on, which may lie outside of it.
    void ShowWords(const QString& words, const QPoint& place);
    /// Shows why there is no picture, in as many lines as it takes.
    void ShowProblem(const QString& words);
    /// Shows white, and frees the picture.
    void Clear();
    /// Whether there is a picture.
    bool HasPicture() const { return !m_picture.isNull(); }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void Show(const QImage& picture, const QString& words, bool isProblem);
    const QImage& Scaled(const QSize& pixels);
    QRect Inside() const;

    QRect m_place{0, 0, kThumbnailBox, kThumbnailBox};  ///< of the picture
    bool m_isFramed = false;
    QImage m_picture;
    QImage m_scaled;  ///< m_picture as it was drawn last
    QString m_words;
    QPoint m_wordsPlace;
    bool m_isProblem = false;
};

}  // namespace k4cmn

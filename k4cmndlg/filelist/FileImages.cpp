#include "k4cmndlg/filelist/FileImages.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

#include "k4cmndlg/filelist/FilePictures.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileTypes.h"

namespace k4cmn {

namespace {

constexpr double kDisabledOpacity = 0.4;

/// Draws a picture anew in every size that is asked for.
class PictureEngine final : public QIconEngine {
 public:
    explicit PictureEngine(FilePicture picture) : m_picture(picture) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (mode != QIcon::Disabled) {
            Draw(*painter, rect);
            return;
        }
        // In one piece, since what lies over another shape would be less faint.
        const double density = painter->device()->devicePixelRatio();
        QPixmap whole = Pixmap(rect.size() * density);
        whole.setDevicePixelRatio(density);
        painter->save();
        painter->setOpacity(painter->opacity() * kDisabledOpacity);
        painter->drawPixmap(rect.topLeft(), whole);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new PictureEngine(m_picture); }

 private:
    void Draw(QPainter& painter, const QRect& rect) const {
        const int side = std::min(rect.width(), rect.height());
        const double scale = static_cast<double>(side) / kPictureUnits;
        painter.save();
        painter.translate(rect.x() + (rect.width() - side) / 2,
                          rect.y() + (rect.height() - side) / 2);
        painter.scale(scale, scale);
        m_picture.Draw(painter);
        painter.restore();
    }
    QPixmap Pixmap(const QSize& size) { return pixmap(size, QIcon::Normal, QIcon::Off); }

    const FilePicture m_picture;
};

QIcon IconOf(std::string_view name) {
    return QIcon(new PictureEngine(FilePicture(name)));  // the icon owns it
}

}  // namespace

FileImages::FileImages(const std::vector<std::string>& extensions) {
    for (const char* name : {"notice", "server", "sign-type", "library"})
        m_images.push_back(IconOf(name));
    for (const std::string& extension : extensions)
        m_images.push_back(OfExtension(extension));
}

QIcon FileImages::At(int image) const {
    const auto at = static_cast<std::size_t>(image);
    return image >= 0 && at < m_images.size() ? m_images[at] : QIcon();
}

QIcon FileImages::OfExtension(std::string_view extension) {
    const std::vector<std::string> known = ExtensionsOf(K4_FILE_TYPE_ALL);
    const auto found = std::find_if(known.begin(), known.end(), [&](const std::string& candidate) {
        return IsSameWithoutCase(candidate, extension);
    });
    return IconOf(found == known.end() ? std::string_view() : std::string_view(*found));
}

QIcon FileImages::OfTool(std::string_view name) {
    return IconOf(name);
}

QSize FileImages::SizeBeside(const QFontMetrics& font) {
    constexpr int half = kSize / 2;
    const int side = std::max(kSize, (font.height() + half / 2) / half * half);
    return {side, side};
}

}  // namespace k4cmn

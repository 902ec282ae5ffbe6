#include "suite/printing/PdfSurface.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <cerrno>
#include <cstring>
#include <utility>

#include "suite/platform/WholeFile.h"
#include "suite/printing/PaintDocument.h"

namespace k4suite {

namespace {

constexpr int kDotsPerInch = 1200;
constexpr qreal kMargin = 10;  // mm

/// The bytes of a document; empty where it can't be painted.
QByteArray PdfOf(const PrintedDocument& document, const QPageLayout& layout) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter writer(&bytes);
    writer.setResolution(kDotsPerInch);
    writer.setPageLayout(layout);
    writer.setTitle(QString::fromStdString(document.name));
    writer.setCreator(QStringLiteral("K4CMNDLG"));
    return PaintDocument(writer, document) ? bytes.data() : QByteArray();
}

}  // namespace

QPageLayout PdfSurface::DefaultLayout() {
    return QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                       QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
}

PdfSurface::PdfSurface(std::string path, const QPageLayout& layout)
    : m_path(std::move(path)), m_layout(layout) {}

std::string PdfSurface::Print(const PrintedDocument& document) {
    if (m_path.empty() || m_path.find('\0') != std::string::npos)
        return std::strerror(ENOENT);
    const QFileInfo present(QString::fromStdString(m_path));
    // Only a file is replaced: a pipe, say, would be gone.
    if (present.exists() && !present.isFile())
        return std::strerror(present.isDir() ? EISDIR : EINVAL);
    const QByteArray bytes = PdfOf(document, m_layout);
    if (bytes.isEmpty())
        return "The pages can't be painted.";
    QSaveFile file(present.filePath());
    if (WriteWholeFile(file, bytes))
        return {};
    return file.errorString().toStdString();
}

}  // namespace k4suite

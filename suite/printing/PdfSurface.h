#pragma once

#include <QPageLayout>
#include <string>

#include "suite/printing/DocumentSurface.h"

namespace k4suite {

/// A document as a PDF file. The file appears, or takes the place of the one that was there, when
/// the document ends, and only if all of it could be written: until then it is written beside its
/// place. A document that is left unfinished leaves nothing.
/// Needs a QGuiApplication, of any platform ("offscreen" where there is no display). Threads: one.
class PdfSurface final : public DocumentSurface {
 public:
    /// A4, upright, with margins of 10 mm.
    static QPageLayout DefaultLayout();

    /// @param path native.
    explicit PdfSurface(std::string path, const QPageLayout& layout = DefaultLayout());

 private:
    std::string Print(const PrintedDocument& document) override;

    const std::string m_path;
    const QPageLayout m_layout;
};

}  // namespace k4suite

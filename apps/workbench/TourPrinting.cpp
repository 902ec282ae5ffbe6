#include "apps/workbench/TourPrinting.h"

#include <QProcess>
#include <utility>

#include "k4cmndlg/frame/Text.h"
#include "suite/printing/PdfSurface.h"

namespace workbench {

PrintsToFile::PrintsToFile(std::string file) : m_file(std::move(file)), m_use(*this) {}

PrintsToFile::~PrintsToFile() = default;

std::unique_ptr<k4cmn::PrintSurface> PrintsToFile::Choose(QWidget*) {
    return std::make_unique<k4suite::PdfSurface>(m_file);
}

QString TextOfPdf(const std::string& file) {
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"),
                 {QStringLiteral("-layout"), k4cmn::ToQt(file), QStringLiteral("-")});
    reader.waitForFinished(30000);
    return QString::fromUtf8(reader.readAllStandardOutput());
}

}  // namespace workbench

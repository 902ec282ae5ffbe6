#include "apps/k4ctl/sequence/FrameSink.h"

#include <QImageWriter>
#include <QSaveFile>
#include <algorithm>
#include <system_error>

#include "apps/k4ctl/sequence/CommitFile.h"
#include "apps/k4ctl/sequence/PictureColors.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {

bool GifSink::Add(std::uint32_t, std::uint32_t dwell, const QImage& picture) {
    if (!m_writer) {
        m_writer = std::make_unique<GifWriter>(m_path, picture.size());
    }
    return m_writer->Add(WithColorTable(picture), dwell);
}

FolderSink::FolderSink(std::filesystem::path folder, std::uint32_t frameCount)
    : m_folder(std::move(folder)),
      m_digits(std::max(4, static_cast<int>(std::to_string(frameCount).size()))) {}

std::filesystem::path FolderSink::FileOf(std::uint32_t frame) const {
    return m_folder / k4cmn::Format("%0*u.png", m_digits, frame);
}

bool FolderSink::Add(std::uint32_t frame, std::uint32_t, const QImage& picture) {
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    if (error) {
        m_problem = "Cannot make \"" + m_folder.string() + "\": " + error.message() + ".";
        return false;
    }
    QSaveFile file(k4cmn::ToQt(FileOf(frame).string()));
    QImageWriter writer(&file, "png");
    if (file.open(QIODevice::WriteOnly) && writer.write(picture) && CommitFile(file)) {
        return true;
    }
    const QString words =
        file.error() != QFileDevice::NoError ? file.errorString() : writer.errorString();
    m_problem =
        "Cannot write \"" + file.fileName().toStdString() + "\": " + words.toStdString() + ".";
    return false;
}

}  // namespace k4ctl

#include "apps/k4ctl/sequence/PictureReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/platform/Descriptor.h"
#include "suite/sequence/FileBytes.h"

namespace k4ctl {
namespace {

constexpr std::int64_t kBytesOfPixel = 4;

/// Keeps what the toolkit has to say about a file off standard error while it stands: the words
/// for people are ours. Decoders that the toolkit uses write there by themselves.
class QuietToolkit {
 public:
    QuietToolkit()
        : m_formerHandler(
              qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})),
          m_formerError(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)) {
        const k4suite::Descriptor nothing(open("/dev/null", O_WRONLY | O_CLOEXEC));
        if (m_formerError && nothing) {
            std::fflush(stderr);
            dup2(nothing.Get(), STDERR_FILENO);
        }
    }
    ~QuietToolkit() {
        if (m_formerError) {
            std::fflush(stderr);
            dup2(m_formerError.Get(), STDERR_FILENO);
        }
        qInstallMessageHandler(m_formerHandler);
    }
    QuietToolkit(const QuietToolkit&) = delete;
    QuietToolkit& operator=(const QuietToolkit&) = delete;

 private:
    const QtMessageHandler m_formerHandler;
    const k4suite::Descriptor m_formerError;
};

std::int64_t BytesOf(const QSize& size) {
    return std::int64_t{size.width()} * size.height() * kBytesOfPixel;
}

/// A size of the same shape that is small enough, and twice as large as it needs to be, for a
/// smooth picture, where that is possible.
QSize SmallerSize(const QSize& size, const QSize& wanted) {
    const QSize needed = size.scaled(wanted * 2, Qt::KeepAspectRatioByExpanding);
    QSize smaller = needed.boundedTo(size).expandedTo({1, 1});
    while (BytesOf(smaller) > PictureReader::kMostBytes) {
        smaller = (smaller / 2).expandedTo({1, 1});
    }
    return smaller;
}

}  // namespace

PictureReader::PictureReader(const std::string& path, const QSize& wanted)
    : m_path(path), m_wanted(wanted) {}

bool PictureReader::Fail(const std::string& words) {
    m_problem = words;
    return false;
}

bool PictureReader::Open() {
    // Says what the toolkit doesn't: why a file can't be opened, and that a folder is none.
    std::string problem;
    if (!k4suite::FileBytes::Open(m_path, false, problem)) {
        return Fail(problem);
    }
    QImageReader::setAllocationLimit(static_cast<int>(kMostBytes >> 20));
    m_reader.setDecideFormatFromContent(true);
    m_reader.setAutoTransform(true);
    m_reader.setFileName(k4cmn::ToQt(m_path));
    return LimitSize();
}

bool PictureReader::LimitSize() {
    const QSize size = m_reader.size();
    if (!size.isValid() || BytesOf(size) <= kMostBytes) {
        return true;
    }
    if (!m_reader.supportsOption(QImageIOHandler::ScaledSize)) {
        return Fail(k4cmn::Format("\"%s\" has %d x %d pixels, which are too many.", m_path.c_str(),
                                  size.width(), size.height()));
    }
    const bool turned = m_reader.transformation() & QImageIOHandler::TransformationRotate90;
    m_reader.setScaledSize(SmallerSize(size, turned ? m_wanted.transposed() : m_wanted));
    return true;
}

bool PictureReader::Next(QImage& picture) {
    const QuietToolkit quiet;
    if (m_ended || !m_problem.empty() || (m_read == 0 && !Open())) {
        return false;
    }
    if (m_read > 0 && !m_reader.canRead()) {
        m_ended = true;
        return false;
    }
    picture = m_reader.read();
    if (picture.isNull()) {
        return Fail(m_read == 0 ? k4cmn::Format("\"%s\" can't be read: %s.", m_path.c_str(),
                                                k4cmn::FromQt(m_reader.errorString()).c_str())
                                : k4cmn::Format("Picture %u of \"%s\" can't be read: %s.",
                                                m_read + 1, m_path.c_str(),
                                                k4cmn::FromQt(m_reader.errorString()).c_str()));
    }
    ++m_read;
    m_delay = static_cast<std::uint32_t>(std::max(0, m_reader.nextImageDelay()));
    m_ended = !m_reader.supportsAnimation();
    return true;
}

}  // namespace k4ctl

#include "apps/k4ctl/sequence/GifWriter.h"

#include <gif_lib.h>

#include <algorithm>
#include <bit>
#include <vector>

#include "apps/k4ctl/sequence/CommitFile.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

constexpr std::int64_t kMillisecondsOfUnit = 10;
constexpr std::int64_t kLeastUnits = 2;
constexpr std::int64_t kMostUnits = 65535;
constexpr int kBitsOfColor = 8;

int WriteBytes(GifFileType* gif, const GifByteType* bytes, int count) {
    auto* file = static_cast<QSaveFile*>(gif->UserData);
    return static_cast<int>(file->write(reinterpret_cast<const char*>(bytes), count));
}

using ColorMap = std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)>;

/// The format takes tables of 2, 4, 8 … 256 colors.
ColorMap MapOf(const QList<QRgb>& table) {
    const auto count = std::bit_ceil(static_cast<unsigned>(std::max<qsizetype>(2, table.size())));
    ColorMap map(GifMakeMapObject(static_cast<int>(count), nullptr), GifFreeMapObject);
    for (qsizetype index = 0; map && index < table.size(); ++index) {
        map->Colors[index] = {static_cast<GifByteType>(qRed(table[index])),
                              static_cast<GifByteType>(qGreen(table[index])),
                              static_cast<GifByteType>(qBlue(table[index]))};
    }
    return map;
}

}  // namespace

GifWriter::GifWriter(const std::string& path, const QSize& size) : m_file(k4cmn::ToQt(path)) {
    if (!m_file.open(QIODevice::WriteOnly)) {
        Fail(m_file.errorString().toStdString());
        return;
    }
    int error = 0;
    m_gif = EGifOpen(&m_file, WriteBytes, &error);
    if (m_gif) {
        WriteHead(size);
    } else {
        Fail("There is no memory for it");
    }
}

GifWriter::~GifWriter() {
    int ignored = 0;
    if (m_gif) {
        EGifCloseFile(m_gif, &ignored);
    }
}

bool GifWriter::Fail(const std::string& words) {
    if (m_problem.empty()) {
        m_problem = "Cannot write \"" + m_file.fileName().toStdString() + "\": " + words + ".";
    }
    return false;
}

bool GifWriter::Write(int result) {
    if (result == GIF_OK) {
        return true;
    }
    const bool isFileFault = m_file.error() != QFileDevice::NoError;
    const char* words = GifErrorString(m_gif->Error);
    return Fail(isFileFault ? m_file.errorString().toStdString() : words ? words : "unknown");
}

bool GifWriter::WriteHead(const QSize& size) {
    EGifSetGifVersion(m_gif, true);
    const GifByteType loop[] = {1, 0, 0};
    return Write(EGifPutScreenDesc(m_gif, size.width(), size.height(), kBitsOfColor, 0, nullptr)) &&
           Write(EGifPutExtensionLeader(m_gif, APPLICATION_EXT_FUNC_CODE)) &&
           Write(EGifPutExtensionBlock(m_gif, 11, "NETSCAPE2.0")) &&
           Write(EGifPutExtensionBlock(m_gif, sizeof loop, loop)) &&
           Write(EGifPutExtensionTrailer(m_gif));
}

bool GifWriter::WriteTime(std::uint32_t dwell) {
    m_owed += dwell;
    const std::int64_t units = std::clamp((m_owed + kMillisecondsOfUnit / 2) / kMillisecondsOfUnit,
                                          kLeastUnits, kMostUnits);
    // What a picture stands too long or too short isn't made good for ever.
    m_owed = std::clamp<std::int64_t>(m_owed - units * kMillisecondsOfUnit, -1000, 1000);
    GraphicsControlBlock block{};
    block.DisposalMode = DISPOSE_DO_NOT;
    block.DelayTime = static_cast<int>(units);
    block.TransparentColor = NO_TRANSPARENT_COLOR;
    GifByteType bytes[4] = {};
    const auto count = static_cast<int>(EGifGCBToExtension(&block, bytes));
    return Write(EGifPutExtension(m_gif, GRAPHICS_EXT_FUNC_CODE, count, bytes));
}

bool GifWriter::WritePicture(const QImage& picture) {
    const ColorMap map = MapOf(picture.colorTable());
    if (!map) {
        return Fail("There is no memory for it");
    }
    if (!Write(
            EGifPutImageDesc(m_gif, 0, 0, picture.width(), picture.height(), false, map.get()))) {
        return false;
    }
    std::vector<GifPixelType> line(static_cast<std::size_t>(picture.width()));
    for (int row = 0; row < picture.height(); ++row) {
        std::copy_n(picture.constScanLine(row), line.size(), line.begin());
        if (!Write(EGifPutLine(m_gif, line.data(), picture.width()))) {
            return false;
        }
    }
    return true;
}

bool GifWriter::Add(const QImage& picture, std::uint32_t dwell) {
    return m_problem.empty() && WriteTime(dwell) && WritePicture(picture);
}

bool GifWriter::Finish() {
    if (!m_problem.empty()) {
        return false;
    }
    int error = 0;
    GifFileType* gif = m_gif;
    m_gif = nullptr;
    if (EGifCloseFile(gif, &error) != GIF_OK) {
        const char* words = GifErrorString(error);
        return Fail(words ? words : "unknown");
    }
    return CommitFile(m_file) || Fail(m_file.errorString().toStdString());
}

}  // namespace k4ctl

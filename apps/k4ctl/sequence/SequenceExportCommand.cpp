#include "apps/k4ctl/sequence/SequenceExportCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/Names.h"
#include "apps/k4ctl/sequence/FramePicture.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kGifEnding = ".gif";

int ParseScale(const std::string& text, int& scale, std::string& problem) {
    std::int64_t number = 0;
    if (!ParseNumber(text, 1, SequenceExportCommand::kLargestScale, number, problem)) {
        return 0;
    }
    scale = static_cast<int>(number);
    return 1;
}

bool IsThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

}  // namespace

CommandText SequenceExportCommand::Text() const {
    return {"sequence export", "Export the frames of a sequence as pictures",
            "  k4ctl sequence export Goal.SQ4 goal.gif --scale 4\n"
            "  k4ctl sequence export Goal.SQ4 frames/\n"
            "  k4ctl sequence export 'A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\Goal.SQ4' goal.gif\n"
            "  k4ctl sequence export Goal.SQ4 one.gif --frames 12 --force\n"};
}

void SequenceExportCommand::AddArguments(CLI::App& app) {
    app.add_option("FILE", m_file, "The sequence file")->required();
    app.add_option("OUT", m_out,
                   "An animated GIF to make, if the name ends in .gif; else a folder for PNG "
                   "files, numbered as the frames are")
        ->required();
    AddParsed(app, "--scale", "N", ParseScale, m_scale,
              "Make each lamp a square of N pixels, from 4 on with a gap between lamps");
    AddParsed(app, "--frames", "WHICH", ParseFrameRange, m_frames,
              "Frames to export: a number, FIRST-LAST, or all, the usual ones");
    app.add_flag("--force", m_force, "Replace files that are there");
}

bool SequenceExportCommand::IsGif() const {
    return m_out.size() > kGifEnding.size() &&
           SameWord(std::string_view(m_out).substr(m_out.size() - kGifEnding.size()), kGifEnding);
}

std::string SequenceExportCommand::SizeProblem(const tag_K4_SOS_FRM& start) const {
    const std::int64_t height = std::int64_t{start.rows} * m_scale;
    const std::int64_t width = std::int64_t{start.columns} * m_scale;
    if (width * height <= kMostPixels && std::max(width, height) <= GifWriter::kLongestSide) {
        return {};
    }
    return k4cmn::Format("Pictures of %lld x %lld pixels are too large.",
                         static_cast<long long>(width), static_cast<long long>(height));
}

std::string SequenceExportCommand::FileInTheWay(OpenSequence& sequence,
                                                const std::string& out) const {
    if (m_force) {
        return {};
    }
    if (IsGif()) {
        return IsThere(out) ? out : std::string();
    }
    const FolderSink folder(out, sequence.FrameCount());
    k4suite::SequenceDefect ignored;
    const std::uint32_t last = std::min(m_frames.last, sequence.FrameCount());
    for (std::uint32_t frame = m_frames.first; frame <= last; ++frame) {
        const auto place = sequence.Reader().Find(frame, ignored);
        if (place && k4suite::IsGraphicFrame(place->type) && IsThere(folder.FileOf(frame))) {
            return folder.FileOf(frame).string();
        }
    }
    return {};
}

std::unique_ptr<FrameSink> SequenceExportCommand::MakeSink(const OpenSequence& sequence,
                                                           const std::string& out) const {
    if (IsGif()) {
        return std::make_unique<GifSink>(out);
    }
    return std::make_unique<FolderSink>(out, sequence.FrameCount());
}

std::uint32_t SequenceExportCommand::AddFrames(OpenSequence& sequence, FrameSink& sink,
                                               Answer& answer) const {
    k4suite::SequenceReader& reader = sequence.Reader();
    FramePictures pictures(sequence.Head().start);
    std::vector<std::uint8_t> bulbs;
    std::uint32_t count = 0;
    const std::uint32_t last = std::min(m_frames.last, sequence.FrameCount());
    for (std::uint32_t frame = m_frames.first; frame <= last; ++frame) {
        k4suite::SequenceDefect defect;
        const auto place = reader.Find(frame, defect);
        if (!place) {
            answer.Fail(ExitCode::Refused, FrameWords(frame, defect));
            break;
        }
        if (!k4suite::IsGraphicFrame(place->type)) {
            continue;
        }
        tag_K4_GRP_HDR header{};
        bool isRead = reader.ReadHeader(*place, header, defect);
        const auto method = static_cast<tag_K4_BULB_COMPRESS_TYPE>(header.compressionType);
        // Memory is taken for a frame that can be one alone.
        if (isRead && (isRead = reader.CanReadBulbs(*place, method, defect))) {
            bulbs.resize(reader.FrameBytes());
            isRead = reader.ReadBulbs(*place, method, bulbs, defect);
        }
        if (!isRead) {
            answer.Fail(ExitCode::Refused, FrameWords(frame, defect));
            continue;
        }
        const QImage picture = Enlarged(pictures.Of(bulbs), m_scale);
        if (picture.isNull()) {
            answer.Fail(ExitCode::Refused, "There is no memory for the pictures.");
            break;
        }
        if (!sink.Add(frame, header.dwell, picture)) {
            answer.Fail(ExitCode::Refused, sink.Problem());
            break;
        }
        ++count;
    }
    return count;
}

void SequenceExportCommand::Finish(std::uint32_t pictures, FrameSink& sink, Answer& answer) const {
    if (pictures == 0 && answer.code == ExitCode::Done) {
        answer.Fail(ExitCode::Refused, "\"" + m_file + "\" has no graphic frame there.");
    }
    if (pictures == 0 || !sink.Problem().empty()) {
        return;
    }
    if (!sink.Finish()) {
        answer.Fail(ExitCode::Refused, sink.Problem());
        return;
    }
    answer.Say(m_out + ": " + CountText(pictures, "picture"));
    answer.json.insert(QStringLiteral("pictures"), static_cast<qint64>(pictures));
    answer.json.insert(QStringLiteral("done"), answer.code == ExitCode::Done);
}

Answer SequenceExportCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("file"), k4cmn::ToQt(m_file));
    answer.json.insert(QStringLiteral("out"), k4cmn::ToQt(m_out));
    const auto sequence = OpenSequence::Open(m_file, m_places, answer);
    if (!sequence) {
        return answer;
    }
    const std::string out = m_places(m_out);
    std::string problem = out.empty() ? NoPlaceWords(m_out) : SizeProblem(sequence->Head().start);
    if (problem.empty()) {
        if (const std::string file = FileInTheWay(*sequence, out); !file.empty()) {
            problem = "\"" + file + "\" is there already; --force replaces it.";
        }
    }
    if (!problem.empty()) {
        answer.Fail(ExitCode::Refused, problem);
        return answer;
    }
    const std::unique_ptr<FrameSink> sink = MakeSink(*sequence, out);
    Finish(AddFrames(*sequence, *sink, answer), *sink, answer);
    return answer;
}

}  // namespace k4ctl

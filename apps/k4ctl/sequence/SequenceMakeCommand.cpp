#include "apps/k4ctl/sequence/SequenceMakeCommand.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <limits>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/Names.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

constexpr std::string_view kEnding = ".SQ4";

int ParseFit(const std::string& text, Fit& fit, std::string& problem) {
    constexpr std::pair<const char*, Fit> kFits[] = {
        {"scale", Fit::Scale}, {"crop", Fit::Crop}, {"stretch", Fit::Stretch}};
    for (const auto& [name, value] : kFits) {
        if (SameWord(text, name)) {
            fit = value;
            return 1;
        }
    }
    problem = k4cmn::Format("\"%s\" is none of scale, crop and stretch", text.c_str());
    return 0;
}

int ParseThumbnail(const std::string& text, std::uint16_t& frame, std::string& problem) {
    std::int64_t number = 0;
    if (!ParseNumber(text, 1, std::numeric_limits<std::uint16_t>::max(), number, problem)) {
        return 0;
    }
    frame = static_cast<std::uint16_t>(number);
    return 1;
}

/// Keywords in the form in which the dialogs keep them: "goal; home; ".
std::string NormalKeywords(const std::string& text) {
    constexpr const char* kSeparators = "; ,\t\n";
    std::string keywords;
    for (std::size_t at = text.find_first_not_of(kSeparators); at != std::string::npos;) {
        const std::size_t end = std::min(text.find_first_of(kSeparators, at), text.size());
        keywords += text.substr(at, end - at) + "; ";
        at = text.find_first_not_of(kSeparators, end);
    }
    return keywords;
}

int ParseKeywords(const std::string& text, std::string& keywords, std::string& problem) {
    return ParseText(NormalKeywords(text), keywords, problem);
}

int ParseOut(const std::string& text, std::string& out, std::string& problem) {
    if (text.size() <= kEnding.size() ||
        !SameWord(std::string_view(text).substr(text.size() - kEnding.size()), kEnding)) {
        problem = k4cmn::Format("\"%s\" doesn't end in .SQ4", text.c_str());
        return 0;
    }
    out = text;
    return 1;
}

std::string WithoutNewline(std::string message) {
    if (message.ends_with('\n')) {
        message.pop_back();
    }
    return message;
}

}  // namespace

SequenceMakeCommand::SequenceMakeCommand(FilePlaces places) : m_places(std::move(places)) {}

CommandText SequenceMakeCommand::Text() const {
    return {"sequence make", "Make a sequence out of images",
            "  k4ctl sequence make Goal.SQ4 --size 64x192 --color RGB16M --pixel LED goal.gif\n"
            "  k4ctl sequence make Sale.SQ4 --size 16x96 --color mono16 --pixel led sale.png\n"
            "  k4ctl sequence make 'A:\\Show.SQ4' --size 16x96 --color Mono16 --pixel LED "
            "--dwell 40,2000 --keywords \"show opening\" a.png b.png --include Sale.SQ4 c.png\n"};
}

void SequenceMakeCommand::AddArguments(CLI::App& app) {
    AddParsed(app, "OUT", "", ParseOut, m_out, "The sequence file to make, ending in .SQ4")
        ->required();
    CLI::Option* images =
        app.add_option("IMAGE", m_images,
                       "Still images and animated ones (GIF), in the order in which they play")
            ->type_name("");
    AddParsed(app, "--size", "RxC", ParseSignSize, m_size, "Rows and columns of the sign")
        ->required();
    AddParsed(app, "--color", "NAME", ParseColor, m_order.facts.color,
              "Color technology, as RGB16M, or its number")
        ->required();
    AddParsed(app, "--pixel", "NAME", ParsePixel, m_order.facts.pixel,
              "Pixel technology: Incand, Reflect or LED, or its number")
        ->required();
    AddLooks(app);
    app.add_option_function<std::string>(
           "--include",
           [this, images](const std::string& path) {
               if (path.empty()) {
                   throw CLI::ValidationError("--include", "the empty text is no path");
               }
               m_includes.emplace_back(images->count(), path);
           },
           "Another sequence to play at this place: absolute, or from the new one's place; any "
           "number of times")
        ->type_name("PATH")
        ->trigger_on_parse();
    AddTexts(app);
    app.add_flag("--force", m_force, "Replace the file if it is there");
    app.callback([this] {
        if (m_images.empty() && m_includes.empty()) {
            throw CLI::ValidationError("make", "no frames: name an IMAGE, or --include a sequence");
        }
    });
}

void SequenceMakeCommand::AddLooks(CLI::App& app) {
    AddParsed(app, "--fit", "HOW", ParseFit, m_order.fit,
              "How images of another shape fill the sign: scale (all of the image, on black; the "
              "usual way), crop (all of the sign) or stretch");
    app.add_flag("--dither,!--no-dither", m_order.dither,
                 "Mix the lamps' shades where an image has more of them (the usual way), or take "
                 "the nearest");
    AddParsed(app, "--dwell", "MS[,MS...]", ParseDwells, m_order.dwells,
              "Milliseconds of each frame, the last number for all that follow; without it those "
              "of an animated image, and 100");
    AddParsed(app, "--type", "TYPE", ParseFrameType, m_order.frameType,
              "Type of the frames: graphic (the usual one), data or text");
    AddParsed(app, "--level", "LEVEL", ParseLevel, m_order.facts.level,
              "Compression: none, low or medium (the usual one)");
}

void SequenceMakeCommand::AddTexts(CLI::App& app) {
    m_order.facts.level = K4_COMPRESS_MEDIUM;
    AddParsed(app, "--keywords", "TEXT", ParseKeywords, m_keywords,
              "Keywords, with blanks, commas or semicolons between");
    AddParsed(app, "--notes", "TEXT", ParseText, m_notes, "Notes");
    AddParsed(app, "--thumbnail", "N", ParseThumbnail, m_order.facts.thumbnailFrame,
              "The frame that stands for the sequence, from 1");
    app.add_flag("--preview-only", m_order.facts.previewOnly, "Mark it as a preview-only sequence");
}

std::vector<SequencePart> SequenceMakeCommand::Parts() const {
    std::vector<SequencePart> parts;
    auto include = m_includes.begin();
    for (std::size_t image = 0; image <= m_images.size(); ++image) {
        for (; include != m_includes.end() && include->first <= image; ++include) {
            parts.push_back({SequencePart::Kind::Include, include->second});
        }
        if (image < m_images.size()) {
            parts.push_back({SequencePart::Kind::Image, m_images[image]});
        }
    }
    return parts;
}

bool SequenceMakeCommand::CheckOrder(SequenceOrder& order, Answer& answer) const {
    for (const std::string& message : k4cmn::SignTypeMessages(
             m_size.rows, m_size.columns, order.facts.color, order.facts.pixel)) {
        answer.Fail(ExitCode::Usage, WithoutNewline(message));
    }
    if (answer.code != ExitCode::Done) {
        return false;
    }
    order.facts.rows = static_cast<std::uint16_t>(m_size.rows);
    order.facts.columns = static_cast<std::uint16_t>(m_size.columns);
    order.facts.maker = std::string("k4ctl ") + K4CTL_VERSION;
    order.facts.keywords = m_keywords;
    order.facts.notes = m_notes;
    order.parts = Parts();
    return true;
}

Answer SequenceMakeCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("file"), k4cmn::ToQt(m_out));
    SequenceOrder order = m_order;
    if (!CheckOrder(order, answer)) {
        return answer;
    }
    const std::string native = m_places(m_out);
    std::error_code ignored;
    if (native.empty()) {
        answer.Fail(ExitCode::Refused, NoPlaceWords(m_out));
        return answer;
    }
    if (!m_force && std::filesystem::exists(std::filesystem::symlink_status(native, ignored))) {
        answer.Fail(ExitCode::Refused, "\"" + m_out + "\" is there already; --force replaces it.");
        return answer;
    }
    SequenceMaker maker(order, m_places);
    if (!maker.Make(native)) {
        answer.Fail(ExitCode::Refused, maker.Problem());
        return answer;
    }
    answer.Say(m_out + ": " + CountText(maker.Frames(), "frame") + ", " +
               SecondsText(maker.RunTime()));
    answer.json.insert(QStringLiteral("done"), true);
    answer.json.insert(QStringLiteral("frameCount"), static_cast<qint64>(maker.Frames()));
    answer.json.insert(QStringLiteral("includeCount"), static_cast<qint64>(maker.Includes()));
    answer.json.insert(QStringLiteral("runTime"), static_cast<qint64>(maker.RunTime()));
    return answer;
}

}  // namespace k4ctl

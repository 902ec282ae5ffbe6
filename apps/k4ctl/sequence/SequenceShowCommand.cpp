#include "apps/k4ctl/sequence/SequenceShowCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>
#include <cstring>

#include "apps/k4ctl/Names.h"
#include "apps/k4ctl/Table.h"
#include "apps/k4ctl/sequence/OpenSequence.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

using k4cmn::ToQt;

/// The frames of a file, as they are gone through one by one.
class FrameListing {
 public:
    /// @param shown  the frames that people see.
    /// @param told   the frames that machines see.
    FrameListing(const FrameRange& shown, const FrameRange& told) : m_shown(shown), m_told(told) {}

    void AddAll(OpenSequence& sequence, Answer& answer) {
        for (std::uint32_t frame = 1; frame <= sequence.FrameCount(); ++frame) {
            k4suite::SequenceDefect defect;
            const auto place = sequence.Reader().Find(frame, defect);
            if (!place) {
                answer.Fail(ExitCode::Refused, FrameWords(frame, defect));
                return;
            }
            m_runTime += place->dwell;
            if (m_shown.Has(frame) || m_told.Has(frame)) {
                Add(sequence.Reader(), frame, *place, answer);
            }
        }
    }

    std::uint64_t RunTime() const { return m_runTime; }
    const Table& Shown() const { return m_table; }
    const QJsonArray& Told() const { return m_json; }

 private:
    void Add(k4suite::SequenceReader& reader, std::uint32_t frame, const k4suite::FramePlace& place,
             Answer& answer) {
        k4suite::SequenceDefect defect;
        m_object = {{QStringLiteral("frame"), static_cast<qint64>(frame)},
                    {QStringLiteral("type"), ToQt(FrameTypeText(place.type))},
                    {QStringLiteral("offset"), static_cast<qint64>(place.offset)}};
        const bool isRead = place.type == k4cmn::kIncludeFrame
                                ? AddInclude(reader, frame, place, defect)
                                : AddGraphic(reader, frame, place, defect);
        if (!isRead) {
            AddRow(frame, {std::to_string(frame), FrameTypeText(place.type)});
            m_object.insert(QStringLiteral("error"), ToQt(k4suite::DefectText(defect)));
            answer.Fail(ExitCode::Refused, FrameWords(frame, defect));
        }
        if (m_told.Has(frame)) {
            m_json.append(m_object);
        }
    }

    bool AddGraphic(k4suite::SequenceReader& reader, std::uint32_t frame,
                    const k4suite::FramePlace& place, k4suite::SequenceDefect& defect) {
        tag_K4_GRP_HDR header{};
        if (!reader.ReadHeader(place, header, defect)) {
            return false;
        }
        const std::uint32_t bytes = place.size - static_cast<std::uint32_t>(sizeof header);
        AddRow(frame,
               {std::to_string(frame), FrameTypeText(place.type), std::to_string(header.dwell),
                MethodText(header.compressionType), std::to_string(bytes)});
        m_object.insert(QStringLiteral("dwell"), static_cast<qint64>(header.dwell));
        m_object.insert(QStringLiteral("packed"),
                        NamedValue(static_cast<std::int32_t>(header.compressionType),
                                   MethodText(header.compressionType)));
        m_object.insert(QStringLiteral("bytes"), static_cast<qint64>(bytes));
        return true;
    }

    bool AddInclude(k4suite::SequenceReader& reader, std::uint32_t frame,
                    const k4suite::FramePlace& place, k4suite::SequenceDefect& defect) {
        std::vector<k4suite::IncludeField> fields;
        if (!reader.ReadInclude(place, fields, defect)) {
            return false;
        }
        QJsonArray array;
        std::string number = std::to_string(frame);
        std::string type = FrameTypeText(place.type);
        std::string bytes = std::to_string(place.size);
        for (const k4suite::IncludeField& field : fields) {
            AddRow(frame, {std::exchange(number, {}),
                           std::exchange(type, {}),
                           {},
                           {},
                           std::exchange(bytes, {}),
                           (field.status == 0 ? "off: " : "") + field.path});
            array.append(QJsonObject{{QStringLiteral("status"), field.status},
                                     {QStringLiteral("path"), ToQt(field.path)}});
        }
        if (fields.empty()) {
            AddRow(frame, {number, type, {}, {}, bytes});
        }
        m_object.insert(QStringLiteral("bytes"), static_cast<qint64>(place.size));
        m_object.insert(QStringLiteral("fields"), array);
        return true;
    }

    void AddRow(std::uint32_t frame, std::vector<std::string> cells) {
        if (m_shown.Has(frame)) {
            m_table.Add(std::move(cells));
        }
    }

    const FrameRange m_shown;
    const FrameRange m_told;
    std::uint64_t m_runTime = 0;
    QJsonObject m_object;  ///< of the frame that is being added
    QJsonArray m_json;
    Table m_table{{{"FRAME", Table::Align::Right},
                   {"TYPE"},
                   {"DWELL", Table::Align::Right},
                   {"PACKED"},
                   {"BYTES", Table::Align::Right},
                   {"INCLUDES"}}};
};

std::string MakerOf(const k4suite::SequenceHead& head) {
    return {head.file.maker, strnlen(head.file.maker, sizeof head.file.maker)};
}

void SayFacts(const std::string& file, const k4suite::SequenceHead& head, std::uint64_t runTime,
              Answer& answer) {
    const tag_K4_SOS_FRM& start = head.start;
    Table table({{}, {}});
    table.Add({"File", file});
    table.Add({"Size", k4cmn::Format("%ux%u", unsigned{start.rows}, unsigned{start.columns})});
    table.Add({"Color", ColorText(start.color)});
    table.Add({"Pixel", PixelText(start.pixel)});
    table.Add({"Level", LevelText(head.file.compressionLevel)});
    table.Add({"Duration", SecondsText(runTime)});
    table.Add({"Stored duration", SecondsText(start.runTime)});
    table.Add({"Frames", std::to_string(start.frameCount)});
    table.Add({"Includes", std::to_string(start.includeCount)});
    table.Add({"Thumbnail", start.thumbnailFrame == 0
                                ? "none"
                                : "frame " + std::to_string(start.thumbnailFrame)});
    table.Add({"Preview only", start.flags & k4cmn::kPreviewOnlyFlag ? "yes" : "no"});
    table.Add({"Maker", MakerOf(head)});
    table.Add({"Keywords", k4suite::TextOfArea(head.keywords)});
    table.Add({"Notes", k4suite::TextOfArea(head.notes)});
    answer.Say(table);
}

QJsonObject Named(std::uint32_t value, std::string_view name) {
    return {{QStringLiteral("value"), static_cast<qint64>(value)},
            {QStringLiteral("name"), ToQt(name)}};
}

void TellFacts(const k4suite::SequenceHead& head, std::uint64_t runTime, QJsonObject& json) {
    const tag_K4_SOS_FRM& start = head.start;
    json.insert(QStringLiteral("rows"), start.rows);
    json.insert(QStringLiteral("columns"), start.columns);
    json.insert(
        QStringLiteral("color"),
        Named(start.color, k4cmn::ColorShortName(static_cast<tag_K4_SIGN_COLOR>(start.color))));
    json.insert(
        QStringLiteral("pixel"),
        Named(start.pixel, k4cmn::PixelShortName(static_cast<tag_K4_PIXEL_TECH>(start.pixel))));
    json.insert(QStringLiteral("level"),
                Named(head.file.compressionLevel, LevelText(head.file.compressionLevel)));
    json.insert(QStringLiteral("runTime"), static_cast<qint64>(runTime));
    json.insert(QStringLiteral("storedRunTime"), static_cast<qint64>(start.runTime));
    json.insert(QStringLiteral("frameCount"), start.frameCount);
    json.insert(QStringLiteral("includeCount"), start.includeCount);
    json.insert(QStringLiteral("thumbnailFrame"), start.thumbnailFrame);
    json.insert(QStringLiteral("previewOnly"), (start.flags & k4cmn::kPreviewOnlyFlag) != 0);
    json.insert(QStringLiteral("maker"), ToQt(MakerOf(head)));
    json.insert(QStringLiteral("keywords"), ToQt(k4suite::TextOfArea(head.keywords)));
    json.insert(QStringLiteral("notes"), ToQt(k4suite::TextOfArea(head.notes)));
}

}  // namespace

CommandText SequenceShowCommand::Text() const {
    return {"sequence show", "Show the facts and the frames of a sequence",
            "  k4ctl sequence show Goal.SQ4\n"
            "  k4ctl sequence show 'A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\Goal.SQ4'\n"
            "  k4ctl sequence show Goal.SQ4 --frames 10-20\n"
            "  k4ctl sequence show Goal.SQ4 --json\n"};
}

void SequenceShowCommand::AddArguments(CLI::App& app) {
    app.add_option("FILE", m_file, "The sequence file")->required();
    CLI::Option* frames =
        AddParsed(app, "--frames", "WHICH", ParseFrameRange, m_frames,
                  "Frames to list: a number, FIRST-LAST, all, or none; without it the first 20, "
                  "and with --json all");
    app.callback([this, frames] { m_chosen = frames->count() > 0; });
}

Answer SequenceShowCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("file"), ToQt(m_file));
    const auto sequence = OpenSequence::Open(m_file, m_places, answer);
    if (!sequence) {
        return answer;
    }
    const FrameRange shown = m_chosen ? m_frames : FrameRange{1, kUsualFrames};
    FrameListing frames(shown, m_frames);
    frames.AddAll(*sequence, answer);
    SayFacts(m_file, sequence->Head(), frames.RunTime(), answer);
    if (!frames.Shown().IsEmpty()) {
        answer.text += "\n";
        answer.Say(frames.Shown());
    }
    if (!m_chosen && sequence->FrameCount() > kUsualFrames) {
        answer.Say(k4cmn::Format("and %u more; --frames all lists them all, --frames 21-40 some",
                                 sequence->FrameCount() - kUsualFrames));
    }
    TellFacts(sequence->Head(), frames.RunTime(), answer.json);
    answer.json.insert(QStringLiteral("frames"), frames.Told());
    return answer;
}

}  // namespace k4ctl

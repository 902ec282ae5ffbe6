#include "apps/k4ctl/sequence/SequenceCheckCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "apps/k4ctl/Table.h"
#include "apps/k4ctl/sequence/SequenceWords.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/sequence/FileBytes.h"
#include "suite/sequence/SequenceCheck.h"

namespace k4ctl {

CommandText SequenceCheckCommand::Text() const {
    return {"sequence check", "Look for defects in a sequence",
            "  k4ctl sequence check Goal.SQ4\n"
            "  k4ctl sequence check 'A:\\64x192.RGB16M.LED.Sign\\Default.Lib\\Goal.SQ4' --json\n"};
}

void SequenceCheckCommand::AddArguments(CLI::App& app) {
    app.add_option("FILE", m_file, "The sequence file")->required();
}

Answer SequenceCheckCommand::Run() const {
    Answer answer;
    answer.json.insert(QStringLiteral("file"), k4cmn::ToQt(m_file));
    const std::string native = m_places(m_file);
    std::string problem = NoPlaceWords(m_file);
    if (native.empty() || !k4suite::FileBytes::Open(native, false, problem)) {
        answer.Fail(ExitCode::Refused, problem);
        return answer;
    }
    Table table({{"OFFSET", Table::Align::Right}, {"DEFECT"}});
    QJsonArray array;
    for (const k4suite::SequenceDefect& defect : k4suite::CheckSequence(native)) {
        table.Add({std::to_string(defect.offset), defect.words});
        array.append(QJsonObject{{QStringLiteral("offset"), static_cast<qint64>(defect.offset)},
                                 {QStringLiteral("words"), k4cmn::ToQt(defect.words)}});
    }
    answer.json.insert(QStringLiteral("sound"), array.isEmpty());
    answer.json.insert(QStringLiteral("defects"), array);
    if (array.isEmpty()) {
        answer.Say(m_file + ": sound");
        return answer;
    }
    answer.Say(table);
    answer.Fail(ExitCode::Refused,
                "\"" + m_file + "\" has " +
                    CountText(static_cast<std::uint64_t>(array.size()), "defect") + ".");
    return answer;
}

}  // namespace k4ctl

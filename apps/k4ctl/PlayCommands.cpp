#include "apps/k4ctl/PlayCommands.h"

#include <CLI/CLI.hpp>

#include "apps/k4ctl/Names.h"

namespace k4ctl {

CommandText PlayCommand::Text() const {
    return {"play", "Play a file on a sign",
            "  k4ctl play Ticker \"Test Pattern.SQ4\"\n"
            "  k4ctl play Ticker 'A:\\Goal.SQ4' --mode num-times --param 3\n"
            "  k4ctl play Ticker 'A:\\Evening.SD4'\n"};
}

void PlayCommand::AddFurtherArguments(CLI::App& app) {
    app.add_option("FILE", m_file,
                   "A sequence (SQ4, AVI), schedule (SD4) or script (SC4): a path of the store")
        ->required();
    m_how.AddTo(app);
}

void PlayCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    const int result = client.PlayFile(Sign(), m_file, m_how.mode, m_how.param);
    if (!result && client.GetLastError().empty()) {
        // The client has no words for a file of a kind that it doesn't know.
        answer.Fail(
            ExitCode::Refused,
            "\"" + m_file + "\" can't be played; its name must end in SQ4, AVI, SD4 or SC4");
        return;
    }
    Finish(result, client, "plays " + m_file, answer);
}

CommandText StopCommand::Text() const {
    return {"stop", "Stop a sign's sequence, or end its schedule",
            "  k4ctl stop Ticker\n"
            "  k4ctl stop Ticker --schedule\n"};
}

void StopCommand::AddFurtherArguments(CLI::App& app) {
    app.add_flag("--schedule", m_schedule, "End the schedule instead of the sequence");
}

void StopCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    if (m_schedule) {
        Finish(client.EndSchedule(Sign()), client, "schedule ended", answer);
    } else {
        Finish(client.StopSequence(Sign()), client, "stopped", answer);
    }
}

CommandText BlankCommand::Text() const {
    return {"blank", "Make a sign dark", "  k4ctl blank Ticker\n"};
}

void BlankCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    Finish(client.BlankSign(Sign()), client, "blank", answer);
}

CommandText DefaultCommand::Text() const {
    return {"default", "Show or set the sequence that a sign plays when nothing else does",
            "  k4ctl default Ticker\n"
            "  k4ctl default Ticker \"Test Pattern.SQ4\" --mode continuous\n"};
}

void DefaultCommand::AddFurtherArguments(CLI::App& app) {
    app.add_option_function<std::string>(
        "FILE",
        [this](const std::string& text) {
            m_file = text;
            m_set = true;
        },
        "The sequence to set; without it the present one is shown");
    m_how.AddTo(app);
    app.callback([this] {
        if (m_how.given && !m_set) {
            throw CLI::ValidationError("default", "--mode and --param go with FILE");
        }
    });
}

void DefaultCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    if (!m_set) {
        Show(client, answer);
        return;
    }
    Finish(client.SetDefaultSequence(Sign(), m_file, m_how.mode, m_how.param), client,
           "default sequence is " + m_file, answer);
}

void DefaultCommand::Show(CK4CmnSS& client, Answer& answer) const {
    std::string sequence;
    tag_K4_PLAY_SEQ_MODE mode = K4_PLAY_SEQ_NONE;
    std::uint32_t param = 0;
    std::uint32_t plays = 0;
    if (!client.GetDefaultSequence(Sign(), &sequence, &mode, &param) ||
        !client.GetDefaultSeqFlag(Sign(), &plays)) {
        Refused(client, answer);
        return;
    }
    Table table({{}, {}});
    table.Add({"Sequence", sequence});
    table.Add({"Mode", ModeName(mode)});
    table.Add({"Param", std::to_string(param)});
    table.Add({"Plays", plays ? "yes" : "no"});
    answer.Say(table);
    answer.json.insert(QStringLiteral("sequence"), QString::fromStdString(sequence));
    answer.json.insert(QStringLiteral("mode"), ModeJson(mode));
    answer.json.insert(QStringLiteral("param"), static_cast<qint64>(param));
    answer.json.insert(QStringLiteral("plays"), plays != 0);
}

}  // namespace k4ctl

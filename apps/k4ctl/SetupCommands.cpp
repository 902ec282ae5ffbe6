#include "apps/k4ctl/SetupCommands.h"

#include <CLI/CLI.hpp>

#include "apps/k4ctl/SignConfig.h"
#include "k4cmndlg/frame/Format.h"

namespace k4ctl {

CommandText DimCommand::Text() const {
    return {"dim", "Set a sign's dimming",
            "  k4ctl dim Ticker manual 200       level 0 to 255\n"
            "  k4ctl dim Ticker photocell -10    offset -64 to 64\n"
            "  k4ctl dim Ticker remote           by a remote photocell\n"
            "  k4ctl dim Ticker scheduled        by the schedule\n"};
}

void DimCommand::AddFurtherArguments(CLI::App& app) {
    app.add_option("MODE", m_mode, "manual, photocell, remote or scheduled")->required();
    app.add_option("VALUE", m_value, "manual: the level, photocell: the offset; else nothing");
    app.callback([this] {
        std::string problem;
        if (!ParseDimming(m_mode, m_value, m_dimming, problem)) {
            throw CLI::ValidationError("dim", problem);
        }
    });
}

void DimCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    SignConfig set;
    set.dimMode = m_dimming.mode;
    set.dimLevel = m_dimming.value;
    set.photocellOffset = m_dimming.value;
    Finish(client.SetDimming(Sign(), m_dimming.mode, m_dimming.value), client,
           "dimming is " + set.DimmingText(), answer);
}

CommandText WindowCommand::Text() const {
    return {"window", "Open, close or move a window of a sign",
            "  k4ctl window Ticker 2 open\n"
            "  k4ctl window Ticker 2 open --at 9,17    row 9, column 17, counted from 1\n"
            "  k4ctl window Ticker 2 close\n"};
}

void WindowCommand::AddFurtherArguments(CLI::App& app) {
    app.add_option_function<std::string>(
           "NUMBER",
           [this](const std::string& text) {
               std::string problem;
               std::int64_t number = 0;
               if (!ParseNumber(text, 1, K4_MAX_SIGN_WINDOWS, number, problem)) {
                   throw CLI::ValidationError("NUMBER", problem);
               }
               m_window = static_cast<std::uint32_t>(number);
           },
           "The window, 1 to 16")
        ->required();
    app.add_option_function<std::string>(
           "STATE",
           [this](const std::string& text) {
               std::string problem;
               if (!ParseOpen(text, m_open, problem)) {
                   throw CLI::ValidationError("STATE", problem);
               }
           },
           "open or close")
        ->required();
    app.add_option_function<std::string>(
           "--at",
           [this](const std::string& text) {
               std::string problem;
               if (!ParsePlace(text, m_place, problem)) {
                   throw CLI::ValidationError("--at", problem);
               }
           },
           "Move it there too, counted from 1; without it the window stays where it is")
        ->type_name("ROW,COLUMN");
}

void WindowCommand::OnSign(CK4CmnSS& client, Answer& answer) const {
    std::string did = k4cmn::Format("window %u is %s", m_window, m_open ? "open" : "closed");
    if (m_place.row != 0) {
        did += k4cmn::Format(" at row %d, column %d", m_place.row, m_place.column);
    }
    Finish(client.SetWindowState(Sign(), m_window, m_open, m_place.row, m_place.column, {}), client,
           did, answer);
}

}  // namespace k4ctl

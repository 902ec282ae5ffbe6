#include "apps/k4ctl/store/StoreMakeTypeCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>

#include "apps/k4ctl/sequence/OptionWords.h"
#include "apps/k4ctl/sequence/SequenceWords.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

/// A server's text without what may stand behind it in a path, and with its own separators.
std::string ServerText(std::string text) {
    std::replace(text.begin(), text.end(), '/', '\\');
    while (text.ends_with('\\')) {
        text.pop_back();
    }
    return text;
}

}  // namespace

CommandText StoreMakeTypeCommand::Text() const {
    return {
        "store mktype", "Make the folder of a sign type on servers",
        "  k4ctl store mktype A: --rows 16 --columns 96 --color Mono16 --pixel LED\n"
        "  k4ctl store mktype A: '\\\\STORE\\SIGNS' --rows 7 --columns 80 --color Mono1 --pixel "
        "Reflect --palette\n"};
}

void StoreMakeTypeCommand::AddArguments(CLI::App& app) {
    app.add_option("SERVER", m_servers, "Servers of this system")->required();
    AddParsed(app, "--rows", "N", ParseRows, m_rows, "Rows: 7, or a multiple of 8 up to 2048")
        ->required();
    AddParsed(app, "--columns", "N", ParseColumns, m_columns,
              "Columns: a multiple of 16 up to 16384")
        ->required();
    AddParsed(app, "--color", "NAME", ParseColor, m_color, "Color technology, by its short name")
        ->required();
    AddParsed(app, "--pixel", "NAME", ParsePixel, m_pixel,
              "Pixel technology: Incand, Reflect or LED")
        ->required();
    app.add_flag("--palette", m_isPalette,
                 "Make the palettes' folder alone; without it both are made");
}

k4cmn::SignFolderForm StoreMakeTypeCommand::Form(StoreSession& session) const {
    k4cmn::SignFolderForm form;
    form.Initialize(m_rows, m_columns, m_color, m_pixel, 0);
    form.PixelChanged(session.Person());
    if (const auto problem = form.SizeProblem()) {
        session.Person().Ask(k4cmn::PlainMessage(*problem));
    }
    if (m_isPalette) {
        form.TogglePalette();
    }
    return form;
}

std::vector<k4cmn::TickedServer> StoreMakeTypeCommand::Servers(Answer& answer) const {
    std::vector<k4cmn::TickedServer> servers = k4cmn::LocalServers();
    for (const std::string& wanted : m_servers) {
        const auto row = std::find_if(servers.begin(), servers.end(), [&](const auto& each) {
            return k4cmn::IsSameWithoutCase(ServerText(each.server), ServerText(wanted));
        });
        if (row == servers.end()) {
            answer.Fail(ExitCode::Refused, "\"" + wanted + "\" is no server of this system.");
        } else {
            row->isTicked = true;
        }
    }
    return servers;
}

void StoreMakeTypeCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    QJsonArray names;
    for (const std::string& server : m_servers) {
        names.append(k4cmn::ToQt(server));
    }
    answer.json.insert(QStringLiteral("servers"), names);
    const std::vector<k4cmn::TickedServer> servers = Servers(answer);
    const k4cmn::SignFolderForm form = Form(session);
    answer.json.insert(QStringLiteral("signType"),
                       k4cmn::ToQt(CK4Files().BuildSign(m_rows, m_columns, m_color, m_pixel,
                                                        m_isPalette ? 1 : 0)));
    if (answer.code == ExitCode::Done) {
        k4cmn::MakeSignFolders(form, servers, session.Person());
    }
    answer.json.insert(QStringLiteral("done"), answer.code == ExitCode::Done);
}

}  // namespace k4ctl

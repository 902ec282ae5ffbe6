#include "apps/k4ctl/store/FindFilesCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>
#include <numeric>

#include "apps/k4ctl/Table.h"
#include "apps/k4ctl/store/FileJson.h"
#include "apps/k4ctl/store/Readable.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/SearchEngine.h"

namespace k4ctl {
namespace {

using k4cmn::FoundRows;
using k4cmn::SearchPlace;

/// Collects what a search has to tell, each message once.
class Messages final : public k4cmn::Prompt {
 public:
    k4cmn::MessageAnswer Ask(const k4cmn::Message& message) override {
        const std::string line = OneLine(message.text);
        if (std::find(lines.begin(), lines.end(), line) == lines.end()) {
            lines.push_back(line);
        }
        return k4cmn::CautiousAnswer(message.buttons);
    }

    std::vector<std::string> lines;
};

/// The one place that an argument names.
std::vector<SearchPlace> OnePlace(StoreSession& session, const std::string& argument) {
    const auto place = session.Find(argument);
    if (!place) {
        return {};
    }
    if (place->kind == StorePlace::Kind::File) {
        session.answer.Fail(ExitCode::Unavailable,
                            "\"" + argument +
                                "\" is a file; a search begins at a server, a sign type or a "
                                "library.");
        return {};
    }
    if (!CanRead(*place, session.answer)) {
        return {};
    }
    return {{place->where.server, place->where.signType, place->where.library}};
}

}  // namespace

CommandText FindFilesCommand::Text() const {
    return {"find", "Find files of the sign file store by name, keywords, sign, size and time",
            "  k4ctl find                          all sequences in all libraries\n"
            "  k4ctl find A: --name 'G*.SQ4'\n"
            "  k4ctl find --keywords 'goal home' --any --sort modified --descending\n"
            "  k4ctl find --type schedules --at-least 2 --days 30\n"
            "  k4ctl find --rows 64 --columns 192 --color RGB16M --pixel LED --between 2026-07-01 "
            "2026-07-31\n"
            "  k4ctl find '\\\\STORE\\SIGNS\\64x192.RGB16M.LED.Sign\\Default.Lib' --json\n"
            "  k4ctl find --server A: --sign-type 64x192.RGB16M.LED --library Default\n",
            "  0  files were found\n"
            "  1  none were found, or the answer couldn't be written\n"
            "  2  the command line can't be understood\n"
            "  3  what is to be searched isn't there, or can't be read\n"};
}

void FindFilesCommand::AddArguments(CLI::App& app) {
    CLI::Option* const place =
        app.add_option("PLACE", m_place,
                       "A server, a sign type or a library; without it all servers are searched");
    app.add_option("--server", m_server, "The same in pieces: a server,")
        ->type_name("TEXT")
        ->excludes(place);
    CLI::Option* const signType =
        app.add_option("--sign-type", m_signType,
                       "a sign type of it, or of all servers, as 64x192.RGB16M.LED,")
            ->type_name("NAME")
            ->excludes(place);
    app.add_option("--library", m_library, "and a library of that sign type, as Default")
        ->type_name("NAME")
        ->needs(signType);
    m_options.AddTo(app);
}

std::vector<SearchPlace> FindFilesCommand::Places(StoreSession& session) const {
    if (!m_place.empty()) {
        return OnePlace(session, m_place);
    }
    if (m_signType.empty() && !m_library.empty()) {
        session.answer.Fail(ExitCode::Unavailable,
                            "The library \"" + m_library + "\" is in no sign type.");
        return {};
    }
    if (!m_server.empty()) {
        return OnePlace(session, k4cmn::SearchPathText({m_server, m_signType, m_library}));
    }
    return PlacesOnAllServers(session);
}

std::vector<SearchPlace> FindFilesCommand::PlacesOnAllServers(StoreSession& session) const {
    std::vector<std::string> servers;
    if (!CK4Registry::GetRegistryServers(servers)) {
        session.answer.Fail(ExitCode::Unavailable, "The servers of this system can't be read.");
        return {};
    }
    if (servers.empty()) {
        session.answer.Fail(ExitCode::Unavailable, "This system has no servers.");
        return {};
    }
    std::vector<SearchPlace> places;
    for (const std::string& server : servers) {
        if (m_signType.empty()) {
            places.push_back({server, {}, {}});
            continue;
        }
        // As each server writes the names: the search for a sign heeds their case.
        std::string problem;
        if (const auto place = session.Places().Find(
                k4cmn::SearchPathText({server, m_signType, m_library}), problem)) {
            places.push_back({server, place->where.signType, place->where.library});
        }
    }
    if (places.empty()) {
        session.answer.Fail(ExitCode::Unavailable,
                            m_library.empty()
                                ? "No server has the sign type \"" + m_signType + "\"."
                                : "No server has the library \"" + m_library +
                                      "\" in the sign type \"" + m_signType + "\".");
    }
    return places;
}

std::vector<std::size_t> FindFilesCommand::Order(FoundRows& rows) const {
    const int column = m_options.column;
    const bool isByValue = column == FoundRows::kSize || column == FoundRows::kModified;
    if (!isByValue && (column != FoundRows::kName || m_options.descending)) {
        // The first click on a heading sorts in descending order, the second in ascending order.
        rows.SortColumn(column);
        if (!m_options.descending) {
            rows.SortColumn(column);
        }
    }
    std::vector<std::size_t> order(rows.Count());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (isByValue) {
        // By what is behind the texts, which put 100000 KB before 99999 KB, and 01:00 PM before
        // 02:00 AM.
        const auto value = [&](std::size_t row) {
            return column == FoundRows::kSize ? static_cast<std::int64_t>(rows.Row(row).size)
                                              : rows.Row(row).modified;
        };
        std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
            return m_options.descending ? value(other) < value(one) : value(one) < value(other);
        });
    }
    return order;
}

void FindFilesCommand::Show(FoundRows& rows, Answer& answer) const {
    Table table({{"NAME"}, {"IN FOLDER"}, {"SIZE", Table::Align::Right}, {"TYPE"}, {"MODIFIED"}});
    QJsonArray files;
    for (const std::size_t row : Order(rows)) {
        std::vector<std::string> texts;
        for (int column = 0; column < FoundRows::kColumnCount; ++column) {
            texts.push_back(rows.Text(row, column));
        }
        const k4cmn::FoundFileRow& file = rows.Row(row);
        QJsonObject object = FileJson(file.path, file.size, texts[FoundRows::kType], file.modified);
        object.insert(QStringLiteral("name"), k4cmn::ToQt(file.name));
        files.append(object);
        table.Add(std::move(texts));
    }
    answer.json.insert(QStringLiteral("files"), files);
    if (table.IsEmpty()) {
        answer.code = ExitCode::NotFound;
        answer.Say("No files were found.");
    } else {
        answer.Say(table);
    }
}

void FindFilesCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    if (!m_place.empty()) {
        answer.json.insert(QStringLiteral("place"), k4cmn::ToQt(m_place));
    }
    const std::vector<SearchPlace> places = Places(session);
    if (answer.HasFailed()) {
        return;
    }
    FoundRows rows;
    Messages messages;
    k4cmn::SearchEngine engine(m_options.criteria, k4cmn::SearchMode::New, rows, messages);
    for (const SearchPlace& place : places) {
        engine.SearchForFiles(place.server, place.signType, place.library);
    }
    Show(rows, answer);
    QJsonArray problems;
    for (const std::string& line : messages.lines) {
        answer.words.push_back(line);
        problems.append(k4cmn::ToQt(line));
    }
    answer.json.insert(QStringLiteral("problems"), problems);
}

}  // namespace k4ctl

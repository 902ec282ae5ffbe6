#include "apps/k4ctl/store/StorePasteCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <utility>

#include "apps/k4ctl/store/StopRequest.h"
#include "k4cmndlg/filesel/FileClipboard.h"
#include "k4cmndlg/filesel/FileMenu.h"
#include "k4cmndlg/filesel/FilePaste.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

bool LieTogether(const StorePlace& one, const StorePlace& other) {
    FileLocation nameless = one.where;
    nameless.file = other.where.file;
    return one.kind == StorePlace::Kind::File && other.kind == StorePlace::Kind::File &&
           nameless == other.where;
}

}  // namespace

CommandText StorePasteCommand::Text() const {
    if (m_way == Way::Copy) {
        return {"store cp", "Copy files, libraries or sign types to another place",
                "  k4ctl store cp A:/16x96.Mono16.LED.Sign/Default.Lib/Sale.SQ4 "
                "A:/16x96.Mono16.LED.Sign/Events.Lib\n"
                "  k4ctl store cp 'A:/16x96.Mono16.LED.Sign/Default.Lib/S*.SQ4' B: --yes\n"
                "  k4ctl store cp 'A:\\16x96.Mono16.LED.Sign\\Events.Lib' B:   a library\n"
                "  k4ctl store cp 'A:\\16x96.Mono16.LED.Sign' B: --yes         a sign type\n"
                "  k4ctl store cp A:/Morning.SC4 B:\n"};
    }
    return {"store mv", "Move files, libraries or sign types to another place",
            "  k4ctl store mv A:/16x96.Mono16.LED.Sign/Default.Lib/Sale.SQ4 "
            "A:/16x96.Mono16.LED.Sign/Events.Lib\n"
            "  k4ctl store mv 'A:\\16x96.Mono16.LED.Sign\\Events.Lib' B: --no\n"};
}

void StorePasteCommand::AddArguments(CLI::App& app) {
    // One list, whose last is the target: the toolkit knows no list before a single argument where
    // options may stand behind both.
    app.add_option("SOURCE", m_places,
                   "Files (a pattern with * and ? may name them), libraries or sign types; and "
                   "last the server, sign type or library that they go to")
        ->required()
        ->expected(2, -1)
        ->option_text("... TARGET");
    AddReplies(app);
}

std::vector<StorePasteCommand::Batch> StorePasteCommand::Batches(
    const std::vector<StorePlace>& sources, Answer& answer) {
    std::vector<Batch> batches;
    for (const StorePlace& source : sources) {
        if (source.kind == StorePlace::Kind::Server) {
            answer.Fail(ExitCode::Refused, "\"" + source.Path() + "\" is a server, which stays.");
        } else if (!batches.empty() && LieTogether(batches.back().front(), source)) {
            batches.back().push_back(source);
        } else {
            batches.push_back({source});
        }
    }
    return batches;
}

void StorePasteCommand::Paste(const Batch& batch, const StorePlace& target,
                              StoreSession& session) const {
    const StorePlace& first = batch.front();
    std::vector<std::string> names;
    if (first.kind == StorePlace::Kind::File) {
        for (const StorePlace& file : batch) {
            names.push_back(file.where.file + "." + file.where.fileExtension);
        }
    }
    FileLocation place = target.where;
    place.fileExtension = first.where.fileExtension;
    k4cmn::FileClipboard clipboard = k4cmn::CopiedFrom(first.where, std::move(names));
    clipboard.cutPending = m_way == Way::Move;

    const bool isOfRoot = k4cmn::LiesAtServerRoot(place.fileExtension);
    const k4cmn::FileMenuState menu({place, clipboard, false, false});
    if (isOfRoot && !menu.IsEnabled(k4cmn::FileCommand::Paste)) {
        session.answer.Fail(ExitCode::Refused, "\"" + first.Path() + "\" goes to a server, and \"" +
                                                   target.Path() + "\" is " + target.KindText() +
                                                   ".");
        return;
    }
    k4cmn::FilePaste(place, clipboard, session.Person()).Run();
}

void StorePasteCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    QJsonArray array;
    for (std::size_t at = 0; at + 1 < m_places.size(); ++at) {
        array.append(k4cmn::ToQt(m_places[at]));
    }
    answer.json.insert(QStringLiteral("sources"), array);
    answer.json.insert(QStringLiteral("target"), k4cmn::ToQt(m_places.back()));
    const auto target = session.Find(m_places.back());
    if (!target) {
        return;
    }
    if (target->kind == StorePlace::Kind::File) {
        answer.Fail(ExitCode::Refused, "\"" + m_places.back() +
                                           "\" is a file; files go to a server, a sign type or a "
                                           "library.");
        return;
    }
    const std::vector<StorePlace> sources = session.FindAll({m_places.begin(), m_places.end() - 1});
    for (const Batch& batch : Batches(sources, answer)) {
        if (StopRequest::Came()) {
            break;
        }
        Paste(batch, *target, session);
    }
    answer.json.insert(QStringLiteral("done"),
                       answer.code == ExitCode::Done && !StopRequest::Came());
}

}  // namespace k4ctl

#include "apps/k4ctl/store/StoreRemoveCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "apps/k4ctl/store/StopRequest.h"
#include "k4cmndlg/filesel/FileChanges.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/FileOperations.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace k4ctl {

CommandText StoreRemoveCommand::Text() const {
    return {"store rm", "Move files or libraries to the trash",
            "  k4ctl store rm A:/16x96.Mono16.LED.Sign/Default.Lib/Sale.SQ4\n"
            "  k4ctl store rm 'A:/16x96.Mono16.LED.Sign/Default.Lib/S*.SQ4' --yes\n"
            "  k4ctl store rm 'A:\\16x96.Mono16.LED.Sign\\Events.Lib'\n"};
}

void StoreRemoveCommand::AddArguments(CLI::App& app) {
    app.add_option("PLACE", m_places, "Files (a pattern with * and ? may name them) or libraries")
        ->required();
    AddReplies(app);
    app.add_flag("--force", m_mayDestroy,
                 "Let --yes go for what no trash can hold too: it is deleted for good");
}

void StoreRemoveCommand::RemoveFiles(const std::vector<std::string>& paths, Answer& answer) {
    if (paths.empty() || k4cmnDeleteFile(paths, k4cmn::FOF_ALLOWUNDO)) {
        return;
    }
    for (const std::string& path : paths) {
        if (k4cmn::Provided<k4cmn::StoreAccess>::Current().GetStatus(path, nullptr)) {
            answer.Fail(ExitCode::Refused, "\"" + path + "\" is still there.");
        }
    }
    if (answer.code == ExitCode::Done) {
        answer.Fail(ExitCode::Refused, "Not all could be removed.");
    }
}

void StoreRemoveCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    QJsonArray array;
    for (const std::string& place : m_places) {
        array.append(k4cmn::ToQt(place));
    }
    answer.json.insert(QStringLiteral("places"), array);
    std::vector<std::string> files;
    std::vector<FileLocation> libraries;
    for (const StorePlace& place : session.FindAll(m_places)) {
        if (place.kind == StorePlace::Kind::File) {
            files.push_back(place.Path());
        } else if (place.kind == StorePlace::Kind::Library) {
            libraries.push_back(place.where);
        } else {
            answer.Fail(ExitCode::Refused, "\"" + place.Path() + "\" is " + place.KindText() +
                                               "; files and libraries can be removed.");
        }
    }
    RemoveFiles(files, answer);
    for (const FileLocation& library : libraries) {
        if (!StopRequest::Came()) {
            k4cmn::RemoveLibrary(library, session.Person());
        }
    }
    answer.json.insert(QStringLiteral("done"),
                       answer.code == ExitCode::Done && !StopRequest::Came());
}

}  // namespace k4ctl

#include "apps/k4ctl/store/StoreMakeLibraryCommand.h"

#include <CLI/CLI.hpp>

#include "k4cmndlg/filesel/FileChanges.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/settings/NameText.h"

namespace k4ctl {
namespace {

/// A name as the dialog takes it; ".Lib" may stand behind it here.
std::string WithoutEnding(const std::string& name) {
    const std::size_t length = k4cmn::kLibraryEnding.size();
    const bool hasIt = name.size() > length &&
                       k4cmn::IsSameWithoutCase(std::string_view(name).substr(name.size() - length),
                                                k4cmn::kLibraryEnding);
    return hasIt ? name.substr(0, name.size() - length) : name;
}

/// What is wrong with a name; empty where nothing is.
std::string NameProblem(const std::string& name) {
    if (!k4suite::IsUtf8(name)) {
        return "\"" + name + "\" is no UTF-8 text.";
    }
    if (!k4cmn::IsFileNameShortEnough(name)) {
        return "\"" + name + "\" is too long: a library's name has 32 characters at most.";
    }
    // The tree would never show it, or show it elsewhere.
    if (name.empty() || name.starts_with('.') || !k4cmn::IsNameOfOneEntry(name)) {
        return "\"" + name + "\" is no name for a library.";
    }
    return {};
}

}  // namespace

CommandText StoreMakeLibraryCommand::Text() const {
    return {"store mklib", "Make a library below a sign type",
            "  k4ctl store mklib 'A:\\16x96.Mono16.LED.Sign' Winter\n"
            "  k4ctl store mklib A:/16x96.Mono16.LED.Sign \"Public Holidays\"\n"};
}

void StoreMakeLibraryCommand::AddArguments(CLI::App& app) {
    app.add_option("SIGNTYPE", m_signType, "The sign type")->required();
    app.add_option("NAME", m_name, "The library's name, 32 characters at most")->required();
}

void StoreMakeLibraryCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    answer.json.insert(QStringLiteral("signType"), k4cmn::ToQt(m_signType));
    answer.json.insert(QStringLiteral("name"), k4cmn::ToQt(m_name));
    const auto signType = session.Find(m_signType, StorePlace::Kind::SignType);
    if (!signType) {
        return;
    }
    const std::string name = WithoutEnding(m_name);
    if (const std::string problem = NameProblem(name); !problem.empty()) {
        answer.Fail(ExitCode::Refused, problem);
        return;
    }
    const FileLocation& where = signType->where;
    answer.json.insert(QStringLiteral("path"),
                       k4cmn::ToQt(k4cmn::LibraryFolder(where.server, where.signType, name)));
    answer.json.insert(QStringLiteral("done"),
                       k4cmn::MakeLibrary(signType->Path(), name, session.Person()));
}

}  // namespace k4ctl

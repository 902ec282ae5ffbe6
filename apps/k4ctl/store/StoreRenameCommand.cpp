#include "apps/k4ctl/store/StoreRenameCommand.h"

#include <CLI/CLI.hpp>

#include "k4cmndlg/filesel/FileChanges.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/Text.h"
#include "suite/settings/NameText.h"

namespace k4ctl {
namespace {

/// A new name as the dialog takes it, without extension; the file's own may stand behind it here.
std::string WithoutExtension(const std::string& name, const std::string& extension) {
    const std::string ending = "." + extension;
    const bool hasIt = name.size() > ending.size() &&
                       k4cmn::IsSameWithoutCase(
                           std::string_view(name).substr(name.size() - ending.size()), ending);
    return hasIt ? name.substr(0, name.size() - ending.size()) : name;
}

}  // namespace

CommandText StoreRenameCommand::Text() const {
    return {"store rename", "Give a file another name",
            "  k4ctl store rename A:/16x96.Mono16.LED.Sign/Default.Lib/Sale.SQ4 Bargain\n"
            "  k4ctl store rename A:/Morning.SC4 Dawn.SC4\n"};
}

void StoreRenameCommand::AddArguments(CLI::App& app) {
    app.add_option("FILE", m_file, "The file")->required();
    app.add_option("NEWNAME", m_name, "Its new name; the extension stays and need not be given")
        ->required();
}

void StoreRenameCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    answer.json.insert(QStringLiteral("file"), k4cmn::ToQt(m_file));
    answer.json.insert(QStringLiteral("newName"), k4cmn::ToQt(m_name));
    const auto file = session.Find(m_file, StorePlace::Kind::File);
    if (!file) {
        return;
    }
    if (!k4suite::IsUtf8(m_name)) {
        answer.Fail(ExitCode::Refused, "\"" + m_name + "\" is no UTF-8 text.");
        return;
    }
    k4cmn::RenameFile(file->where, WithoutExtension(m_name, file->where.fileExtension),
                      session.Person());
    answer.json.insert(QStringLiteral("done"), answer.code == ExitCode::Done);
}

}  // namespace k4ctl

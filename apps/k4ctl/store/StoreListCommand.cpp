#include "apps/k4ctl/store/StoreListCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>
#include <algorithm>

#include "apps/k4ctl/Table.h"
#include "apps/k4ctl/store/FileJson.h"
#include "apps/k4ctl/store/Readable.h"
#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filesel/LocalSigns.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

using k4cmn::FileRows;
using k4cmn::FileTreeItem;
using k4cmn::ToQt;

/// The real items below another one, as a tree shows them.
std::vector<const FileTreeItem*> RealChildren(const FileTreeItem& parent) {
    std::vector<const FileTreeItem*> children;
    for (const auto& item : parent.Children()) {
        if (item->Image() != k4cmn::kNoticeImage) {
            children.push_back(item.get());
        }
    }
    return children;
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

}  // namespace

CommandText StoreListCommand::Text() const {
    return {"store ls", "List what lies at a place of the store",
            "  k4ctl store ls                      the servers\n"
            "  k4ctl store ls A:                   the sign types of a server, and who has them\n"
            "  k4ctl store ls A: --type SC4,DL4    also its scripts and download lists\n"
            "  k4ctl store ls 'A:\\64x192.RGB16M.LED.Sign'\n"
            "  k4ctl store ls A:/64x192.RGB16M.LED.Sign/Default.Lib --sort modified --reverse\n"
            "  k4ctl store ls 'A:/64x192.RGB16M.LED.Sign/Default.Lib/G*.SQ4' --json\n"};
}

void StoreListCommand::AddArguments(CLI::App& app) {
    app.add_option("PLACE", m_place,
                   "A server, a sign type, a library, or files, which may be a pattern with * and "
                   "?; without it the servers are listed");
    m_options.AddTo(app);
    app.add_flag("--palettes", m_palettes, "Sign types of palettes instead of the others");
}

void StoreListCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    if (m_place.empty()) {
        ListServers(session);
        return;
    }
    answer.json.insert(QStringLiteral("place"), ToQt(m_place));
    const std::vector<StorePlace> places = session.FindAll({m_place});
    if (places.empty()) {
        return;
    }
    const StorePlace& place = places.front();
    if (place.kind != StorePlace::Kind::File && !CanRead(place, answer)) {
        return;
    }
    switch (place.kind) {
        case StorePlace::Kind::Server:
            ListServer(place, answer);
            break;
        case StorePlace::Kind::SignType:
            ListSignType(place, answer);
            break;
        case StorePlace::Kind::Library:
            ListFiles(m_options.FilesAt(place.where), place.where, answer);
            if (answer.text.empty()) {
                answer.Say("There are no files.");
            }
            break;
        case StorePlace::Kind::File:
            ListNamedFiles(places, answer);
            break;
    }
}

void StoreListCommand::ListServers(StoreSession& session) const {
    std::vector<std::string> servers;
    if (!session.Places().ReadServers(servers)) {
        session.answer.Fail(ExitCode::Refused, "The servers of this system can't be read.");
    }
    QJsonArray array;
    for (const std::string& server : servers) {
        session.answer.Say(server);
        array.append(QJsonObject{{QStringLiteral("server"), ToQt(server)}});
    }
    if (servers.empty()) {
        session.answer.Say("No Servers");
    }
    session.answer.json.insert(QStringLiteral("servers"), array);
}

void StoreListCommand::ListServer(const StorePlace& place, Answer& answer) const {
    k4cmn::FileTree tree;
    // Palettes are shown in their stead while nothing but palettes is looked for.
    tree.filter.palettes = m_palettes || m_options.types == std::vector<std::string>{"SP4"};
    FileTreeItem* const server = tree.AddServerItem(0, place.where.server);
    tree.AddAllSignTypeItems(*server);
    tree.Collapse(*server);  // sorts
    const k4cmn::LocalSigns signs;
    Table table({{"SIGN TYPE"}, {"SIGNS"}});
    QJsonArray array;
    for (const FileTreeItem* item : RealChildren(*server)) {
        const std::string signType(k4cmn::FileTree::SignTypeOf(item->Text()));
        const std::vector<std::string> names =
            tree.filter.palettes ? std::vector<std::string>() : signs.NamesOf(signType);
        table.Add({signType, Joined(names)});
        QJsonArray nameArray;
        for (const std::string& name : names) {
            nameArray.append(ToQt(name));
        }
        array.append(QJsonObject{
            {QStringLiteral("signType"), ToQt(signType)},
            {QStringLiteral("path"), ToQt(k4cmn::SignTypeFolder(place.where.server, signType))},
            {QStringLiteral("signs"), nameArray}});
    }
    answer.json.insert(QStringLiteral("signTypes"), array);
    if (table.IsEmpty()) {
        answer.Say("No signs");
    } else {
        answer.Say(table);
    }
    if (!m_options.types.empty()) {
        const std::vector<ListedFile> files = m_options.FilesAt(place.where);
        answer.text += files.empty() ? "" : "\n";
        ListFiles(files, place.where, answer);
    }
}

void StoreListCommand::ListSignType(const StorePlace& place, Answer& answer) const {
    k4cmn::FileTree tree;
    FileTreeItem* const server = tree.AddServerItem(0, place.where.server);
    FileTreeItem* const signType = tree.AddSignTypeItem(*server, place.where.signType);
    tree.AddAllLibraryItems(*signType);
    tree.Collapse(*signType);  // sorts
    QJsonArray array;
    for (const FileTreeItem* item : RealChildren(*signType)) {
        answer.Say(item->Text());
        array.append(QJsonObject{
            {QStringLiteral("library"), ToQt(item->Text())},
            {QStringLiteral("path"),
             ToQt(k4cmn::LibraryFolder(place.where.server, place.where.signType, item->Text()))}});
    }
    if (array.isEmpty()) {
        answer.Say("No Libraries");
    }
    answer.json.insert(QStringLiteral("libraries"), array);
}

void StoreListCommand::ListFiles(const std::vector<ListedFile>& files, const FileLocation& where,
                                 Answer& answer) const {
    Table table({{"FILE"}, {"SIZE", Table::Align::Right}, {"TYPE"}, {"MODIFIED"}});
    QJsonArray array;
    FileLocation place = where;
    for (const ListedFile& file : files) {
        table.Add({file.name, file.texts[FileRows::kSize], file.texts[FileRows::kType],
                   file.texts[FileRows::kModified]});
        place.file = file.row.name;
        place.fileExtension = file.extension;
        QJsonObject object =
            FileJson(place.Path(), file.row.size, file.texts[FileRows::kType], file.row.modified);
        object.insert(QStringLiteral("file"), ToQt(file.name));
        array.append(object);
    }
    if (!table.IsEmpty()) {
        answer.Say(table);
    }
    answer.json.insert(QStringLiteral("files"), array);
}

void StoreListCommand::ListNamedFiles(const std::vector<StorePlace>& places, Answer& answer) const {
    std::vector<ListedFile> files = m_options.FilesAt(places.front().where);
    std::vector<std::string> names;
    for (const StorePlace& place : places) {
        names.push_back(place.where.file + "." + place.where.fileExtension);
    }
    std::sort(names.begin(), names.end());
    std::erase_if(files, [&](const ListedFile& file) {
        return !std::binary_search(names.begin(), names.end(), file.name);
    });
    ListFiles(files, places.front().where, answer);
}

}  // namespace k4ctl

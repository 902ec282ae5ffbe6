#include "apps/k4ctl/store/StoreTreeCommand.h"

#include <CLI/CLI.hpp>
#include <QJsonArray>

#include "apps/k4ctl/Arguments.h"
#include "apps/k4ctl/sequence/OptionWords.h"
#include "apps/k4ctl/store/Readable.h"
#include "k4cmndlg/frame/Text.h"

namespace k4ctl {
namespace {

using k4cmn::FileTree;
using k4cmn::FileTreeItem;

int ParseDepth(const std::string& text, int& depth, std::string& problem) {
    std::int64_t number = 0;
    if (!ParseNumber(text, 1, StoreTreeCommand::kLevels, number, problem)) {
        return 0;
    }
    depth = static_cast<int>(number);
    return 1;
}

/// What an item stands for.
StorePlace PlaceOf(const FileTreeItem& item) {
    StorePlace place;
    const FileTreeItem* const above = item.Parent();
    if (!above) {
        place.where.server = item.Text();
        return place;
    }
    place = PlaceOf(*above);
    if (place.kind == StorePlace::Kind::Server) {
        place.kind = StorePlace::Kind::SignType;
        place.where.signType = FileTree::SignTypeOf(item.Text());
    } else {
        place.kind = StorePlace::Kind::Library;
        place.where.library = item.Text();
    }
    return place;
}

/// The tree below an item, opened level by level.
class Branches {
 public:
    Branches(FileTree& tree, Answer& answer) : m_tree(tree), m_answer(answer) {}

    /// Writes what stands below an item, and gives the same for machines.
    /// @param item null: the servers. @param lead what stands before each line.
    QJsonArray Add(FileTreeItem* item, int depth, const std::string& lead) {
        QJsonArray array;
        if (depth == 0 || (item && !Open(*item))) {
            return array;
        }
        const auto& children = item ? item->Children() : m_tree.Root().Children();
        for (std::size_t at = 0; at < children.size(); ++at) {
            FileTreeItem& child = *children[at];
            const bool isLast = at + 1 == children.size();
            m_answer.Say(lead + (isLast ? "└── " : "├── ") + child.Text());
            if (child.Image() == k4cmn::kNoticeImage) {
                continue;
            }
            const StorePlace place = PlaceOf(child);
            QJsonObject object{{QStringLiteral("text"), k4cmn::ToQt(child.Text())},
                               {QStringLiteral("path"), k4cmn::ToQt(place.Path())}};
            if (depth > 1 && place.kind != StorePlace::Kind::Library) {
                object.insert(QStringLiteral("below"),
                              Add(&child, depth - 1, lead + (isLast ? "    " : "│   ")));
            }
            array.append(object);
        }
        return array;
    }

 private:
    bool Open(FileTreeItem& item) {
        if (!CanRead(PlaceOf(item), m_answer)) {
            return false;
        }
        m_tree.Expand(item);
        return true;
    }

    FileTree& m_tree;
    Answer& m_answer;
};

}  // namespace

CommandText StoreTreeCommand::Text() const {
    return {"store tree", "Show the tree of servers, sign types and libraries",
            "  k4ctl store tree\n"
            "  k4ctl store tree A: --depth 1\n"
            "  k4ctl store tree --palettes --json\n"};
}

void StoreTreeCommand::AddArguments(CLI::App& app) {
    app.add_option("PLACE", m_place, "The server or sign type to begin with; without it all");
    AddParsed(app, "--depth", "N", ParseDepth, m_depth, "Show N levels, 1 to 3; without it all");
    app.add_flag("--palettes", m_palettes, "Sign types of palettes instead of the others");
}

void StoreTreeCommand::Do(StoreSession& session) const {
    Answer& answer = session.answer;
    FileTree tree;
    tree.filter.palettes = m_palettes;
    FileTreeItem* item = nullptr;
    if (m_place.empty()) {
        if (!tree.AddAllServerItems()) {
            answer.Fail(ExitCode::Refused, "The servers of this system can't be read.");
        }
    } else {
        answer.json.insert(QStringLiteral("place"), k4cmn::ToQt(m_place));
        const auto place = session.Find(m_place);
        if (!place) {
            return;
        }
        if (place->kind == StorePlace::Kind::Library || place->kind == StorePlace::Kind::File) {
            answer.Fail(ExitCode::Refused, "\"" + m_place + "\" is " + place->KindText() +
                                               ", below which the tree "
                                               "has nothing.");
            return;
        }
        tree.AddAllServerItems();
        item = tree.FindServer(place->where.server);
        if (place->kind == StorePlace::Kind::SignType) {
            item = tree.AddSignTypeItem(*item, place->where.signType);
            // What isn't opened yet has something below it.
            tree.AddLibraryItem(*item, {});
        }
        answer.Say(place->Path());
    }
    answer.json.insert(QStringLiteral("tree"), Branches(tree, answer).Add(item, m_depth, {}));
}

}  // namespace k4ctl

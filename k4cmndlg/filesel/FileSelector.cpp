#include "k4cmndlg/filesel/FileSelector.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"

namespace k4cmn {

namespace {

constexpr char kTreeRightEdgeKey[] = "Tree Right Edge";
constexpr std::size_t kMaxStoredText = 260;
constexpr char kFileManagerTitle[] = "K4File";
constexpr char kPalettes[] = "SP4";

std::string StoredText(const CK4Registry& key, const char* name) {
    std::string text;
    key.GetRegistryString(name, &text);
    return CharacterCount(text) <= kMaxStoredText ? text : std::string();
}

}  // namespace

/// Passes on what the tree tells, and fills the list when another item is selected.
class FileSelector::TreeWatch final : public FileTreeView {
 public:
    TreeWatch(FileSelector& selector, FileSelectorView& view)
        : m_selector(selector), m_view(view) {}

    void AboutToChange(const FileTreeItem& parent) override { m_view.AboutToChange(parent); }
    void Changed(const FileTreeItem& parent) override { m_view.Changed(parent); }
    void SelectionChanged() override {
        m_view.SelectionChanged();
        m_selector.ShowFilesList();
    }
    void MarkChanged() override { m_view.MarkChanged(); }
    const FileTreeItem* FirstVisible() const override { return m_view.FirstVisible(); }

 private:
    FileSelector& m_selector;
    FileSelectorView& m_view;
};

// Construction and the registry --------------------------------------------------------------

FileSelector::FileSelector(const char* path, ConnectedEntries* entries)
    : m_tree(entries ? entries : &m_remoteEntries),
      m_extensions(kExtensionsBeforeOpening.begin(), kExtensionsBeforeOpening.end()) {
    ReadRegistry(path);
}

FileSelector::~FileSelector() {
    m_tree.SetView(nullptr);
}

void FileSelector::SetView(FileSelectorView& view) {
    m_view = &view;
    m_watch = std::make_unique<TreeWatch>(*this, view);
    m_tree.SetView(m_watch.get());
}

void FileSelector::ReadRegistry(const char* path) {
    CK4Registry key;
    if (!key.OpenUserRegistryKey(kFileLocationsKey, kPreviousSelectionKey))
        return;
    if (path) {
        m_requestedPath = path;
    } else {
        for (const FileLocationField& field : kFileLocationFields)
            m_place.*field.field = StoredText(key, field.key);
        // In the form of a library, whatever is kept.
        m_requestedPath = LibraryFolder(m_place) + m_place.file + "." + m_place.fileExtension;
    }
    key.GetRegistryDword(kTreeRightEdgeKey, &m_treeRightEdge);
}

void FileSelector::SaveRegistry() const {
    CK4Registry key;
    if (!key.CreateUserRegistryKey(kFileLocationsKey, kPreviousSelectionKey))
        return;
    for (const FileLocationField& field : kFileLocationFields)
        key.SetRegistryString(field.key, m_place.*field.field);
}

void FileSelector::SaveTreeRightEdge() const {
    CK4Registry key;
    if (key.CreateUserRegistryKey(kFileLocationsKey, kPreviousSelectionKey))
        key.SetRegistryDword(kTreeRightEdgeKey, &m_treeRightEdge);
}

// Before opening -----------------------------------------------------------------------------

int FileSelector::SetSignParams(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                                tag_K4_PIXEL_TECH pixel, int palette, Prompt& prompt) {
    const std::vector<std::string> problems = SignSizeMessages(rows, columns, m_signColumns);
    for (const std::string& problem : problems)
        prompt.Ask(PlainMessage(problem));
    if (!problems.empty())
        return 0;
    m_signRows = rows;
    m_signColumns = columns;
    m_signColor = color;
    m_signPixel = pixel;
    const std::string signType = CK4Files().BuildSign(rows, columns, color, pixel, palette);
    if (m_requestedPath.find(signType) == std::string::npos)
        m_requestedPath.clear();
    return 1;
}

// Opening ------------------------------------------------------------------------------------

void FileSelector::Open(Prompt& prompt) {
    m_mode = m_requestedMode;
    m_lastModifiedIndex = -1;
    if (m_mode == K4_FILE_NEW)
        m_place.file.clear();
    if (m_mode == K4_FILE_MANAGER)
        m_view->ShowTitle(kFileManagerTitle);
    if (!m_requestedPath.empty())
        m_place =
            TakeApartPath(m_requestedPath, m_extensions, m_requestedType, m_place.fileExtension);
    RebuildExtensions();
    if (m_tree.filter.onlyCurrent)
        StartFilter(prompt);

    m_view->ShowFields(Fields());
    FillTreeListCtrls(m_place.server, m_place.signType, m_place.library, m_place.file);
    m_view->ShowFilter(m_tree.filter.onlyCurrent);
    FileSelectorFields fields = Fields();
    fields.lastModifiedIndex = kAnyTime;
    if (m_mode == K4_FILE_NEW)
        fields.fileName.clear();
    m_view->ShowFields(fields);
}

void FileSelector::RebuildExtensions() {
    const tag_K4_FILE_TYPE type = KnownFileType(m_requestedType);
    m_extensions = ExtensionsOf(type);
    if (type == K4_FILE_TYPE_ALL) {
        const auto kept =
            std::find(m_extensions.begin(), m_extensions.end(), m_place.fileExtension);
        if (kept != m_extensions.end())
            m_fileTypeIndex = static_cast<int>(kept - m_extensions.begin());
    } else if (!KeepsFileTypesCombo(type)) {
        m_view->ShowFileTypes(PluralNamesOf(type));
        m_fileTypeIndex = 0;
    }
    const auto index = static_cast<std::size_t>(m_fileTypeIndex);
    m_tree.filter.palettes = index < m_extensions.size() && m_extensions[index] == kPalettes;
}

void FileSelector::StartFilter(Prompt& prompt) {
    FileTreeFilter& filter = m_tree.filter;
    if (!m_requestedPath.empty()) {
        filter.currentSign = m_place.signType;
        filter.onlyCurrent = !m_place.signType.empty();
        return;
    }
    const std::vector<std::string> problems =
        SignTypeMessages(m_signRows, m_signColumns, m_signColor, m_signPixel);
    for (const std::string& problem : problems)
        prompt.Ask(PlainMessage(problem));
    filter.onlyCurrent = problems.empty();
    if (!filter.onlyCurrent)
        return;
    m_place.signType = CK4Files().BuildSign(m_signRows, m_signColumns, m_signColor, m_signPixel,
                                            filter.palettes ? 1 : 0);
    filter.currentSign = m_place.signType;
}

FileSelectorFields FileSelector::Fields() const {
    return {m_fileTypeIndex, m_place.file, m_lastModifiedIndex};
}

int FileSelector::ReadControls() {
    FileSelectorFields fields = Fields();
    if (!m_view->ReadControls(fields))
        return 0;
    m_fileTypeIndex = fields.fileTypeIndex;
    m_lastModifiedIndex = fields.lastModifiedIndex;
    m_place.file = std::move(fields.fileName);
    return 1;
}

}  // namespace k4cmn

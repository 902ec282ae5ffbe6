#include "k4cmndlg/filestore/FileTypes.h"

#include <algorithm>

namespace k4cmn {

namespace {

struct KindRow {
    std::string_view extension;
    std::string_view plural;
    std::string_view typeName;
};

constexpr std::string_view kUnknown = "Unknown";

// One row a kind of file, in the order of the types everywhere.
// clang-format off
constexpr std::array<KindRow, 7> kKinds{{
    {"SQ4", "Sequences",      "K4400 Seq"},
    {"SD4", "Schedules",      "K4400 Sched"},
    {"SC4", "Scripts",        "K4400 Script"},
    {"SEQ", "K3300 Seq's",    "K3300 Seq"},
    {"DL4", "DownLoad files", "K4400 DownLoad"},
    {"SP4", "Palette files",  "K4400 Palette"},
    {"AVI", "AVIs",           kUnknown},
}};

struct TypeRow {
    tag_K4_FILE_TYPE value;
    std::string_view kinds;    ///< the kinds that it offers, as digits: positions in kKinds
    std::string_view plurals;  ///< those of them that the combo box names
};

constexpr std::array<TypeRow, 10> kTypes{{
    {K4_FILE_TYPE_SEQUENCE,         "0",       "0"},
    {K4_FILE_TYPE_SCHEDULE,         "1",       "1"},
    {K4_FILE_TYPE_SCRIPT,           "2",       "2"},
    {K4_FILE_TYPE_OLD_SEQUENCE,     "3",       "3"},
    {K4_FILE_TYPE_DOWNLOAD,         "4",       "4"},
    {K4_FILE_TYPE_PALETTE,          "5",       "5"},
    {K4_FILE_TYPE_SEQUENCE_PALETTE, "05",      "05"},
    {K4_FILE_TYPE_ALL,              "0123456", "012345"},
    {K4_FILE_TYPE_NONE,             "",        ""},
    {K4_FILE_TYPE_SEQUENCE_AVI,     "06",      "06"},
}};
// clang-format on

const TypeRow& RowOf(tag_K4_FILE_TYPE type) {
    return kTypes[static_cast<std::size_t>(KnownFileType(type))];
}

std::vector<std::string> Texts(std::string_view kinds, std::string_view KindRow::*text) {
    std::vector<std::string> texts;
    for (const char digit : kinds)
        texts.emplace_back(kKinds[static_cast<std::size_t>(digit - '0')].*text);
    return texts;
}

std::string_view TypeNameWhere(std::string_view KindRow::*column, std::string_view text) {
    const auto row = std::find_if(kKinds.begin(), kKinds.end(),
                                  [&](const KindRow& kind) { return kind.*column == text; });
    return row == kKinds.end() ? kUnknown : row->typeName;
}

}  // namespace

tag_K4_FILE_TYPE KnownFileType(std::int32_t value) {
    const bool isKnown = value >= 0 && value <= K4_FILE_TYPE_SEQUENCE_AVI;
    return isKnown ? static_cast<tag_K4_FILE_TYPE>(value) : K4_FILE_TYPE_NONE;
}

std::vector<std::string> ExtensionsOf(tag_K4_FILE_TYPE type) {
    return Texts(RowOf(type).kinds, &KindRow::extension);
}

std::vector<std::string> PluralNamesOf(tag_K4_FILE_TYPE type) {
    return Texts(RowOf(type).plurals, &KindRow::plural);
}

bool KeepsFileTypesCombo(tag_K4_FILE_TYPE type) {
    return KnownFileType(type) == K4_FILE_TYPE_NONE;
}

std::string_view TypeNameOfPlural(std::string_view plural) {
    return TypeNameWhere(&KindRow::plural, plural);
}

std::string_view TypeNameOfExtension(std::string_view extension) {
    return TypeNameWhere(&KindRow::extension, extension);
}

bool LiesAtServerRoot(std::string_view extension) {
    return extension == "SC4" || extension == "DL4";
}

}  // namespace k4cmn

#include "tests/search/GeneratedStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "suite/sequence/SequenceHead.h"
#include "suite/sequence/SequenceWriter.h"
#include "tests/support/TempFolder.h"

namespace k4test {

namespace fs = std::filesystem;

namespace {

using Texts = std::vector<std::string>;

const Texts kSignTypes{"16x80.Mono1.LED",
                       "16x80.Mono1.LED.Palette",
                       "116x80.Mono1.LED",
                       "16x80.mono1.led",
                       "7x16.Mono1.Incand",
                       "48x160.Quad16.Incand",
                       "a.b.c",
                       "x..y",
                       "Gr\u00f6\u00dfe.\u0416\u0443\u043a.3",
                       "two.dots",
                       "plain",
                       ".be.gins.dotted",
                       "back\\slash.b.c"};
const Texts kSignEndings{".Sign", ".Sign", ".Sign", ".Sign", ".Sign", ".Sign",
                         ".Sign", ".Sign", ".Sign", ".SIGN", ".sign", ".Sign.bak"};
const Texts kLibraries{"Default", "default",    "Summer",  "summer sale",
                       "a.b",     "Winter.Lib", ".hidden", "\u00c4\u00d6"};
const Texts kLibraryEndings{".Lib", ".Lib", ".Lib", ".Lib", ".Lib",
                            ".Lib", ".Lib", ".LIB", ".lib", ""};
const Texts kNames{"Alpha",        "alpha",        "beta",
                   "Gamma ray",    " lead",        "trail ",
                   "a.b",          "x.y.z",        "",
                   "ab",           "abab",         "ABcAB",
                   "aaa",          "abc",          "Gr\u00f6\u00dfe",
                   "\u00c4\u00d6", "\u00e4\u00f6", "\u0416\u0443\u043a",
                   "\u4e2d\u6587", "*star",        "what?",
                   "[x]",          "%s%n",         "new\nline",
                   "..x",          "-rf",          "16x80.Mono1.LED",
                   "back\\slash",  "bad\xff",      "cut\xc3",
                   ".hidden",      ".k4copy-1",    std::string(250, 'l')};
const Texts kExtensions{".SQ4", ".SQ4", ".SQ4", ".SQ4", ".sq4",  ".Sq4", ".SD4", ".SD4",
                        ".sd4", ".SC4", ".Sc4", ".SEQ", ".seq",  ".DL4", ".SP4", ".TXT",
                        ".x",   "",     ".SQ",  ".",    ".SQ44", ".bak"};
const Texts kWords{"summer",
                   "Summer",
                   "SALE",
                   "sale!",
                   "Gr\u00fcn",
                   "gr\u00dcn",
                   "\u00e9t\u00e9",
                   "\u00c9T\u00c9",
                   "a",
                   "ab",
                   "abc",
                   "x.y",
                   "\u0416\u0443\u043a",
                   "\u0436\u0443\u043a",
                   "stra\u00dfe",
                   "line\r",
                   "line",
                   "line",
                   "bad\xff",
                   "100%"};
const Texts kSeparators{";", " ", ",", "\t", "\n", "; ", ",,;", " \t\n"};

constexpr std::int64_t kDay = 86400;
/// The sizes of files, but for sequences that can be opened: no smaller than their head.
constexpr std::int64_t kSizes[] = {
    0,    1,    1023,     1024,       1025,       2047,       2048,      3071,      3072,
    5119, 5120, 6 * 1024, 33'553'407, 33'553'408, 33'554'432, 1LL << 31, 3LL << 40, 10'000'000};

std::int64_t LocalMoment(std::tm time, int days) {
    time.tm_mday += days;
    time.tm_hour = time.tm_min = time.tm_sec = 0;
    time.tm_isdst = -1;
    return std::mktime(&time);
}

/// The moments at which something changes for a search that is made now: whole days ago, the
/// beginnings of days, months and years, changes of the offset, the ends of number ranges.
std::vector<std::int64_t> Edges(std::int64_t now) {
    std::vector<std::int64_t> edges{now, 0, -1, -kDay * 10, 2147483647, 2147483648, 4102444800};
    for (const int days : {1, 2, 3, 7, 30, 31, 90, 365, 366, 999, -1, -2, -40, -400})
        edges.push_back(now - days * kDay);
    const std::time_t time = now;
    std::tm today{};
    localtime_r(&time, &today);
    for (const int days : {0, 1, -1, -2, -28, -29, -30, -31, -59, -62, -365, 30, 400})
        edges.push_back(LocalMoment(today, days));
    for (const int day : {1, 15, 28, 29, 30, 31}) {
        std::tm other = today;
        other.tm_mday = day;
        for (other.tm_mon = today.tm_mon - 14; other.tm_mon <= today.tm_mon + 1; other.tm_mon += 3)
            edges.push_back(LocalMoment(other, 0));
    }
    long offset = today.tm_gmtoff;
    for (std::time_t hour = now - 400 * kDay; hour < now + 30 * kDay; hour += 1800) {
        std::tm local{};
        localtime_r(&hour, &local);
        if (local.tm_gmtoff != offset)
            edges.insert(edges.end(), {hour, hour, hour + local.tm_gmtoff - offset});
        offset = local.tm_gmtoff;
    }
    return edges;
}

void Write(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

/// The bytes of a sequence without frames and keywords.
std::string SequenceBytes() {
    const TempFolder folder;
    const fs::path path = folder / "a.SQ4";
    k4suite::SequenceFacts facts;
    facts.rows = 7;
    facts.columns = 16;
    if (k4suite::SequenceWriter writer(path, facts); !writer.Finish())
        throw std::runtime_error(writer.Problem());
    return folder.Read("a.SQ4");
}

}  // namespace

GeneratedStore::GeneratedStore(const fs::path& home, std::uint32_t seed, std::int64_t now)
    : m_random(seed), m_edges(Edges(now)) {
    const Texts texts{"A:", "B:", "\\\\HOST\\SHARE", (home / "stores" / "native").string()};
    const fs::path natives[] = {home / "drives/A", home / "drives/B", home / "network/HOST/SHARE",
                                home / "stores/native"};
    const std::size_t count = 1 + Pick(texts.size());
    for (std::size_t i = 0; i < count; ++i)
        MakeServer(texts[i], natives[i]);
    configured = servers;
    if (OneOf(3))
        configured.emplace_back("Q:");
    if (OneOf(3))
        configured.emplace_back("a:");
    if (OneOf(4))
        configured.push_back(servers.front());
    if (OneOf(3))
        configured.erase(configured.begin());
    std::shuffle(configured.begin(), configured.end(), m_random);
    Forbid();
}

std::string GeneratedStore::SomeKeywords(std::mt19937& random) {
    std::string text = random() % 4 == 0 ? kSeparators[random() % kSeparators.size()] : "";
    for (std::size_t count = random() % 4; count > 0; --count)
        text += kWords[random() % kWords.size()] + kSeparators[random() % kSeparators.size()];
    return text;
}

void GeneratedStore::MakeServer(const std::string& server, const fs::path& native) {
    fs::create_directories(native);
    servers.push_back(server);
    for (std::size_t count = 3 + Pick(4); count > 0; --count)
        MakeSignType(native, kSignTypes[Pick(OneOf(3) ? 3 : kSignTypes.size())]);
    MakeFile(native);
    Write(native / "file.b.c.Sign", "no folder");
    MakeLink(native, "link.b.c.Sign");
    m_folders.push_back(native);
}

void GeneratedStore::MakeSignType(const fs::path& server, const std::string& type) {
    const fs::path folder = server / (type + kSignEndings[Pick(kSignEndings.size())]);
    fs::create_directory(folder);
    m_folders.push_back(folder);
    for (std::size_t count = 1 + Pick(3); count > 0; --count) {
        const std::string library = kLibraries[Pick(kLibraries.size())];
        places.push_back({servers.back(), type, library});
        MakeLibrary(folder / (library + kLibraryEndings[Pick(kLibraryEndings.size())]));
    }
    MakeFile(folder);
    if (OneOf(3))
        MakeLink(folder, "Linked.Lib");
}

void GeneratedStore::MakeLibrary(const fs::path& folder) {
    fs::create_directory(folder);
    m_folders.push_back(folder);
    for (std::size_t count = 2 + Pick(10); count > 0; --count)
        MakeFile(folder);
    if (OneOf(5)) {
        fs::create_directories(folder / "Folder.SQ4");
        MakeFile(folder / "Folder.SQ4");
    }
    if (OneOf(5))
        MakeLink(folder, "link.SQ4");
}

void GeneratedStore::MakeFile(const fs::path& folder) {
    std::string extension = kExtensions[Pick(kExtensions.size())];
    std::string name = kNames[Pick(kNames.size())];
    name += extension;
    const fs::path path = folder / name;
    if (name.empty() || name == "." || name == ".." || name.size() > 255 || fs::exists(path))
        return;
    files.push_back(name);
    const bool isSequence = extension == ".SQ4" || extension == ".sq4" || extension == ".Sq4";
    if (isSequence && !OneOf(6))
        MakeSequence(path);
    else
        MakeOther(path);
    SetTime(path);
    m_made.push_back(path);
}

void GeneratedStore::MakeSequence(const fs::path& path) {
    // The writer waits for the disk: it makes one of them.
    static const std::string made = SequenceBytes();
    std::string bytes = made;
    keywords[path] = SomeKeywords(m_random);
    bytes.replace(offsetof(k4suite::SequenceHead, keywords), keywords[path].size(), keywords[path]);
    Write(path, bytes);
    const std::int64_t size = kSizes[Pick(std::size(kSizes))];
    if (size > static_cast<std::int64_t>(bytes.size()))
        fs::resize_file(path, static_cast<std::uintmax_t>(size));
}

void GeneratedStore::MakeOther(const fs::path& path) {
    if (OneOf(12) && mkfifo(path.c_str(), 0666) == 0)
        return;
    Write(path, "RIFF, or not");
    fs::resize_file(path, static_cast<std::uintmax_t>(kSizes[Pick(std::size(kSizes))]));
}

void GeneratedStore::MakeLink(const fs::path& folder, const std::string& name) {
    const fs::path path = folder / name;
    if (fs::is_symlink(path))
        return;
    const bool toFolder = !name.ends_with(".SQ4");
    const auto& targets = toFolder ? m_folders : m_made;
    if (OneOf(4) || targets.empty())
        fs::create_symlink(OneOf(2) ? "nowhere" : name.c_str(), path);
    else
        fs::create_symlink(targets[Pick(targets.size())], path);
    files.push_back(name);
}

void GeneratedStore::SetTime(const fs::path& path) {
    const std::int64_t edge = m_edges[Pick(m_edges.size())];
    const std::int64_t time = edge + static_cast<std::int64_t>(Pick(3)) - 1 +
                              (OneOf(4) ? static_cast<std::int64_t>(Pick(7200)) - 3600 : 0);
    const timespec set[2] = {{time, 0}, {time, OneOf(2) ? 999'999'999 : 0}};
    if (utimensat(AT_FDCWD, path.c_str(), set, 0) != 0)
        throw std::runtime_error(path.string());
    times.push_back(time);
}

void GeneratedStore::Forbid() {
    if (!OneOf(3))
        return;
    // Nobody may read a file or two, and list or enter a folder or two.
    for (std::size_t count = 1 + Pick(2); count > 0 && !m_made.empty(); --count) {
        const fs::path& file = m_made[Pick(m_made.size())];
        fs::permissions(file, fs::perms::none);
        keywords.erase(file);
    }
    const fs::perms some[] = {fs::perms::none, fs::perms::owner_read, fs::perms::owner_exec};
    for (std::size_t count = 1 + Pick(2); count > 0; --count)
        fs::permissions(m_folders[Pick(m_folders.size())], some[Pick(3)]);
}

}  // namespace k4test

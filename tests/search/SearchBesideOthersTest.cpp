#include <atomic>
#include <set>
#include <thread>

#include "tests/search/SearchTroubleFixture.h"

// Searches while somebody else changes the store.

namespace {

namespace fs = std::filesystem;
using k4cmn::SearchCriteria;
using k4cmn::SearchMode;

constexpr int kLibraries = 4;
constexpr int kFiles = 12;
constexpr int kSearches = 60;

class SearchBesideOthers : public k4test::SearchTroubleFixture {
 protected:
    void SetUp() override {
        SearchTroubleFixture::SetUp();
        for (int i = 0; i < kLibraries; ++i) {
            const std::string folder = Folder("A:", "Library " + std::to_string(i));
            m_folders.push_back(Native(folder));
            MakeSequence(folder + "stays.SQ4", "summer");
            m_staying.insert(folder + "stays.SQ4");
            for (int file = 0; file < kFiles; ++file)
                m_possible.insert(folder + "f" + std::to_string(file) + ".SQ4");
        }
        m_moving = Native(Folder("A:", "Library 0")).parent_path() / "Moving.Lib";
        const std::string moving = Folder("A:", "Moving");
        for (int file = 0; file < kFiles; ++file)
            m_possible.insert(moving + "f" + std::to_string(file) + ".SQ4");
        m_sequence = m_folders[0] / "stays.SQ4";
        ConfigureLocal({"A:"});
    }

    /// Makes, fills, moves and removes files and a library until it is told to stop.
    void ChangeStore(const std::atomic<bool>& isOver) const {
        std::error_code ignored;
        for (unsigned i = 0; !isOver; ++i) {
            const fs::path& folder = i % 3 ? m_folders[i % kLibraries] : m_moving;
            const fs::path& other = m_folders[i / 2 % kLibraries];
            const std::string name = "f" + std::to_string(i * 7 % kFiles) + ".SQ4";
            switch (i % 5) {
                case 0:
                    fs::create_directory(m_moving, ignored);
                    break;
                case 1:
                    fs::copy_file(m_sequence, folder / name, ignored);
                    break;
                case 2:
                    fs::rename(folder / name, other / name, ignored);
                    break;
                case 3:
                    fs::remove(folder / name, ignored);
                    break;
                default:
                    if (i % 11 == 0)
                        fs::remove_all(m_moving, ignored);
            }
        }
    }
    /// Each file that stayed is found, once, and nothing that never was.
    void ExpectSoundRows() {
        std::set<std::string> found;
        for (const k4cmn::FoundFileRow& row : list.rows) {
            EXPECT_TRUE(m_staying.count(row.path) || m_possible.count(row.path)) << row.path;
            EXPECT_EQ(row.type, 0);
            found.insert(row.path);
        }
        for (const std::string& path : m_staying)
            EXPECT_TRUE(found.count(path)) << path;
        for (const std::string& text : Told()) {
            const std::string path = text.substr(CannotOpen("").size());
            EXPECT_TRUE(m_possible.count(path)) << text;
        }
    }

    std::vector<fs::path> m_folders;
    fs::path m_moving;
    fs::path m_sequence;
    std::set<std::string> m_staying;
    std::set<std::string> m_possible;
};

TEST_F(SearchBesideOthers, FindsWhatStaysAndInventsNothing) {
    std::atomic<bool> isOver = false;
    std::thread other([&] { ChangeStore(isOver); });
    SearchCriteria byKeywords;
    byKeywords.place.server = k4cmn::kFileServers;
    byKeywords.keywords = "summer";
    for (int i = 0; i < kSearches; ++i) {
        Find(i % 2 ? Everything() : byKeywords);
        ExpectSoundRows();
        Find(i % 3 ? Everything() : byKeywords, SearchMode::Previous);
        ExpectSoundRows();
    }
    isOver = true;
    other.join();
    // All is quiet now: what is listed is what is there.
    Find(Everything());
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(home / "drives"))
        count += entry.is_regular_file();
    EXPECT_EQ(list.rows.size(), count);
    EXPECT_GE(count, m_staying.size());
}

}  // namespace

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "k4cmndlg/search/SearchPlace.h"

namespace k4test {

/// A small store of files of every kind, the same one for the same seed: sequences with keywords
/// and such as can't be opened, files of all types at the edges of every size and time, names of
/// every kind, links, pipes, and folders that nobody may read.
class GeneratedStore {
 public:
    /// @param home the data home, empty yet.
    /// @param now  when the files are to be searched; their times lie around it, in local time.
    GeneratedStore(const std::filesystem::path& home, std::uint32_t seed, std::int64_t now);

    /// What was made, for criteria to aim at. Names are without the endings of their folders.
    std::vector<std::string> servers;
    std::vector<k4cmn::SearchPlace> places;
    std::vector<std::string> files;
    std::vector<std::int64_t> times;
    /// The keywords of the sequences that can be opened, by native path.
    std::map<std::string, std::string> keywords;

    /// The servers that the settings are to name: some of those that were made, and others.
    std::vector<std::string> configured;

    /// A text of some words such as the sequences have, between separators of every kind.
    static std::string SomeKeywords(std::mt19937& random);

 private:
    std::size_t Pick(std::size_t count) { return m_random() % count; }
    bool OneOf(std::size_t count) { return Pick(count) == 0; }

    void MakeServer(const std::string& server, const std::filesystem::path& native);
    void MakeSignType(const std::filesystem::path& server, const std::string& type);
    void MakeLibrary(const std::filesystem::path& folder);
    void MakeFile(const std::filesystem::path& folder);
    void MakeLink(const std::filesystem::path& folder, const std::string& name);
    void MakeSequence(const std::filesystem::path& path);
    void MakeOther(const std::filesystem::path& path);
    void SetTime(const std::filesystem::path& path);
    void Forbid();

    std::mt19937 m_random;
    std::vector<std::int64_t> m_edges;  ///< times around which files are made
    std::vector<std::filesystem::path> m_made;
    std::vector<std::filesystem::path> m_folders;
};

}  // namespace k4test

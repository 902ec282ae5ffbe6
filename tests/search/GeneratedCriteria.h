#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "k4cmndlg/search/SearchCriteria.h"
#include "tests/search/GeneratedStore.h"

namespace k4test {

/// Criteria of every kind, that aim at what a store holds and at the edges of it.
class GeneratedCriteria {
 public:
    /// @param store must outlive the object.
    GeneratedCriteria(const GeneratedStore& store, std::uint32_t seed)
        : m_store(store), m_random(seed) {}

    k4cmn::SearchCriteria Next();
    /// Others, for what a search before them left.
    k4cmn::SearchCriteria NextToNarrow();

 private:
    std::size_t Pick(std::size_t count) { return m_random() % count; }
    bool OneOf(std::size_t count) { return Pick(count) == 0; }
    template <class List>
    auto Any(const List& list) {
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(Pick(std::size(list))));
    }

    k4cmn::SearchPlace Place();
    void AddRest(k4cmn::SearchCriteria& criteria);
    std::string FileName();
    /// A piece of some file's name.
    std::string Piece();
    /// Pieces of some file's name, in their order; one may begin inside the one before it.
    std::string OverlappingPieces();
    std::string Keywords();
    std::string OtherCase(const std::string& text);
    void AddSign(k4cmn::SearchCriteria& criteria);
    void AddSize(k4cmn::SearchCriteria& criteria);
    void AddDate(k4cmn::SearchCriteria& criteria);
    k4cmn::CalendarDay Day();

    const GeneratedStore& m_store;
    std::mt19937 m_random;
};

/// Criteria as people read them, one thing a line.
std::string CriteriaText(const k4cmn::SearchCriteria& criteria);

}  // namespace k4test

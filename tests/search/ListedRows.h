#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/search/SearchSink.h"

namespace k4test {

/// A list of found files as the search sees it: in ascending order of the names, equal ones in the
/// order of their adding.
class ListedRows final : public k4cmn::SearchSink {
 public:
    std::vector<k4cmn::FoundFileRow> rows;

    std::vector<std::string> Paths() const override {
        std::vector<std::string> paths;
        for (const k4cmn::FoundFileRow& row : rows)
            paths.push_back(row.path);
        return paths;
    }
    void Clear() override { rows.clear(); }
    void Add(std::vector<k4cmn::FoundFileRow> more) override {
        std::move(more.begin(), more.end(), std::back_inserter(rows));
        std::stable_sort(rows.begin(), rows.end(), [](const auto& one, const auto& other) {
            return k4cmn::IsLessWithoutCase(one.name, other.name);
        });
    }
};

}  // namespace k4test

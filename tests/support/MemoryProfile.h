#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/frame/contracts/Profile.h"

namespace k4test {

/// A profile that lives in memory and counts what is asked of it. One thread.
class MemoryProfile final : public k4cmn::Profile {
 public:
    std::map<std::pair<std::string, std::string>, std::string> values;  ///< by section and name
    std::vector<std::string> reads;   ///< "section|name", in order
    std::vector<std::string> writes;  ///< "section|name", in order
    bool failWrites = false;

    std::string GetString(const std::string& section, const std::string& name,
                          const std::string& fallback) override {
        reads.push_back(section + "|" + name);
        const auto found = values.find({section, name});
        return found == values.end() ? fallback : found->second;
    }

    int WriteString(const std::string& section, const std::string& name,
                    const std::string& text) override {
        writes.push_back(section + "|" + name);
        if (failWrites)
            return 0;
        values[{section, name}] = text;
        return 1;
    }
};

}  // namespace k4test

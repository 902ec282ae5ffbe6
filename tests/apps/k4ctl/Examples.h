#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "apps/k4ctl/CommandLine.h"

namespace k4test {

using Words = std::vector<std::string>;

/// The words of a line as a shell splits it, as far as the examples need it: both kinds of quotes,
/// and backslashes that stand for themselves.
inline Words ShellWords(const std::string& line) {
    Words words;
    char quote = 0;
    bool inWord = false;
    for (const char each : line) {
        if (quote ? each == quote : each == '"' || each == '\'') {
            quote = quote ? '\0' : each;
            inWord = inWord || (words.emplace_back(), true);
        } else if (!quote && each == ' ') {
            inWord = false;
        } else {
            inWord = inWord || (words.emplace_back(), true);
            words.back() += each;
        }
    }
    return words;
}

/// The lines of a text that call the program, each as its arguments; what stands behind three
/// blanks explains the line.
inline std::vector<Words> Examples(const std::string& text, const std::string& indent) {
    std::vector<Words> examples;
    const std::string start = indent + "k4ctl ";
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(start))
            examples.push_back(ShellWords(
                line.substr(start.size(), line.find("   ", start.size()) - start.size())));
    }
    return examples;
}

/// Expects that the program understands each of the examples.
/// @param further makes the commands beside those on signs; null where there are none.
inline void ExpectUnderstood(
    const std::vector<Words>& examples,
    const std::function<std::vector<std::unique_ptr<k4ctl::Command>>()>& further) {
    for (const Words& example : examples) {
        std::ostringstream out;
        std::ostringstream err;
        const k4ctl::Invocation invocation =
            k4ctl::ParseCommandLine(example, out, err, further ? further() : decltype(further()){});
        EXPECT_EQ(invocation.code, k4ctl::ExitCode::Done)
            << testing::PrintToString(example) << err.str();
        EXPECT_TRUE(invocation.command || !out.str().empty()) << testing::PrintToString(example);
    }
}

}  // namespace k4test

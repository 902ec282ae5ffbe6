#pragma once

#include <CLI/CLI.hpp>
#include <cstddef>
#include <string>

#include "apps/k4ctl/Names.h"

namespace k4ctl {

/// Declares an option whose word becomes a value by one of the Parse operations; a word that can't
/// be read ends the parsing with "OPTION: PROBLEM".
template <class Value>
CLI::Option* AddParsed(CLI::App& app, const char* option, const char* typeName,
                       int (*parse)(const std::string&, Value&, std::string&), Value& value,
                       const char* text) {
    return app
        .add_option_function<std::string>(
            option,
            [option, parse, &value](const std::string& word) {
                std::string problem;
                if (!parse(word, value, problem)) {
                    throw CLI::ValidationError(option, problem);
                }
            },
            text)
        ->type_name(typeName);
}

/// A word as its index in a list of words, as the operations of Arguments.h do it.
/// @param thing what one of them is, for the problem: "column".
template <class Words>
int ParseWord(const std::string& text, const Words& words, const char* thing, int& value,
              std::string& problem) {
    std::string all;
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (SameWord(text, words[index])) {
            value = static_cast<int>(index);
            return 1;
        }
        all += (index == 0                  ? ""
                : index + 1 == words.size() ? " and "
                                            : ", ") +
               std::string(words[index]);
    }
    problem = "\"" + text + "\" is no " + thing + "; they are " + all;
    return 0;
}

}  // namespace k4ctl

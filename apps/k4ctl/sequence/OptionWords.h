#pragma once

#include <CLI/CLI.hpp>
#include <string>

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

}  // namespace k4ctl

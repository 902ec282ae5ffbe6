#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "suite/platform/FileOperationUi.h"

namespace k4test {

/// Answers the questions of file operations by a script and records all that it was told. Without
/// an answer left it says Cancel.
class ScriptedFileUi final : public k4suite::FileOperationUi {
 public:
    struct Step {
        std::uint64_t done;
        std::uint64_t total;
        std::string name;

        bool operator==(const Step&) const = default;
    };

    std::deque<k4suite::FileAnswer> answers;
    std::vector<k4suite::FileQuestion> questions;
    std::vector<std::string> begun;
    std::vector<Step> steps;
    int ended = 0;
    std::function<bool(const Step&)> goOn;  ///< without one, always

    k4suite::FileAnswer Confirm(const k4suite::FileQuestion& question) override {
        questions.push_back(question);
        if (answers.empty())
            return k4suite::FileAnswer::Cancel;
        const k4suite::FileAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void Begin(const std::string& title) override { begun.push_back(title); }
    bool Progress(std::uint64_t done, std::uint64_t total, const std::string& name) override {
        steps.push_back({done, total, name});
        return !goOn || goOn(steps.back());
    }
    void End() override { ++ended; }
};

}  // namespace k4test

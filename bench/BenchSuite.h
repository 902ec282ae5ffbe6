#pragma once

#include <unistd.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "suite/EmbeddedSuite.h"
#include "suite/sample/SampleData.h"

namespace k4bench {

/// The embedded suite over a seeded data home of its own, which is gone with the object.
class BenchSuite {
 public:
    BenchSuite()
        : m_folder(std::filesystem::temp_directory_path() /
                   ("k4bench-" + std::to_string(getpid()))) {
        const k4suite::DataHome home(m_folder);
        std::string problem;
        if (!k4suite::SeedSampleData(home, &problem))
            throw std::runtime_error(problem);
        m_suite = std::make_unique<k4suite::EmbeddedSuite>(home, "bench");
    }
    ~BenchSuite() {
        m_suite.reset();
        std::error_code ignored;  // nothing measured depends on it
        std::filesystem::remove_all(m_folder, ignored);
    }
    BenchSuite(const BenchSuite&) = delete;
    BenchSuite& operator=(const BenchSuite&) = delete;

 private:
    std::filesystem::path m_folder;
    std::unique_ptr<k4suite::EmbeddedSuite> m_suite;
};

}  // namespace k4bench

// A fresh folder under the system's temporary folder, removed with everything in it at the end.
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

struct TemporaryFolder {
    TemporaryFolder() { std::filesystem::create_directories(path); }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("varcfg-test-" + std::to_string(std::random_device()()));
};

#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

/** A file that is gone at the end of the test; its path is its own among tests that run at the same time. */
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& content, const std::string& name = "data.csv")
        : m_path(std::filesystem::path(testing::TempDir()) /
                 ("kx_" + std::to_string(getpid()) + '_' + std::to_string(++s_count) + '_' + name))
    {
        std::ofstream(m_path, std::ios::binary) << content;
    }
    ~TemporaryFile() { std::filesystem::remove(m_path); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    std::string getPath() const { return m_path.string(); }

private:
    static inline int s_count = 0;

    std::filesystem::path m_path;
};

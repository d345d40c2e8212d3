#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

/** A database server of its own, on the loopback address and in a temporary folder, from construction to
 * destruction. The server refuses to run as root; a root test runs it as the user "postgres" or "nobody". */
class PostgresqlServer {
public:
    PostgresqlServer();
    ~PostgresqlServer();
    PostgresqlServer(const PostgresqlServer&) = delete;
    PostgresqlServer& operator=(const PostgresqlServer&) = delete;

    /** @return why it does not run, empty when it does */
    const std::string& getProblem() const { return m_problem; }
    std::string getConnection() const;

private:
    std::string _findPrograms() const;
    pid_t _start(const std::vector<std::string>& command) const;
    bool _run(const std::vector<std::string>& command) const;
    void _waitForServer();

    std::string m_problem;
    std::filesystem::path m_folder;
    std::uint16_t m_port = 0;
    pid_t m_server = -1;
};

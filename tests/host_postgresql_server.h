#pragma once

#include "host_child_process.h"

#include <csignal>
#include <sstream>

/** A database server of its own on the loopback address, from construction to destruction, made and removed
 * by the tool that PostgreSQL's packages have for tests. */
class PostgresqlServer {
public:
    PostgresqlServer()
    {
        const std::vector<std::string> lines = m_tool.readTo("ready ");
        std::istringstream last(lines.empty() ? "" : lines.back());
        std::string word, port, user, password;
        if (!(last >> word >> m_sleeper >> port >> user >> password) || word != "ready")
            return;
        m_address = user + ':' + password + "@localhost:" + port;
        m_connection = "postgresql://host=localhost port=" + port + " user=" + user +
                       " password=" + password + " dbname=postgres";
    }
    ~PostgresqlServer()
    {
        if (m_sleeper > 0 && kill(m_sleeper, SIGTERM) == 0)
            m_tool.hasEnded();
    }
    PostgresqlServer(const PostgresqlServer&) = delete;
    PostgresqlServer& operator=(const PostgresqlServer&) = delete;

    /** @return how to connect to the server, empty where there is none */
    const std::string& getConnection() const { return m_connection; }
    /** @return the same in every other form */
    std::vector<std::string> obtainForms() const
    {
        return {"postgresql://" + m_address + "/postgres", "postgres://" + m_address,
                "postgresql://" + m_address + "/postgres?application_name=a%20b",
                m_connection + " application_name='a  \\'b'"};
    }

private:
    // However this test ends, the server ends some time. A port of its own keeps it off other tests' servers.
    ChildProcess m_tool{{"pg_virtualenv", "-t", "-c", "--locale C -e UTF8", "sh", "-c",
                         "echo ready $$ $PGPORT $PGUSER $PGPASSWORD; exec sleep 250"},
                        {"PGPORT=" + std::to_string(20000 + getpid() % 30000)}};
    pid_t m_sleeper = -1;
    std::string m_connection, m_address;
};

#include "host_postgresql_server.h"

#include <arpa/inet.h>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "host_error.h"
#include "sql_session.h"

namespace {

/** @return the user that a root test gives the server to, null for any other test */
const passwd* obtainServerUser()
{
    if (geteuid() != 0)
        return nullptr;
    const passwd* user = getpwnam("postgres");
    return user ? user : getpwnam("nobody");
}

std::uint16_t findFreePort()
{
    const int handle = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    const bool found = bind(handle, generic, size) == 0 && getsockname(handle, generic, &size) == 0;
    close(handle);
    return found ? ntohs(address.sin_port) : std::uint16_t{0};
}

} // namespace

PostgresqlServer::PostgresqlServer()
{
    // 1. A folder that belongs to the user that will run the server.
    const std::string programs = _findPrograms();
    if (programs.empty()) {
        m_problem = "no PostgreSQL server is installed";
        return;
    }
    std::string pattern = (std::filesystem::temp_directory_path() / "kx_postgresql_XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        m_problem = "no temporary folder for the server";
        return;
    }
    m_folder = pattern;
    const passwd* user = obtainServerUser();
    if (user && chown(m_folder.c_str(), user->pw_uid, user->pw_gid) != 0)
        m_problem = "the temporary folder cannot be given to the server's user";

    // 2. A new cluster that trusts the loopback address; nothing of it has to survive a crash.
    const std::string data = (m_folder / "data").string();
    if (m_problem.empty() && !_run({programs + "/initdb", "-D", data, "-U", "kx", "-A", "trust", "-E", "UTF8",
                                    "--locale=C", "--no-sync"}))
        m_problem = "initdb failed";
    if (!m_problem.empty())
        return;
    m_port = findFreePort();
    m_server = _start({programs + "/postgres", "-D", data, "-h", "127.0.0.1", "-p", std::to_string(m_port),
                       "-k", m_folder.string(), "-F"});
    _waitForServer();
}

PostgresqlServer::~PostgresqlServer()
{
    if (m_server > 0) {
        kill(m_server, SIGINT);
        waitpid(m_server, nullptr, 0);
    }
    std::error_code ignored;
    if (!m_folder.empty())
        std::filesystem::remove_all(m_folder, ignored);
}

std::string PostgresqlServer::getConnection() const
{
    return "postgresql://host=127.0.0.1 port=" + std::to_string(m_port) + " user=kx dbname=postgres";
}

std::string PostgresqlServer::_findPrograms() const
{
    std::error_code unknown;
    for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", unknown)) {
        if (std::filesystem::exists(version.path() / "bin/initdb", unknown))
            return (version.path() / "bin").string();
    }
    return "";
}

pid_t PostgresqlServer::_start(const std::vector<std::string>& command) const
{
    const passwd* user = obtainServerUser();
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const std::string log = (m_folder / "log").string();

    const pid_t child = fork();
    if (child != 0)
        return child;
    const bool isUser = !user || (setgroups(0, nullptr) == 0 && setgid(user->pw_gid) == 0 &&
                                  setuid(user->pw_uid) == 0);
    const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (!isUser || chdir(m_folder.c_str()) != 0 || dup2(output, 1) < 0 || dup2(output, 2) < 0)
        _exit(126);
    execv(arguments[0], arguments.data());
    _exit(127);
}

bool PostgresqlServer::_run(const std::vector<std::string>& command) const
{
    int status = -1;
    const pid_t child = _start(command);
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void PostgresqlServer::_waitForServer()
{
    for (int attempt = 0; attempt < 600; ++attempt) {
        try {
            SqlSession session(getConnection());
            m_problem.clear();
            return;
        } catch (const HostError& error) {
            m_problem = error.what();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
}

#pragma once

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

/** A program that a test runs beside itself and listens to; it ends with this object at the latest. No wait
 * is endless. */
class ChildProcess {
public:
    static constexpr std::chrono::seconds patience{30};

    /** @param command found by PATH @param environment "NAME=value", added to the test's own */
    explicit ChildProcess(const std::vector<std::string>& command,
                          const std::vector<std::string>& environment = {})
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return;
        std::vector<std::string> words = {"env"};
        words.insert(words.end(), environment.begin(), environment.end());
        words.insert(words.end(), command.begin(), command.end());
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        if (posix_spawnp(&m_id, "env", &actions, nullptr, arguments.data(), environ) != 0)
            m_id = -1;
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        m_output = ends[0];
    }
    ~ChildProcess()
    {
        if (m_id > 0 && !hasEnded(std::chrono::seconds(0)))
            kill(m_id, SIGTERM);
        if (m_id > 0 && !hasEnded(std::chrono::seconds(5)))
            kill(m_id, SIGKILL);
        if (m_id > 0)
            hasEnded(patience);
        close(m_output);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /** @return the lines up to the first that begins with text, and that one; without it when none comes */
    std::vector<std::string> readTo(const std::string& text)
    {
        std::vector<std::string> lines;
        const auto end = std::chrono::steady_clock::now() + patience;
        while (std::chrono::steady_clock::now() < end && (lines.empty() || !lines.back().starts_with(text))) {
            if (const std::size_t lineEnd = m_rest.find('\n'); lineEnd != std::string::npos) {
                lines.push_back(m_rest.substr(0, lineEnd));
                m_rest.erase(0, lineEnd + 1);
                continue;
            }
            pollfd waiting{m_output, POLLIN, 0};
            char bytes[4096];
            const ssize_t count = poll(&waiting, 1, 100) > 0 ? read(m_output, bytes, sizeof bytes) : 0;
            if (count == 0 && (waiting.revents & POLLHUP) != 0)
                break;
            m_rest.append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        return lines;
    }

    bool hasEnded(std::chrono::seconds limit = patience)
    {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (m_id > 0 && waitpid(m_id, &m_status, WNOHANG) == 0) {
            if (std::chrono::steady_clock::now() >= end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        m_id = -1;
        return true;
    }
    /** @return the code it ended with, -1 for another end */
    int getExitCode() const { return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : -1; }

private:
    pid_t m_id = -1;
    int m_output = -1;
    int m_status = -1;
    std::string m_rest;
};

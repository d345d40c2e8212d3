#pragma once

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <functional>

/** Runs a program whose options app declares: reads them, then does the work.
 *  @return the exit code: 0 for work done and for the help; 2, after one line on stderr, for bad input */
inline int runCommandLine(CLI::App& app, int argc, char** argv, const std::function<void()>& work)
{
    constexpr int badInput = 2;
    try {
        app.parse(argc, argv);
        work();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) // the help was asked for
            return app.exit(error);
        std::fprintf(stderr, "%s: %s\n", app.get_name().c_str(), error.what());
        return badInput;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", app.get_name().c_str(), error.what());
        return badInput;
    }
    return 0;
}

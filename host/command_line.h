#pragma once

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <functional>

/** Runs a program whose options app declares, and --version: reads them, then does the work.
 *  @return the exit code: 0 for work done, the help and the version; 2, after one line on stderr, for bad
 * input */
inline int runCommandLine(CLI::App& app, int argc, char** argv, const std::function<void()>& work)
{
    constexpr int badInput = 2;
    app.set_version_flag("--version", app.get_name() + ' ' + KX_VERSION, "Print the version and end");
    try {
        app.parse(argc, argv);
        work();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) // the help or the version was asked for
            return app.exit(error);
        std::fprintf(stderr, "%s: %s\n", app.get_name().c_str(), error.what());
        return badInput;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", app.get_name().c_str(), error.what());
        return badInput;
    }
    return 0;
}

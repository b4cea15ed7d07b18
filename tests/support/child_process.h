// Runs a test of this program in a child process and captures its standard
// output through a pipe.
//
// The library prints through the C runtime it finds at run time, which on
// Windows need not be the one this program writes through; a pipe set up
// before the child starts is the one place where both streams are sure to
// end. Tests that read a setting once per process need a fresh process too.
//
// A child scenario is a disabled test (the parent never runs it itself); the
// child runs it with --gtest_also_run_disabled_tests and separates its cases
// with markers so that gtest's own lines stay out of the captured text.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <limits.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace orvtest {

inline constexpr const char* kCaseMarker = "@@case@@\n";
inline constexpr const char* kEndMarker = "@@end@@\n";

struct ChildResult {
    int status = -1;
    std::string out;
};

inline std::string self_path()
{
#if defined(_WIN32)
    char path[MAX_PATH];
    const DWORD n = GetModuleFileNameA(nullptr, path, MAX_PATH);
    return std::string(path, n);
#else
    char path[PATH_MAX];
    const ssize_t n = readlink("/proc/self/exe", path, sizeof path - 1);
    return n > 0 ? std::string(path, static_cast<std::size_t>(n)) : std::string();
#endif
}

// Sets (or, for a null value, removes) a variable of this process.
inline void set_env(const std::string& name, const char* value)
{
#if defined(_WIN32)
    _putenv_s(name.c_str(), value != nullptr ? value : "");
#else
    if (value != nullptr)
        setenv(name.c_str(), value, 1);
    else
        unsetenv(name.c_str());
#endif
}

// An environment change for the child: a null value removes the variable.
using EnvChange = std::pair<std::string, const char*>;

// Runs disabled test `test` ("Suite.DISABLED_Name") of this program in a
// child whose environment has `env` applied; returns its exit status and
// everything it wrote to standard output.
inline ChildResult run_child(const std::string& test, const std::vector<EnvChange>& env)
{
    struct Saved {
        std::string name;
        bool existed;
        std::string value;
    };
    std::vector<Saved> saved;
    for (const auto& [name, value] : env) {
        const char* old = std::getenv(name.c_str());
        saved.push_back({name, old != nullptr, old != nullptr ? old : ""});
        set_env(name, value);
    }
    std::string command = "\"";
    command += self_path();
    command += "\" --gtest_also_run_disabled_tests --gtest_brief=1 --gtest_filter=";
    command += test;
#if defined(_WIN32)
    // cmd.exe drops the outermost pair of quotes.
    command.insert(0, 1, '"');
    command += '"';
#endif
    ChildResult result;
    // Every child writes something (at least the test framework's summary).
    // Under a heavily loaded emulated system a child has been seen to come
    // back with no output at all, never having run: it is started once more.
    for (int attempt = 0; attempt < 2 && result.out.empty(); ++attempt) {
#if defined(_WIN32)
        FILE* pipe = _popen(command.c_str(), "r");
#else
        FILE* pipe = popen(command.c_str(), "r");
#endif
        if (pipe == nullptr) continue;
        char chunk[4096];
        std::size_t got;
        while ((got = std::fread(chunk, 1, sizeof chunk, pipe)) > 0) result.out.append(chunk, got);
#if defined(_WIN32)
        result.status = _pclose(pipe);
#else
        const int status = pclose(pipe);
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    }
    for (const Saved& s : saved) set_env(s.name, s.existed ? s.value.c_str() : nullptr);
    return result;
}

// In a child: writes a marker with this program's own runtime and flushes,
// so that it lands between the library's lines in order.
inline void child_marker(const char* marker)
{
    std::fputs(marker, stdout);
    std::fflush(stdout);
}

// The text each case of a child wrote, in case order; empty when the child
// produced no end marker (it crashed or stopped early).
inline std::vector<std::string> split_cases(const std::string& out)
{
    std::vector<std::string> cases;
    const std::string begin = kCaseMarker, end = kEndMarker;
    const std::size_t stop = out.find(end);
    if (stop == std::string::npos) return cases;
    std::size_t at = out.find(begin);
    while (at != std::string::npos && at < stop) {
        const std::size_t from = at + begin.size();
        std::size_t next = out.find(begin, from);
        if (next == std::string::npos || next > stop) next = stop;
        cases.push_back(out.substr(from, next - from));
        at = next < stop ? next : std::string::npos;
    }
    return cases;
}

}  // namespace orvtest

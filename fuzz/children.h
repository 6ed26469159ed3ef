// Work in child processes, so that one that fails does not end the others. On Windows it is done in this process.
#pragma once

#ifndef _WIN32
#include <sys/mman.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace fuzz {

inline double Now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// In memory that children share, and that outlives them.
template <class Record>
Record &Shared() {
#ifdef _WIN32
    static Record record{};
    return record;
#else
    void *memory = mmap(nullptr, sizeof(Record), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (memory) Record{};
#endif
}

/// Ends the process when it works for much too long from now on.
inline void LimitTime() {
#ifndef _WIN32
    constexpr int kMaxSeconds = 20;
    const itimerval limit{{0, 0}, {kMaxSeconds, 0}};
    setitimer(ITIMER_VIRTUAL, &limit, nullptr);
#endif
}

/// Runs `work` in a child. Result: whether the child ended as it should.
template <class Work>
bool Succeeds([[maybe_unused]] bool quiet, Work work) {
#ifdef _WIN32
    return work(), true;
#else
    std::cout.flush();
    std::FILE *const errors = std::tmpfile();
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(errors), STDERR_FILENO);
        work();
        std::cout.flush();
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    std::rewind(errors);
    for (int next; !quiet && (next = std::fgetc(errors)) != EOF;) std::fputc(next, stderr);
    std::fclose(errors);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
#endif
}

inline void WriteFile(const std::string &name, const std::vector<unsigned char> &bytes) {
    std::ofstream(name, std::ios::binary)
        .write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

constexpr int kMaxFailures = 10;

}  // namespace fuzz

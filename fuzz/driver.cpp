// The seeded driver: runs programs, counts calls, and reduces a program that fails to the calls that it takes.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "program.h"
#include "tables.h"
#ifndef _WIN32
#include <sys/mman.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace fuzz {
namespace {

constexpr const char *kUsage =
    "lacquer_fuzz [options] [file or folder of programs ...]\n"
    "  --seed N --first N --programs N --seconds S   which programs are made, and how many, without files\n"
    "  --groups surfaces,vector,text,contexts,gdi   the calls that they are made of\n"
    "  --print      writes every call\n"
    "  --report     counts the calls of each function\n"
    "  --tables     compares the kernel tables of different processors\n"
    "  --digests    writes a checksum after every call, to compare with another system's\n"
    "  --save FOLDER                                 keeps the programs there\n"
    "  --exports FILE.def                            checks that each export is among the calls\n";

struct Options {
    uint64_t seed = 1, first = 0, programs = UINT64_MAX;
    double seconds = 0;
    bool print = false, report = false, tables = false, digests = false;
    std::string save;
    std::vector<std::filesystem::path> files;
    Rules rules;
};

/// Where a run is; in memory that outlives a child that fails.
struct Progress {
    uint64_t program, calls;
    struct {
        uint64_t calls, done;
    } rows[512];
};

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

Program ReadProgram(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteProgram(const std::filesystem::path &path, const Program &program) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char *>(program.data()), static_cast<std::streamsize>(program.size()));
}

Program ProgramAt(const Options &options, uint64_t index) {
    return options.files.empty() ? MakeProgram(options.seed, index, options.rules) : ReadProgram(options.files[index]);
}

void RunOne(const Options &options, uint64_t index, const Program &program, Progress &progress) {
    if (options.tables) {
        const unsigned first = options.files.empty() ? static_cast<unsigned>(index % kTableGroups) : 0;
        const unsigned end = options.files.empty() ? first + 1 : kTableGroups;
        for (unsigned group = first; group < end; ++group) CompareTables(group, program, options.rules);
        return;
    }
    uint64_t number = 0;
    RunProgram(program, options.rules, options.print ? &std::cout : nullptr, [&](const CallReport &call) {
        auto &counts = progress.rows[&call.row - Calls().data()];
        ++progress.calls;
        ++counts.calls;
        counts.done += call.done;
        if (!options.digests) return;
        std::printf("%llu %llu %s %s %016llx %016llx\n", static_cast<unsigned long long>(index),
                    static_cast<unsigned long long>(number++), call.row.name, call.done ? "done" : "refused",
                    static_cast<unsigned long long>(call.results), static_cast<unsigned long long>(call.pixels));
    });
}

/// Ends the process when a program takes too long from now on.
void StartWatch() {
#ifndef _WIN32
    constexpr int kMostSeconds = 20;
    const itimerval limit{{0, 0}, {kMostSeconds, 0}};
    setitimer(ITIMER_VIRTUAL, &limit, nullptr);
#endif
}

/// Ends a child that has written to its standard error stream.
void ExpectSilence() {
#ifndef _WIN32
    if (lseek(STDERR_FILENO, 0, SEEK_CUR) > 0) std::abort();
#endif
}

/// The programs from `progress.program` to the end, or until the time has come.
void RunFrom(const Options &options, uint64_t end, double until, Progress &progress) {
    for (; progress.program < end && (until == 0 || Now() < until); ++progress.program) {
        const Program program = ProgramAt(options, progress.program);
        if (!options.save.empty()) {
            WriteProgram(std::filesystem::path(options.save) / std::to_string(progress.program), program);
        }
        if (options.print) std::cout << "// program " << progress.program << std::endl;
        StartWatch();
        RunOne(options, progress.program, program, progress);
        ExpectSilence();
    }
}

#ifndef _WIN32

/// Runs `work` in a child. Result: whether the child ended as it should, and wrote nothing to the standard error
/// stream.
template <class Work>
bool Succeeds(bool quiet, Work work) {
    std::cout.flush();
    std::fflush(stdout);
    std::FILE *const errors = std::tmpfile();
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(errors), STDERR_FILENO);
        work();
        std::cout.flush();
        std::fflush(stdout);
        std::exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    std::rewind(errors);
    bool wrote = false;
    for (int next; (next = std::fgetc(errors)) != EOF; wrote = true) {
        if (!quiet) std::fputc(next, stderr);
    }
    std::fclose(errors);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 && !wrote;
}

/// Leaves calls out as long as the program fails still.
Program Reduced(const Options &options, Program program, Progress &progress) {
    Options quiet = options;
    quiet.print = quiet.digests = false;
    const auto fails = [&](const Program &candidate) {
        return !Succeeds(true, [&] {
            StartWatch();
            RunOne(quiet, progress.program, candidate, progress);
        });
    };
    if (!fails(program)) {
        std::fprintf(stderr, "lacquer_fuzz: the program does not fail alone\n");
        return program;
    }
    for (size_t calls = program.size() / kRecordSize / 2; calls > 0; calls /= 2) {
        for (size_t at = program.size() / kRecordSize; at-- > 0;) {
            const auto size = static_cast<ptrdiff_t>(calls * kRecordSize),
                       start = static_cast<ptrdiff_t>(at * kRecordSize);
            if (start + size > static_cast<ptrdiff_t>(program.size())) continue;
            Program candidate = program;
            candidate.erase(candidate.begin() + start, candidate.begin() + start + size);
            if (!candidate.empty() && fails(candidate)) program = candidate;
        }
    }
    return program;
}

/// Runs everything in children, so that one failing program does not hide the next. Result: how many failed.
int RunAll(const Options &options, uint64_t end, double until, Progress &progress) {
    constexpr int kMostFailures = 10;
    int failures = 0;
    while (failures < kMostFailures && !Succeeds(false, [&] { RunFrom(options, end, until, progress); })) {
        ++failures;
        Options printing = options;
        printing.print = true;
        printing.tables = false;
        const Program program = Reduced(options, ProgramAt(options, progress.program), progress);
        const std::string name = "failed-" + std::to_string(options.seed) + "-" + std::to_string(progress.program);
        WriteProgram(name, program);
        std::printf("program %llu fails; %s has what is left of it:\n",
                    static_cast<unsigned long long>(progress.program), name.c_str());
        Succeeds(false, [&] { RunOne(printing, progress.program, program, progress); });
        ++progress.program;
    }
    return failures;
}

Progress &MakeProgress() {
    void *memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (memory) Progress{};
}

#else

int RunAll(const Options &options, uint64_t end, double until, Progress &progress) {
    RunFrom(options, end, until, progress);
    return 0;
}
Progress &MakeProgress() {
    static Progress progress{};
    return progress;
}

#endif

void Report(const Options &options, const Progress &progress, double seconds) {
    const double programs = static_cast<double>(progress.program - (options.files.empty() ? options.first : 0));
    std::printf("%.0f programs, %llu calls, %.0f s, %.1f programs and %.0f calls a second\n", programs,
                static_cast<unsigned long long>(progress.calls), seconds, programs / seconds,
                static_cast<double>(progress.calls) / seconds);
    if (!options.report) return;
    for (size_t i = 0; i < Calls().size(); ++i) {
        const auto &counts = progress.rows[i];
        std::printf("%10llu calls %10llu done  %s\n", static_cast<unsigned long long>(counts.calls),
                    static_cast<unsigned long long>(counts.done), Calls()[i].name);
    }
}

/// Result: how many exports of a module definition are missing among the calls.
int CheckExports(const char *path) {
    std::set<std::string> names;
    for (const Row &row : Calls()) names.insert(row.name);
    int missing = 0;
    std::ifstream file(path);
    bool inList = false;
    for (std::string line; std::getline(file, line); inList = inList || line.starts_with("EXPORTS")) {
        const size_t start = line.find_first_not_of(' ');
        if (!inList || start == 0 || start == std::string::npos || line[start] == '"') continue;
        std::string name = line.substr(start);
        // The layouts have C++ names: _Z, the length, the name.
        if (name.starts_with("_Z")) {
            size_t digits = 0;
            const size_t length = std::stoul(name.substr(2), &digits);
            name = name.substr(2 + digits, length);
        }
        if (names.contains(name)) continue;
        std::printf("%s is missing\n", name.c_str());
        ++missing;
    }
    return inList ? missing : 1;
}

unsigned GroupsNamed(const std::string &list) {
    constexpr const char *kNames[] = {"surfaces", "vector", "text", "contexts", "gdi"};
    unsigned groups = 0;
    for (unsigned i = 0; i < std::size(kNames); ++i) {
        if ((',' + list + ',').find(std::string(",") + kNames[i] + ',') != std::string::npos) groups |= 1u << i;
    }
    return groups;
}

int Main(int count, char **arguments) {
    Options options;
    int missing = 0;
    bool checks = false;
    const auto number = [](const char *text) { return std::strtoull(text, nullptr, 10); };
    // With a value, and without.
    const std::map<std::string, std::function<void(const char *)>> settings = {
        {"--seed", [&](const char *value) { options.seed = number(value); }},
        {"--first", [&](const char *value) { options.first = number(value); }},
        {"--programs", [&](const char *value) { options.programs = number(value); }},
        {"--seconds", [&](const char *value) { options.seconds = std::strtod(value, nullptr); }},
        {"--groups", [&](const char *value) { options.rules.groups = GroupsNamed(value); }},
        {"--save", [&](const char *value) { options.save = value; }},
        {"--exports", [&](const char *value) { missing += CheckExports(value), checks = true; }}};
    const std::map<std::string, bool *> switches = {{"--print", &options.print},
                                                    {"--report", &options.report},
                                                    {"--tables", &options.tables},
                                                    {"--digests", &options.digests}};
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        if (const auto setting = settings.find(argument); setting != settings.end()) {
            setting->second(++i < count ? arguments[i] : "");
        } else if (const auto found = switches.find(argument); found != switches.end()) {
            *found->second = true;
        } else if (argument.starts_with("-")) {
            std::fputs(kUsage, stderr);
            return 2;
        } else if (std::filesystem::is_directory(argument)) {
            for (const auto &entry : std::filesystem::directory_iterator(argument)) {
                options.files.push_back(entry.path());
            }
            std::sort(options.files.begin(), options.files.end());
        } else {
            options.files.push_back(argument);
        }
    }
    if (options.digests) options.rules.comparable = options.rules.plainGdi = true;
    if (checks) return missing != 0;
    if (options.seconds == 0 && options.programs == UINT64_MAX) options.programs = 1000;
    Progress &progress = MakeProgress();
    const double start = Now();
    int failures = 0;
    const bool hasFiles = !options.files.empty();
    if (hasFiles) failures = RunAll(options, options.files.size(), 0, progress);
    if (!hasFiles) {
        progress.program = options.first;
        const uint64_t most = UINT64_MAX - options.first;
        const double until = options.seconds == 0 ? 0 : start + options.seconds;
        failures = RunAll(options, options.first + std::min(most, options.programs), until, progress);
    }
    if (!options.print && !options.digests) Report(options, progress, Now() - start);
    return failures != 0;
}

}  // namespace
}  // namespace fuzz

int main(int count, char **arguments) { return fuzz::Main(count, arguments); }

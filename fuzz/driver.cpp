// The seeded driver: runs programs, counts calls, and reduces a program that fails to the calls that it takes.

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>

#include "children.h"
#include "program.h"
#include "tables.h"

namespace fuzz {
namespace {

constexpr const char *kUsage =
    "lacquer_fuzz [options] [file or folder of programs ...]\n"
    "  --seed N --first N --programs N --seconds S   which programs are made, and how many, without files\n"
    "  --groups surfaces,vector,text,contexts,gdi   the calls that they are made of\n"
    "  --print      writes every call\n"
    "  --report     counts the calls of each function\n"
    "  --tables     compares the kernel tables of different processors\n"
    "  --digests    writes a checksum after every call, to compare with another system's\n";

struct Options {
    uint64_t seed = 1, first = 0, programs = UINT64_MAX;
    double seconds = 0;
    bool print = false, report = false, tables = false, digests = false;
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

Program ReadProgram(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Program ProgramAt(const Options &options, uint64_t index) {
    return options.files.empty() ? MakeProgram(options.seed, index, options.rules) : ReadProgram(options.files[index]);
}

/// Runs one program under the rules of the options. Ends the process when it takes too long or writes to the standard
/// error stream.
void RunOne(const Options &options, uint64_t index, const Program &program, Progress &progress) {
    LimitTime();
    if (options.tables) {
        for (unsigned group = 0; group < kTableGroups; ++group) {
            if (!options.files.empty() || index % kTableGroups == group) {
                progress.calls += CompareTables(group, program, options.rules);
            }
        }
    } else {
        uint64_t number = 0;
        RunProgram(program, options.rules, options.print ? &std::cout : nullptr, [&](const CallReport &call) {
            auto &counts = progress.rows[&call.row - Calls().data()];
            ++progress.calls;
            ++counts.calls;
            counts.done += call.done;
            if (!options.digests) return;
            std::cout << index << ' ' << number++ << ' ' << call.row.name << (call.done ? " done " : " refused ")
                      << std::hex << call.results << ' ' << call.pixels << std::dec << '\n';
        });
    }
#ifndef _WIN32
    if (lseek(STDERR_FILENO, 0, SEEK_CUR) > 0) std::abort();
#endif
}

/// The programs from `progress.program` to the end, or until the time has come.
void RunFrom(const Options &options, uint64_t end, double until, Progress &progress) {
    for (; progress.program < end && (until == 0 || Now() < until); ++progress.program) {
        if (options.print) std::cout << "// program " << progress.program << std::endl;
        RunOne(options, progress.program, ProgramAt(options, progress.program), progress);
    }
}

/// Leaves calls out as long as the program fails still.
Program Reduced(const Options &options, Program program, Progress &progress) {
    Options quiet = options;
    quiet.print = quiet.digests = false;
    const auto fails = [&](const Program &candidate) {
        return !Succeeds(true, [&] { RunOne(quiet, progress.program, candidate, progress); });
    };
    if (!fails(program)) {
        std::fprintf(stderr, "lacquer_fuzz: the program does not fail alone\n");
        return program;
    }
    for (size_t calls = program.size() / kRecordSize / 2; calls > 0; calls /= 2) {
        for (size_t at = program.size() / kRecordSize; at-- > 0;) {
            if ((at + calls) * kRecordSize > program.size()) continue;
            Program candidate(program.begin(), program.begin() + static_cast<ptrdiff_t>(at * kRecordSize));
            candidate.insert(candidate.end(), program.begin() + static_cast<ptrdiff_t>((at + calls) * kRecordSize),
                             program.end());
            if (!candidate.empty() && fails(candidate)) program = candidate;
        }
    }
    return program;
}

/// Runs everything in children, so that one failing program does not hide the next. Result: how many failed.
int RunAll(const Options &options, uint64_t end, double until, Progress &progress) {
    int failures = 0;
    while (failures < kMaxFailures && !Succeeds(false, [&] { RunFrom(options, end, until, progress); })) {
        ++failures;
        Options printing = options;
        printing.print = true;
        printing.tables = false;
        const Program program = Reduced(options, ProgramAt(options, progress.program), progress);
        const std::string name = "failed-" + std::to_string(options.seed) + "-" + std::to_string(progress.program);
        WriteFile(name, program);
        std::cout << "program " << progress.program << " fails; " << name << " has what is left of it:" << std::endl;
        Succeeds(false, [&] { RunOne(printing, progress.program, program, progress); });
        ++progress.program;
    }
    return failures;
}

void Report(const Options &options, const Progress &progress, double seconds) {
    const uint64_t programs = progress.program - (options.files.empty() ? options.first : 0);
    std::cout << programs << " programs, " << progress.calls << " calls, " << seconds << " s, "
              << static_cast<double>(progress.calls) / seconds << " calls a second\n";
    for (size_t i = 0; options.report && i < Calls().size(); ++i) {
        std::cout << progress.rows[i].calls << " calls, " << progress.rows[i].done << " done: " << Calls()[i].name
                  << '\n';
    }
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
    const auto number = [](const char *text) { return std::strtoull(text, nullptr, 10); };
    // With a value, and without.
    const std::map<std::string, std::function<void(const char *)>> settings = {
        {"--seed", [&](const char *value) { options.seed = number(value); }},
        {"--first", [&](const char *value) { options.first = number(value); }},
        {"--programs", [&](const char *value) { options.programs = number(value); }},
        {"--seconds", [&](const char *value) { options.seconds = std::strtod(value, nullptr); }},
        {"--groups", [&](const char *value) { options.rules.groups = GroupsNamed(value); }}};
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
    if (options.seconds == 0 && options.programs == UINT64_MAX) options.programs = 1000;
    Progress &progress = Shared<Progress>();
    const double start = Now();
    uint64_t end = options.files.size();
    if (options.files.empty()) {
        progress.program = options.first;
        end = options.first + std::min(UINT64_MAX - options.first, options.programs);
    }
    const int failures = RunAll(options, end, options.seconds == 0 ? 0 : start + options.seconds, progress);
    if (!options.print && !options.digests) Report(options, progress, Now() - start);
    return failures != 0;
}

}  // namespace
}  // namespace fuzz

int main(int count, char **arguments) { return fuzz::Main(count, arguments); }

// Runs a program and notes what it needed: quillon-bench-measure FIGURES PROGRAM [ARGUMENT...]
// FIGURES gets one line: wall seconds, CPU seconds (user and system, children that were waited for included),
// peak resident KiB (of the largest process). The exit status is the program's.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

long long nowNs()
{
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return t.tv_sec * 1'000'000'000LL + t.tv_nsec;
}

double seconds(const timeval& t)
{
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
}

}

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s FIGURES PROGRAM [ARGUMENT...]\n", argv[0]);
        return 2;
    }
    const long long start = nowNs();
    // The clock is the same in all processes, so the program itself can tell how long its start took.
    setenv("QUILLON_BENCH_STARTED_NS", std::to_string(start).c_str(), 1);
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        std::perror(argv[2]);
        _exit(127);
    }
    int status = 0;
    rusage used{};
    if (child < 0 || wait4(child, &status, 0, &used) != child) {
        std::perror("quillon-bench-measure");
        return 2;
    }
    const double wall = static_cast<double>(nowNs() - start) * 1e-9;
    std::FILE* const figures = std::fopen(argv[1], "w");
    if (!figures) {
        std::perror(argv[1]);
        return 2;
    }
    std::fprintf(figures, "%.4f %.4f %ld\n", wall, seconds(used.ru_utime) + seconds(used.ru_stime),
                 used.ru_maxrss);
    std::fclose(figures);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

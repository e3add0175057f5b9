// Part of a library that holds all its changes: runs a test program once for each of those that it is told, each in a
// process of its own, which forks before anything else of the program runs.
//
//     IPSECIMPL_MUTANTS    file with the numbers of the changes; without it the program runs as it is
//     IPSECIMPL_OUTCOMES   file that gets a line for each: number, exit status or minus the signal
//     IPSECIMPL_SECONDS    processor time that each may take
//     IPSECIMPL_MEGABYTES  memory that each may take

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" __attribute__((visibility("default"))) int ipsecimplMutant = 0;

namespace {

void limit(decltype(RLIMIT_CPU) resource, rlim_t most)
{
    const rlimit limits{most, most};
    setrlimit(resource, &limits);
}

void become(int number, rlim_t seconds, rlim_t megabytes)
{
    for (const char* name : {"IPSECIMPL_MUTANTS", "IPSECIMPL_OUTCOMES", "IPSECIMPL_SECONDS", "IPSECIMPL_MEGABYTES"})
        unsetenv(name);
    limit(RLIMIT_CPU, seconds);
    limit(RLIMIT_AS, megabytes << 20);
    limit(RLIMIT_FSIZE, 64 << 20);
    limit(RLIMIT_CORE, 0);
    alarm(static_cast<unsigned int>(600 + 20 * seconds)); // it may wait for ever, which takes no processor time
    const int null = open("/dev/null", O_RDWR);
    for (int stream = 0; stream <= 2; ++stream)
        dup2(null, stream);
    close(null);
    ipsecimplMutant = number;
}

// Before the library's own constants are made: a change may concern them.
__attribute__((constructor(101))) void serve()
{
    const char* const file = std::getenv("IPSECIMPL_MUTANTS");
    if (file == nullptr)
        return;
    const rlim_t  seconds   = std::strtoul(std::getenv("IPSECIMPL_SECONDS"), nullptr, 10);
    const rlim_t  megabytes = std::strtoul(std::getenv("IPSECIMPL_MEGABYTES"), nullptr, 10);
    std::FILE*    outcomes  = std::fopen(std::getenv("IPSECIMPL_OUTCOMES"), "w");
    std::FILE*    numbers   = std::fopen(file, "r");
    for (int number = 0; std::fscanf(numbers, "%d", &number) == 1;) {
        const pid_t child = fork();
        if (child == 0) {
            std::fclose(numbers);
            close(fileno(outcomes));
            become(number, seconds, megabytes);
            return;
        }
        int status = 0;
        waitpid(child, &status, 0);
        std::fprintf(outcomes, "%d %d\n", number, WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status));
        std::fflush(outcomes);
    }
    std::fclose(outcomes);
    _exit(0);
}

} // namespace

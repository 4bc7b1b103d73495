// Writes SIZE bytes of 'n' to TARGET and tells the failure, if any: a process of its own, for faults to be
// injected into. With LIMIT the system lets no file grow beyond so many bytes, as a disk that fills up half way.
#include "persist/safe_file.h"
#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

int main(int count, char** words)
{
    if (count < 3) return 2;
    const std::string content(std::strtoul(words[2], nullptr, 10), 'n');
    if (count > 3) {
        const rlim_t most = std::strtoul(words[3], nullptr, 10);
        const rlimit limit{most, most};
        if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 2;
    }
    const std::string error = sm::Write_File_Whole(words[1], content);
    if (error.empty()) std::_Exit(0);
    const ssize_t told = ::write(STDERR_FILENO, error.data(), error.size());
    std::_Exit(told == static_cast<ssize_t>(error.size()) ? 1 : 2);
}

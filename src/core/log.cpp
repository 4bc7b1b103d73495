#include "core/log.h"

#include <cstdio>

namespace sm {

namespace {

std::FILE* LOG_FILE = nullptr;
void (*LISTENER)(std::string_view) = nullptr;

}   // namespace

bool Open_Log(const std::string& path)
{
    Close_Log();
    LOG_FILE = std::fopen(path.c_str(), "wb");
    return LOG_FILE != nullptr;
}

void Close_Log()
{
    if (LOG_FILE != nullptr) std::fclose(LOG_FILE);
    LOG_FILE = nullptr;
}

void Log(std::string_view line)
{
    if (LISTENER != nullptr) LISTENER(line);
    if (LOG_FILE == nullptr) return;
    std::fwrite(line.data(), 1, line.size(), LOG_FILE);
    std::fwrite("\r\n", 1, 2, LOG_FILE);
    std::fflush(LOG_FILE);
}

void Listen_To_Log(void (*listener)(std::string_view)) { LISTENER = listener; }

}   // namespace sm

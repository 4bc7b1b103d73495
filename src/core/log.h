#pragma once
#include <string>
#include <string_view>

namespace sm {

/// Creates the log file, overwriting an old one; every line is on disk before Log returns, so that a crash leaves it
/// readable. False when it cannot be written: the program goes on without a log.
bool Open_Log(const std::string& path);
void Close_Log();
/// One line of the log.
void Log(std::string_view line);
/// Also hands each line to a listener (tests, the command line); nullptr ends that.
void Listen_To_Log(void (*listener)(std::string_view line));

}   // namespace sm

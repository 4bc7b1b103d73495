#pragma once
// Many battles of one kind, played in processes of their own.

#include <functional>
#include <string>

namespace sm {

/// Does the jobs first..last in `workers` processes (0: one for each processor) that share no file. Each job starts
/// from the game and the seat of this moment; `work` answers a job's result as bytes. `done` gets the results here, in the
/// order of the jobs, each as soon as those before it are in. Refuses when a worker dies.
void Work_In_Parallel(int first, int last, int workers, const std::function<std::string(int job)>& work,
                      const std::function<void(int job, const std::string& result)>& done);

}   // namespace sm

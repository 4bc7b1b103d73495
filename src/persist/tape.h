#pragma once

namespace sm {

/// Turn tape of GameFileName: 1 reads it, 2 writes it; 3 reads and 4 writes the tape index.
void Tape_File(int mode);

}   // namespace sm

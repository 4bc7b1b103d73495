#pragma once

namespace sm {

/// Runs one whole game turn, or ends the battle. A failure inside the turn is logged and told in a box, and every table
/// and scalar is put back to what it was at entry; the autosave is on disk by then.
/// False when the turn failed.
bool Play_Turn();

}   // namespace sm

#pragma once
// Staff problems: a situation, orders and the outcome that was worked out by hand, in plain text.
//
//   ground                                one character a square kilometre (10 pixels), as Board takes it; a
//   capital
//       ...A....B...                      letter stands for open ground and the force of that letter at its
//       centre; under A =                         the force stands on other ground
//   forces
//       A  Blue "1-68 Armor"  tanks, battalion, attacks, RCP 10, FACING 90
//   dice 12                               the next roll is the one behind this place of the dice (0: the first)
//   orders
//       combat                            the Ground Combat Phase
//       look A                            A looks around; also "retreat A", "surrender A", "reset" (end of the
//       turn)
//   outcome
//       told "..."                        a message, in this order among the others; "untold" for one that never
//       came status "...", log "..."           a line of the status line, of the log A.MOVESTATUS 1 a field, reals
//       to four digits A gone rolls 2                           dice used
//
// "#" begins a comment. What a force's words mean is the table WORDS of staff_problem.cpp; upper-case words are
// fields.

#include <filesystem>
#include <string>
#include <vector>

namespace sm::test {

/// Plays a problem; "line 31: A.RCP2 is 9.5, expected 9" for each outcome that did not come about, and one line
/// for a text that cannot be read.
std::vector<std::string> Play_Staff_Problem(const std::filesystem::path& file);

}   // namespace sm::test

#pragma once
#include "persist/game_file.h"
#include "persist/game_format.h"
#include "support/log_lines.h"
#include "persist/program_folder.h"
#include "support/board.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

namespace sm::test {

/// An empty game, an empty program folder and a screen that listens.
class Game_File_Test : public ::testing::Test {
protected:
    void SetUp() override
    {
        Clear_Game();
        WPN.ROW.clear();
        Set_Program_Folder(home.Path());
        Use_Screen(&screen);
        screen.RECORDING = true;
    }
    void TearDown() override { Use_Screen(nullptr); }

    /// Fills every field of every record that the file carries with values of its own, so that two swapped lines
    /// show.
    void Fill_Everything()
    {
        int n = 0;
        for (const FILE_PART& part : File_Parts())
            for (int i = 0; i < part.SIZE; ++i)
                for (const FIELD& field : part.FIELDS) {
                    if ((field.CARRIERS & (READ | WRITE)) == 0) continue;
                    char* const record = part.RECORDS + static_cast<std::ptrdiff_t>(i) * part.STRIDE;
                    n = (n * 1103 + 12345) % 65536;
                    switch (field.KIND) {
                    case Kind::I16:
                        Field_Value<Int16>(record, field) = n - 32768;
                        break;
                    case Kind::I32:
                        Field_Value<std::int32_t>(record, field) = n * 7001 - 99999;
                        break;
                    case Kind::F32:
                        Field_Value<float>(record, field) = static_cast<float>(n - 3000) / 7.0f;
                        break;
                    default:
                        Set_Field_Text(record, field, Cat("T", To_Text(n), ": ", field.KEY));
                        break;
                    }
                }
        for (int u = 1; u <= MAX_UNIT; ++u) UNIT[u].STATUS = 0;   // a used unit wants its icon
        for (int g = 1; g <= MAX_P; ++g) P[g].PTYPE = -g;
    }

    Scratch_Folder home;
    Headless_Platform screen;
};

}   // namespace sm::test

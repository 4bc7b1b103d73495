// Makes a scenario file from its text: build_scenario TEXT HOME MAPS OUT. HOME is the program folder with the map,
// its terrain and the weapons file; MAPS holds the sheets' sources, whose towns the text may name. What the text may
// say stands in data/scenarios/README.md.

#include "core/numbers.h"
#include "core/text.h"
#include "persist/game_file.h"
#include "persist/program_folder.h"
#include "scenario/compiler.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

using namespace sm;

int Fail(const std::string& text)
{
    std::fprintf(stderr, "%s\n", text.c_str());
    return 1;
}

std::string At_Line(const std::string& file, const scenario::Bad_Script& fault)
{
    return Cat(file, ":", To_Text(fault.LINE), ": ", To_Utf8(fault.what()));
}

}   // namespace

int main(int argc, char** argv)
{
    if (argc != 5) return Fail("build_scenario TEXT HOME MAPS OUT");
    const std::string text = argv[1], out = argv[4];
    std::ifstream in(text, std::ios::binary);
    if (!in) return Fail("cannot read " + text);
    std::ostringstream content;
    content << in.rdbuf();
    try {
        Set_Program_Folder(argv[2]);
        scenario::Compile(scenario::Read_Statements(content.str()), argv[3]);
        std::error_code fault;
        std::filesystem::create_directories(std::filesystem::path(out).parent_path(), fault);
        if (!Save_Game_File(out, true)) return Fail("cannot write " + out);
    } catch (const scenario::Bad_Script& fault) {
        return Fail(At_Line(text, fault));
    } catch (const scenario::Bad_Scripts& faults) {
        for (const scenario::Bad_Script& fault : faults.LIST) Fail(At_Line(text, fault));
        return 1;
    } catch (const std::exception& fault) {
        return Fail(Cat(text, ": ", fault.what()));
    }
    bool sound = true;
    for (const File_Fault& f : Check_File(out)) {
        if (!f.FAULT) continue;
        std::fprintf(stderr, "%s:%d: %s\n", out.c_str(), f.LINE, To_Utf8(f.TEXT).c_str());
        sound = false;
    }
    std::printf("%s: %s\n", std::filesystem::path(out).filename().string().c_str(), scenario::Summary().c_str());
    return sound ? 0 : 1;
}

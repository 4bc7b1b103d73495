#include "core/icon_names.h"
#include "support/places.h"
#include "support/scratch.h"
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

using namespace sm;
using namespace sm::test;
namespace fs = std::filesystem;

namespace {

const fs::path DATA = fs::path(STONEMARCH_SOURCE_DIR) / "data";

int Little_Endian(const std::string& bytes, std::size_t at, int count)
{
    int value = 0;
    for (int i = count - 1; i >= 0; --i) value = value * 256 + static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

/// Widths of the pictures in an icon file, each a square PNG whose own header tells the same width; empty when the
/// file is missing or anything of it is otherwise.
std::set<int> Icon_Sizes(const fs::path& file)
{
    if (!fs::exists(file)) return {};
    const std::string bytes = File_Content(file);
    if (bytes.size() < 6 || Little_Endian(bytes, 0, 2) != 0 || Little_Endian(bytes, 2, 2) != 1) return {};
    std::set<int> sizes;
    for (int i = 0; i < Little_Endian(bytes, 4, 2); ++i) {
        const std::size_t entry = 6 + 16 * static_cast<std::size_t>(i);
        const int told = Little_Endian(bytes, entry, 1), size = told == 0 ? 256 : told;
        const std::size_t length = static_cast<std::size_t>(Little_Endian(bytes, entry + 8, 4));
        const std::size_t start = static_cast<std::size_t>(Little_Endian(bytes, entry + 12, 4));
        if (Little_Endian(bytes, entry + 1, 1) != told || start + length > bytes.size() || length < 45) return {};
        const std::string png = bytes.substr(start, length);
        const std::string width = {'\0', '\0', static_cast<char>(size / 256), static_cast<char>(size % 256)};
        if (!png.starts_with("\x89PNG\r\n\x1a\n") || png.substr(16, 8) != width + width) return {};
        if (png.substr(length - 8, 4) != "IEND") return {};
        sizes.insert(size);
    }
    return sizes;
}

const std::set<int> ON_THE_MAP = {32, 48, 96};

}   // namespace

TEST(IconNames, TheLastCharacterIsTheSizePlusOneAndWhatABrokenFileHoldsStillNamesAPicture)
{
    struct ICON {
        int SIDE, ROLE, SIZE;
        const char* NAME;
    };
    for (const ICON& icon : {ICON{1, 1, 2, "bada3.ico"},   // the unit that the builder starts with, a battery
                             {2, 1, 2, "rada3.ico"},
                             {1, 20, 0, "bmech1.ico"},
                             {2, 18, 6, "rhq7.ico"},
                             {1, 13, 100, "btrk.ico"},
                             {2, 13, 100, "rtrk.ico"},   // convoys
                             {1, 50, 0, "bspt7.ico"},
                             {2, 50, 0, "rspt7.ico"},   // lines of communication
                             {1, 27, 3, "buser4.ico"},
                             {1, -1, 3, "buser4.ico"},
                             {2, 5, 7, "rar7.ico"},
                             {2, 5, -1, "rar1.ico"}})
        EXPECT_EQ(Unit_Icon_Name(icon.SIDE, icon.ROLE, icon.SIZE), icon.NAME);
}

TEST(Pictures, EveryRoleSizeAndSideHasOneLikeNoOther)
{
    std::map<std::string, std::string> seen;   // content to name
    const auto look = [&](const std::string& name) {
        ASSERT_EQ(Icon_Sizes(DATA / "icons" / name), ON_THE_MAP) << name;
        const auto [there, fresh] = seen.emplace(File_Content(DATA / "icons" / name), name);
        EXPECT_TRUE(fresh) << name << " looks like " << there->second;
    };
    for (int side = 1; side <= 2; ++side) {
        for (int role = 0; role <= 26; ++role)
            for (int size = 0; size <= 6; ++size) look(Unit_Icon_Name(side, role, size));
        look(Unit_Icon_Name(side, 13, 100));
    }
}

TEST(Pictures, EveryMapMarkThatTheGameNamesIsThere)
{
    for (const char* name :
         {"coordpt.ico",  "NAI.ico",      "TAI.ico",      "Obj.ico",      "KeyT.ico",     "Mcorridor.ico",
          "brdg.ico",     "brdg1.ico",    "brdg2.ico",    "blbrdg.ico",   "blbrdg1.ico",  "blbrdg2.ico",
          "mine.ico",     "fort.ico",     "gas.ico",      "smoke.ico",    "repw.ico",     "bepw.ico",
          "explode1.ico", "explode2.ico", "explode3.ico", "explode4.ico", "explode5.ico", "explode6.ico",
          "explode7.ico", "explode8.ico", "explode9.ico"}) {
        const std::set<int> sizes = Icon_Sizes(DATA / "icons" / name);
        for (const int size : ON_THE_MAP) EXPECT_TRUE(sizes.contains(size)) << name << " at " << size;
    }
    for (const char* name : {"node.bmp", "SEAD.bmp", "CFFZ.bmp"}) {
        const std::string bytes = File_Content(DATA / "icons" / name);
        ASSERT_GE(bytes.size(), 30u) << name;
        EXPECT_EQ(bytes.substr(0, 2), "BM") << name;
        EXPECT_EQ(Little_Endian(bytes, 2, 4), static_cast<int>(bytes.size())) << name;
        EXPECT_EQ(Little_Endian(bytes, 28, 2), 32) << name;   // bits a pixel: with alpha
    }
}

TEST(Pictures, EveryKindOfIncidentHasOneAndTheProgramFolderOfTheBuildHasThemAll)
{
    for (int number = 1; number <= 49; ++number) {
        if (number == 26 || number == 40) continue;   // no kind has these
        EXPECT_EQ(Icon_Sizes(DATA / "events" / (std::to_string(number) + ".ico")), ON_THE_MAP) << number;
    }
    for (const char* folder : {"icons", "events"}) {
        const auto built = Names_In(fs::path(STONEMARCH_HOME_DIR) / folder), drawn = Names_In(DATA / folder);
        EXPECT_TRUE(std::includes(built.begin(), built.end(), drawn.begin(), drawn.end())) << folder;
    }
}

#include "support/places.h"
#include "support/scratch.h"
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

using namespace sm::test;
namespace fs = std::filesystem;

namespace {

constexpr int RATE = 22050;
const fs::path HOME = STONEMARCH_HOME_DIR;

/// The samples of a mono 16-bit wave file at 22050 Hz with nothing before or after them; empty when it is any
/// other.
std::vector<int> Samples(const fs::path& file)
{
    const std::string bytes = File_Content(file);
    const auto word = [&](std::size_t at) {
        return static_cast<unsigned char>(bytes.at(at)) + 256 * static_cast<unsigned char>(bytes.at(at + 1));
    };
    if (bytes.size() < 46 || bytes.substr(0, 4) != "RIFF" || bytes.substr(36, 4) != "data") return {};
    if (word(20) != 1 || word(22) != 1 || word(24) != RATE || word(34) != 16) return {};
    std::vector<int> samples;
    for (std::size_t at = 44; at + 1 < bytes.size(); at += 2) {
        const int value = word(at);
        samples.push_back(value < 32768 ? value : value - 65536);
    }
    return samples;
}

std::string Sound_File(int cue)
{
    return std::string("sounds/") + (cue < 10 ? "0" : "") + std::to_string(cue) + ".wav";
}

/// Short enough, loud enough to be heard, below clipping, and silent at both ends, so that no click is heard.
void Expect_Playable(const std::string& name, int most_milliseconds)
{
    const std::vector<int> samples = Samples(HOME / name);
    ASSERT_FALSE(samples.empty()) << name;
    EXPECT_LE(static_cast<long>(samples.size()) * 1000, static_cast<long>(most_milliseconds) * RATE) << name;
    int top = 0;
    for (const int s : samples) top = std::max(top, std::abs(s));
    EXPECT_GE(top, 32767 / 4) << name;
    EXPECT_LE(top, 32767 * 9 / 10) << name;
    EXPECT_EQ(samples.front(), 0) << name;
    EXPECT_EQ(samples.back(), 0) << name;
}

}   // namespace

TEST(Sounds, EveryCueIsShortAudibleAndUnclipped)
{
    std::map<std::string, int> seen;
    for (int cue = 1; cue <= 15; ++cue) {
        Expect_Playable(Sound_File(cue), 1500);
        const auto [there, fresh] = seen.emplace(File_Content(HOME / Sound_File(cue)), cue);
        EXPECT_TRUE(fresh) << cue << " sounds like " << there->second;
    }
}

TEST(Sounds, TheOpeningSoundLastsUnderSixSeconds) { Expect_Playable("smintro1.wav", 6000); }

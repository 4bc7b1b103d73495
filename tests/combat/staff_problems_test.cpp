// Every text of tests/combat/problems is a problem with its solution.

#include "support/places.h"
#include "support/scratch.h"
#include "support/staff_problem.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace sm::test;

namespace {

const std::filesystem::path PROBLEMS = std::filesystem::path(STONEMARCH_SOURCE_DIR) / "tests/combat/problems";

class StaffProblem : public testing::TestWithParam<std::string> {};

std::string Test_Name(const testing::TestParamInfo<std::string>& info)
{
    std::string name = info.param.substr(0, info.param.find('.'));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return name;
}

}   // namespace

TEST_P(StaffProblem, EndsAsWorkedOutByHand)
{
    for (const std::string& failure : Play_Staff_Problem(PROBLEMS / GetParam())) ADD_FAILURE() << failure;
}

INSTANTIATE_TEST_SUITE_P(Combat, StaffProblem, testing::ValuesIn(Names_In(PROBLEMS)), Test_Name);

TEST(StaffProblem, AProblemThatDoesNotEndAsWrittenIsToldLineByLine)
{
    const Scratch_Folder folder;
    Put_File(folder / "wrong.txt",
             "ground\n  .AB.........\nforces\n  A Blue \"1st\"  tanks\n  B Red \"2nd\"  guns\n"
             "orders\n  combat\noutcome\n  told \"Nothing of the kind\"\n  A gone\n  B.TYPE 8\n"
             "  B.TYPE 9\n  untold \"SITREP: 1st lost less than 1% as a result of direct fires!\"\n"
             "  B.NOTHING 1\n");
    const std::vector<std::string> failures = Play_Staff_Problem(folder / "wrong.txt");
    ASSERT_EQ(failures.size(), 5u) << testing::PrintToString(failures);
    EXPECT_EQ(failures[0], "line 9: not told: \"Nothing of the kind\"");
    EXPECT_EQ(failures[1], "line 10: A gone is 2, expected 0");
    EXPECT_EQ(failures[2], "line 12: B.TYPE is 8, expected 9");
    EXPECT_EQ(failures[4], "line 14: no field B.NOTHING");
}

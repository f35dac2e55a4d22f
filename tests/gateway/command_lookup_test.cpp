#include <set>
#include <string>

#include "gateway/command_table.h"
#include "gateway_test_support.h"

namespace cdfgate::testing {
namespace {

using gateway::commandTable;
using gateway::lookupCommand;

TEST(CommandTable, HasNinetyThreeUniqueRowsWithTheirIds) {
    const auto table = commandTable();
    ASSERT_EQ(table.size(), 93u);
    std::set<std::string> names;
    std::set<std::int64_t> ids;
    for (const auto& row : table) {
        names.insert(row.name);
        ids.insert(row.id);
        EXPECT_LE(row.minArgs, row.maxArgs) << row.name;
        EXPECT_NE(row.handler, nullptr) << row.name;
    }
    EXPECT_EQ(names.size(), 93u);
    EXPECT_EQ(ids.size(), 93u);
    EXPECT_FALSE(ids.contains(49));
    EXPECT_FALSE(ids.contains(83));
    EXPECT_EQ(table.front().name, std::string("close"));
    EXPECT_EQ(table[17].name, std::string("getAttrName"));
    EXPECT_EQ(table[17].id, 21);
    EXPECT_EQ(table.back().name, std::string("getConstantValue"));
}

TEST(CommandTable, PutAttrEntryAndPutAttrgEntryShareOneHandler) {
    EXPECT_EQ(lookupCommand("putAttrEntry", 5).handler, lookupCommand("putAttrgEntry", 5).handler);
}

TEST(CommandLookup, EveryRowResolvesAtItsArgumentLimitsAndNotBeyond) {
    for (const auto& row : commandTable()) {
        const std::string name = row.name;
        EXPECT_EQ(&lookupCommand(name, row.minArgs), &row);
        EXPECT_EQ(&lookupCommand(name, row.maxArgs), &row);
        if (row.minArgs > 0) {
            expectHostError([&] { lookupCommand(name, row.minArgs - 1); },
                            validateId("wrongNumberOfInputs"));
        }
        expectHostError([&] { lookupCommand(name, row.maxArgs + 1); },
                        validateId("wrongNumberOfInputs"));
    }
}

TEST(CommandLookup, OnlyThreeRowsTakeAVariableNumberOfArguments) {
    std::set<std::string> variable;
    for (const auto& row : commandTable()) {
        if (row.minArgs != row.maxArgs) variable.insert(row.name);
    }
    EXPECT_EQ(variable,
              (std::set<std::string>{"getVarData", "setCompression", "setVarCompression"}));
    EXPECT_EQ(lookupCommand("getVarData", 3).maxArgs, 4);
    EXPECT_EQ(lookupCommand("setCompression", 2).maxArgs, 3);
    EXPECT_EQ(lookupCommand("setVarCompression", 3).maxArgs, 4);
}

TEST(CommandLookup, NamesMatchExactlyAndCaseSensitively) {
    for (const std::string name : {"Open", "OPEN", "", "open ", "getVar", "getconstantnames"}) {
        expectHostError([&] { lookupCommand(name, 1); }, cdflibId("invalidOperation"),
                        {std::string(name)});
    }
}

TEST(Cdflib, RefusesACallWithoutInputs) {
    expectHostError([] { embedded::call("", {}, 1); }, cdflibId("invalidOperation"),
                    {std::string()});
    expectHostError([] { embedded::callWithInputs({}); }, validateId("wrongNumberOfInputs"));
}

TEST(Cdflib, ChecksTheArgumentCountBeforeAnyArgument) {
    expectHostError([] { embedded::call("getConstantNames", {Array::scalar(1)}); },
                    validateId("wrongNumberOfInputs"));
    expectHostError(
        [] {
            embedded::call("getVarData", {Array::scalar(1), Array::scalar(1)});
        },
        validateId("wrongNumberOfInputs"));
}

TEST(Cdflib, ACommandNameThatIsNotTextRaisesTheStandardLogicError) {
    try {
        const Array inputs[] = {Array::scalar(3)};
        embedded::callWithInputs(inputs);
        ADD_FAILURE() << "no error";
    } catch (const embedded::HostError&) {
        ADD_FAILURE() << "a host error was raised instead of the logic error";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "basic_string: construction from null is not valid");
    }
}

}  // namespace
}  // namespace cdfgate::testing

// Attributes and scopes: creating, naming, numbering, counting and inquiring.
#include <set>
#include <string>
#include <vector>

#include "attributes/attribute_scope.h"
#include "variables/scratch_cdf.h"

namespace cdfgate::testing {
namespace {

using embedded::call;

Array number(double value) {
    return Array::scalar(value);
}

class AttributeCommands : public ::testing::Test {
  protected:
    const Array& id() const { return cdf_.id(); }
    double createAttr(const std::string& name, long scope) {
        return call("createAttr", {id(), Array::text(name), number(static_cast<double>(scope))})
            .at(0)
            .scalarValue();
    }

    ScratchCdf cdf_{ROW_MAJOR};
};

TEST_F(AttributeCommands, CreatedAttributesAreNumberedNamedAndScoped) {
    EXPECT_EQ(call("getNumgAttributes", {id()}).at(0), Array::scalar(0));
    EXPECT_EQ(call("getNumvAttributes", {id()}).at(0), Array::scalar(0));
    EXPECT_EQ(createAttr("TITLE", GLOBAL_SCOPE), 0);
    EXPECT_EQ(createAttr("UNITS", VARIABLE_SCOPE), 1);
    EXPECT_EQ(createAttr("HISTORY", GLOBAL_SCOPE), 2);

    EXPECT_EQ(call("getNumgAttributes", {id()}).at(0), Array::scalar(2));
    EXPECT_EQ(call("getNumvAttributes", {id()}).at(0), Array::scalar(1));
    EXPECT_EQ(call("getAttrName", {id(), number(1)}).at(0), Array::text("UNITS"));
    EXPECT_EQ(call("getAttrNum", {id(), Array::text("HISTORY")}).at(0), Array::scalar(2));
    EXPECT_EQ(call("getAttrScope", {id(), number(0)}).at(0), Array::text("GLOBAL_SCOPE"));
    EXPECT_EQ(call("getAttrScope", {id(), number(1)}).at(0), Array::text("VARIABLE_SCOPE"));
}

TEST_F(AttributeCommands, AttributeNumbersAreTruncatedAndFullLengthNamesKept) {
    const std::string longest(CDF_ATTR_NAME_LEN256, 'n');
    createAttr("first", GLOBAL_SCOPE);
    createAttr("second", GLOBAL_SCOPE);
    createAttr(longest, GLOBAL_SCOPE);
    EXPECT_EQ(call("getAttrName", {id(), number(2.7)}).at(0), Array::text(longest));
    EXPECT_EQ(call("getAttrName", {id(), number(-0.5)}).at(0), Array::text("first"));
}

TEST_F(AttributeCommands, RenameAndDeleteChangeTheFile) {
    createAttr("old", VARIABLE_SCOPE);
    createAttr("kept", GLOBAL_SCOPE);
    EXPECT_TRUE(call("renameAttr", {id(), number(0), Array::text("new")}).empty());
    EXPECT_EQ(call("getAttrName", {id(), number(0)}).at(0), Array::text("new"));

    EXPECT_TRUE(call("deleteAttr", {id(), number(0)}).empty());
    // Later attributes move down by one.
    EXPECT_EQ(call("getAttrName", {id(), number(0)}).at(0), Array::text("kept"));
    EXPECT_EQ(call("getNumvAttributes", {id()}).at(0), Array::scalar(0));
    expectHostError(
        [&] {
            call("getAttrNum", {id(), Array::text("new")});
        },
        cdflibId("libraryFailure"), failure("CDFgetAttrNum", NO_SUCH_ATTR));
}

TEST_F(AttributeCommands, EntryCountsAndMaximaFollowTheEntryKind) {
    createAttr("G", GLOBAL_SCOPE);
    createAttr("V", VARIABLE_SCOPE);
    for (const double entry : {0.0, 3.0, 9.0}) {
        call("putAttrgEntry",
             {id(), number(0), number(entry), number(CDF_INT4), Array::of<std::int32_t>({1})});
    }
    for (const double entry : {1.0, 4.0}) {
        call("putAttrEntry",
             {id(), number(1), number(entry), number(CDF_INT4), Array::of<std::int32_t>({1})});
    }
    EXPECT_EQ(call("getNumAttrgEntries", {id(), number(0)}).at(0), Array::scalar(3));
    EXPECT_EQ(call("getAttrMaxgEntry", {id(), number(0)}).at(0), Array::scalar(9));
    EXPECT_EQ(call("getNumAttrEntries", {id(), number(1)}).at(0), Array::scalar(2));
    EXPECT_EQ(call("getAttrMaxEntry", {id(), number(1)}).at(0), Array::scalar(4));
    // "inquireAttr" gives name, scope and the g and z maxima, in the slots the host offers.
    EXPECT_EQ(call("inquireAttr", {id(), number(0)}, 4),
              (std::vector<Array>{Array::text("G"), Array::text("GLOBAL_SCOPE"), Array::scalar(9),
                                  Array::scalar(-1)}));
    EXPECT_EQ(call("inquireAttr", {id(), number(1)}, 4),
              (std::vector<Array>{Array::text("V"), Array::text("VARIABLE_SCOPE"),
                                  Array::scalar(-1), Array::scalar(4)}));
    EXPECT_EQ(call("inquireAttr", {id(), number(0)}, 1), std::vector<Array>{Array::text("G")});
    EXPECT_EQ(call("inquireAttr", {id(), number(0)}, 0), std::vector<Array>{Array::text("G")});
}

TEST(AttributeScopeNames, OnlyTheTwoScopesHaveNames) {
    EXPECT_EQ(gateway::scopeName(GLOBAL_SCOPE), "GLOBAL_SCOPE");
    EXPECT_EQ(gateway::scopeName(VARIABLE_SCOPE), "VARIABLE_SCOPE");
    // The assumed scopes of old files are not folded into the two names.
    for (const long scope : {0L, 3L, 4L, -1L}) {
        expectHostError([&] { gateway::scopeName(scope); }, cdflibId("unrecognizedValue"),
                        {std::int64_t{scope}, std::string("SCOPE")});
    }
}

TEST_F(AttributeCommands, LibraryRefusalsNameTheCommandsFunction) {
    // A command, its inputs after the CDFID, and the failure it reports.
    struct FailureCase {
        const char* command;
        std::vector<Array> inputs;
        const char* function;
        CDFstatus status;
    };
    createAttr("G", GLOBAL_SCOPE);
    createAttr("V", VARIABLE_SCOPE);
    const Array global = number(0);
    const Array variable = number(1);
    const Array missing = number(7);
    // clang-format off
    const FailureCase cases[] = {
        {"createAttr", {Array::text("G"), number(1)}, "CDFcreateAttr", ATTR_EXISTS},
        {"createAttr", {Array::text("S"), number(7)}, "CDFcreateAttr", BAD_SCOPE},
        {"deleteAttr", {missing}, "CDFdeleteAttr", NO_SUCH_ATTR},
        {"renameAttr", {missing, Array::text("x")}, "CDFrenameAttr", NO_SUCH_ATTR},
        {"renameAttr", {variable, Array::text("G")}, "CDFrenameAttr", ATTR_EXISTS},
        {"getAttrName", {missing}, "CDFgetAttrName", NO_SUCH_ATTR},
        {"getAttrNum", {Array::text("missing")}, "CDFgetAttrNum", NO_SUCH_ATTR},
        {"getAttrScope", {missing}, "CDFgetAttrScope", NO_SUCH_ATTR},
        {"inquireAttr", {missing}, "CDFinquireCDF", NO_SUCH_ATTR},
        {"getAttrMaxgEntry", {missing}, "CDFgetAttrMaxgEntry", NO_SUCH_ATTR},
        {"getAttrMaxgEntry", {variable}, "CDFgetAttrMaxgEntry", ILLEGAL_FOR_SCOPE},
        {"getAttrMaxEntry", {global}, "CDFgetAttrMaxzEntry", ILLEGAL_FOR_SCOPE},
        {"getNumAttrgEntries", {variable}, "CDFgetNumAttrgEntries", ILLEGAL_FOR_SCOPE},
        {"getNumAttrEntries", {global}, "CDFgetNumAttrzEntries", ILLEGAL_FOR_SCOPE},
        {"getNumAttrEntries", {number(-1)}, "CDFgetNumAttrzEntries", BAD_ATTR_NUM},
    };
    // clang-format on
    for (const FailureCase& row : cases) {
        SCOPED_TRACE(std::string(row.command) + " reported as " + row.function);
        std::vector<Array> inputs = row.inputs;
        inputs.insert(inputs.begin(), id());
        expectHostError([&] { call(row.command, inputs, 4); }, cdflibId("libraryFailure"),
                        failure(row.function, row.status));
    }
}

// Each numeric input of the commands of this family, with the name its refusal quotes.
struct ArgumentCase {
    const char* command;
    std::size_t position;  // among the inputs after the CDFID
    const char* name;
};

const ArgumentCase kArguments[] = {
    {"createAttr", 1, "SCOPE"},           {"deleteAttr", 0, "ATTRNUM"},
    {"renameAttr", 0, "ATTNUM"},          {"getAttrName", 0, "ATTRNUM"},
    {"getAttrScope", 0, "ATTRNUM"},       {"inquireAttr", 0, "ATTRNUM"},
    {"getAttrMaxgEntry", 0, "ATTRNUM"},   {"getAttrMaxEntry", 0, "ATTRNUM"},
    {"getNumAttrgEntries", 0, "ATTRNUM"}, {"getNumAttrEntries", 0, "ATTRNUM"},
    {"getAttrgEntry", 0, "ATTRNUM"},      {"getAttrgEntry", 1, "ENTRYNUM"},
    {"getAttrEntry", 0, "ATTRNUM"},       {"getAttrEntry", 1, "ENTRYNUM"},
    {"inquireAttrgEntry", 0, "ATTRNUM"},  {"inquireAttrgEntry", 1, "ENTRYNUM"},
    {"inquireAttrEntry", 0, "ATTRNUM"},   {"inquireAttrEntry", 1, "ENTRYNUM"},
    {"deleteAttrgEntry", 0, "ATTRNUM"},   {"deleteAttrgEntry", 1, "ENTRYNUM"},
    {"deleteAttrEntry", 0, "ATTNUM"},     {"deleteAttrEntry", 1, "ENTRYNUM"},
    {"putAttrEntry", 0, "ATTRNUM"},       {"putAttrEntry", 1, "ENTRYNUM"},
    {"putAttrEntry", 2, "DATATYPE"},      {"putAttrgEntry", 0, "ATTRNUM"},
    {"putAttrgEntry", 1, "ENTRYNUM"},     {"putAttrgEntry", 2, "DATATYPE"},
};

// Valid inputs after the CDFID for every command above (attribute 0 is global).
std::vector<Array> validInputs(const std::string& command) {
    if (command == "createAttr") return {Array::text("new"), Array::scalar(1)};
    if (command == "renameAttr") return {Array::scalar(0), Array::text("renamed")};
    if (command.starts_with("putAttr")) {
        return {Array::scalar(0), Array::scalar(0), Array::scalar(CDF_INT4),
                Array::of<std::int32_t>({1})};
    }
    if (command.find("Entry") != std::string::npos && command.find("Max") == std::string::npos &&
        command.find("Num") == std::string::npos) {
        return {Array::scalar(0), Array::scalar(0)};
    }
    return {Array::scalar(0)};
}

TEST_F(AttributeCommands, NumericInputsOtherThanDoubleScalarsAreRefusedByName) {
    createAttr("G", GLOBAL_SCOPE);
    const Array badValues[] = {Array::of<std::int32_t>({0}), Array::of<double>({0, 1}),
                               Array::empty()};
    for (const ArgumentCase& row : kArguments) {
        for (const Array& bad : badValues) {
            SCOPED_TRACE(std::string(row.command) + " " + row.name);
            std::vector<Array> inputs = validInputs(row.command);
            inputs.at(row.position) = bad;
            // A bad earlier input is reported before a bad later one.
            if (row.position + 1 < inputs.size() &&
                inputs[row.position + 1].classId() == hvDOUBLE_CLASS) {
                inputs[row.position + 1] = Array::of<std::int8_t>({0});
            }
            inputs.insert(inputs.begin(), id());
            expectHostError([&] { call(row.command, inputs, 4); },
                            validateId("argumentNotDoubleScalar"), {std::string(row.name)});
        }
    }
}

TEST_F(AttributeCommands, FileIdentifiersAreCheckedFirst) {
    std::set<std::string> commands{"getAttrNum", "getNumgAttributes", "getNumvAttributes"};
    for (const ArgumentCase& row : kArguments) commands.insert(row.command);
    for (const std::string& command : commands) {
        SCOPED_TRACE(command);
        std::vector<Array> inputs = validInputs(command);
        if (command == "getAttrNum") inputs = {Array::text("G")};
        if (command.starts_with("getNum") && command.ends_with("Attributes")) inputs.clear();
        // Later inputs are bad too: the identifier is still the one reported.
        for (Array& input : inputs) input = Array::of<std::int8_t>({0});
        std::vector<Array> asDouble = inputs;
        asDouble.insert(asDouble.begin(), Array::scalar(0));
        expectHostError([&] { call(command, asDouble, 4); }, validateId("argumentNotUint64Scalar"),
                        {std::string("CDFID")});
        std::vector<Array> unknown = inputs;
        unknown.insert(unknown.begin(), Array::uint64(cdf_.id().data<std::uint64_t>()[0] + 1));
        expectHostError([&] { call(command, unknown, 4); }, cdflibId("invalidFileId"));
    }
}

}  // namespace
}  // namespace cdfgate::testing

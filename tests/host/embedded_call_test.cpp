// The gateway is not linked into this suite: a recording cdflib stands in for it so
// that the plumbing of call() itself is checked.
#include <gtest/gtest.h>

#include <functional>

#include "cdfgate/embedded.h"
#include "hv/entry.h"

namespace {

struct Received {
    int nlhs = -1;
    std::size_t slots = 0;
    std::vector<cdfgate::embedded::Array> inputs;
};

Received received;
// What the stand-in does with its output slots.
std::function<void(matrix::array_ptr*)> respond;

}  // namespace

void cdflib(int nlhs, matrix::array_ptr* plhs, int nrhs, const hvArray* const* prhs) {
    received.nlhs = nlhs;
    received.slots = 0;
    while (received.slots < static_cast<std::size_t>(std::max(nlhs, 1)) && !plhs[received.slots]) {
        ++received.slots;
    }
    received.inputs.clear();
    for (int i = 0; i < nrhs; ++i) {
        received.inputs.emplace_back(cdfgate::embedded::Array::copyOf(prhs[i]));
    }
    if (respond) respond(plhs);
}

void QNTerminate() {}

namespace {

using cdfgate::embedded::Array;
using cdfgate::embedded::call;

class EmbeddedCall : public testing::Test {
  protected:
    void TearDown() override { respond = nullptr; }
};

TEST_F(EmbeddedCall, PassesTheCommandNameThenTheArguments) {
    call("getVarData", {Array::uint64(9), Array::scalar(2), Array::text("x")}, 2);
    EXPECT_EQ(received.nlhs, 2);
    EXPECT_EQ(received.slots, 2u);
    ASSERT_EQ(received.inputs.size(), 4u);
    EXPECT_EQ(received.inputs[0].text(), "getVarData");
    EXPECT_EQ(received.inputs[1], Array::uint64(9));
    EXPECT_EQ(received.inputs[2], Array::scalar(2));
    EXPECT_EQ(received.inputs[3], Array::text("x"));
}

TEST_F(EmbeddedCall, OffersOneSlotEvenWhenNoResultIsAsked) {
    respond = [](matrix::array_ptr* plhs) { plhs[0] = Array::scalar(4).release(); };
    const auto results = call("getConstantValue", {Array::text("CDF_INT4")}, 0);
    EXPECT_EQ(received.nlhs, 0);
    EXPECT_EQ(received.slots, 1u);
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].scalarValue(), 4.0);
}

TEST_F(EmbeddedCall, ReturnsResultsUpToTheFirstUnsetSlot) {
    respond = [](matrix::array_ptr* plhs) {
        plhs[0] = Array::text("a").release();
        plhs[2] = Array::text("c").release();
    };
    const auto results = call("inquire", {Array::uint64(1)}, 3);
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].text(), "a");
    respond = nullptr;
    EXPECT_TRUE(call("close", {Array::uint64(1)}).empty());
}

TEST_F(EmbeddedCall, ErrorsPassThroughAndFreeFilledSlots) {
    respond = [](matrix::array_ptr* plhs) {
        plhs[0] = Array::scalar(1).release();
        throw std::runtime_error("handler failed");
    };
    EXPECT_THROW(call("open", {Array::text("f.cdf")}), std::runtime_error);
}

TEST_F(EmbeddedCall, CallWithInputsPassesThemAsGiven) {
    const Array inputs[] = {Array::scalar(3)};
    cdfgate::embedded::callWithInputs(inputs);
    ASSERT_EQ(received.inputs.size(), 1u);
    EXPECT_EQ(received.inputs[0], Array::scalar(3));
    cdfgate::embedded::callWithInputs({});
    EXPECT_TRUE(received.inputs.empty());
    const Array holdsNothing[] = {Array()};
    EXPECT_THROW(cdfgate::embedded::callWithInputs(holdsNothing), std::invalid_argument);
    EXPECT_THROW(call("close", {}, -1), std::invalid_argument);
}

}  // namespace

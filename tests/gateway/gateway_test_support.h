// Helpers shared by the gateway suites: calling commands and checking the errors
// they raise.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "cdfgate/embedded.h"

namespace cdfgate::testing {

using embedded::Array;
using Arguments = foundation::core::msg::MessageArguments;

// Runs `action`, which must raise a host error with this identifier and arguments.
inline void expectHostError(const std::function<void()>& action, const std::string& identifier,
                            const Arguments& arguments = {}) {
    try {
        action();
    } catch (const embedded::HostError& error) {
        EXPECT_EQ(error.identifier(), identifier);
        EXPECT_EQ(error.arguments(), arguments) << "identifier " << identifier;
        return;
    } catch (const std::exception& other) {
        ADD_FAILURE() << "expected " << identifier << ", got a plain exception: " << other.what();
        return;
    }
    ADD_FAILURE() << "expected " << identifier << ", but nothing was raised";
}

inline std::string cdflibId(const std::string& name) {
    return "QUORIN:imagesci:cdflib:" + name;
}
inline std::string validateId(const std::string& name) {
    return "QUORIN:imagesci:validate:" + name;
}

}  // namespace cdfgate::testing

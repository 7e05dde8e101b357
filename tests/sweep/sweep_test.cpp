#include "sweep.h"

namespace kzq::test {
namespace {

class Sweep : public testing::TestWithParam<std::string> {};

TEST_P(Sweep, WhateverGoesWrongAtAnyUsbCall) {
    const auto cases = swept(GetParam()).size();
    EXPECT_GT(cases, 30U);
    RecordProperty("cases", static_cast<int>(cases));
}

INSTANTIATE_TEST_SUITE_P(Operations, Sweep, testing::ValuesIn([] {
                             std::vector<std::string> names;
                             for (const auto& [name, make] : operations()) {
                                 names.push_back(name);
                             }
                             return names;
                         }()),
                         [](const auto& operation) {
                             std::string name = operation.param;
                             std::erase_if(name, [](char c) { return c == ' ' || c == ','; });
                             return name;
                         });

}  // namespace
}  // namespace kzq::test

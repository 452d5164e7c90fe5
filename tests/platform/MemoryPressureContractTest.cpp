#include "platform/PlatformServices.h"
#include "support/Contract.h"
#include "support/ScriptedMemoryPressure.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const Candidate<MemoryPressure> candidates[] = {
    candidate<MemoryPressure, ScriptedMemoryPressure>("scripted"),
    {"desktop", [] { return makePlatformServices().memoryPressure; }},
};

class MemoryPressureContract : public testing::TestWithParam<Candidate<MemoryPressure>> {};

TEST_P(MemoryPressureContract, SubscriptionsAndServicesMayGoInAnyOrder) {
    auto pressure = GetParam().make();
    ASSERT_NE(pressure, nullptr);
    auto early = pressure->makeMemoryPressureSource([](MemoryPressureLevel) {});
    auto late = pressure->makeMemoryPressureSource([](MemoryPressureLevel) {});
    early.reset();
    QCoreApplication::processEvents();
    pressure.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(late.use_count(), 1);
}

INSTANTIATE_TEST_SUITE_P(All, MemoryPressureContract, testing::ValuesIn(candidates), candidateName);

TEST(MemoryPressure, EventsReachLiveSubscriptionsOnly) {
    ScriptedMemoryPressure pressure;
    std::vector<MemoryPressureLevel> heard;
    std::shared_ptr<MemoryPressureSource> second;
    const auto first = pressure.makeMemoryPressureSource([&](MemoryPressureLevel level) {
        heard.push_back(level);
        second.reset();
    });
    second = pressure.makeMemoryPressureSource(
        [&](MemoryPressureLevel) { ADD_FAILURE() << "it was ended by the one before it"; });
    auto ended = pressure.makeMemoryPressureSource([&](MemoryPressureLevel) { ADD_FAILURE(); });
    ended.reset();
    pressure.announce(MemoryPressureLevel::warning);
    pressure.announce(MemoryPressureLevel::critical);
    EXPECT_EQ(heard, (std::vector{MemoryPressureLevel::warning, MemoryPressureLevel::critical}));
}

}  // namespace
}  // namespace kestrio

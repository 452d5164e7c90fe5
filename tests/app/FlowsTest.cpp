#include "app/flows/FlowFailure.h"
#include "capture/CaptureError.h"
#include "core/Cancelled.h"
#include "imaging/ExportError.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(FlowFailure, GivesEveryErrorItsCaseAndItsExitStatus) {
    using Case = FlowFailure::Case;
    const auto failure = [](const auto& error) {
        return FlowFailure::from(error, QStringLiteral("Title"));
    };
    for (const FlowFailure& each :
         {failure(Cancelled()), failure(CaptureError(CaptureError::Case::cancelled)),
          failure(ExportError::userCancelled())}) {
        EXPECT_EQ(each.which(), Case::cancelled);
        EXPECT_EQ(each.exitStatus(), ExitStatus::cancelled);
        EXPECT_TRUE(each.reason().isEmpty());
    }
    const FlowFailure denied = failure(CaptureError::permissionDenied(QStringLiteral("not here")));
    EXPECT_EQ(denied.which(), Case::permissionDenied);
    EXPECT_EQ(denied.exitStatus(), ExitStatus::failed);
    EXPECT_EQ(denied.reason(), u"not here");

    const ExportError full = ExportError::fileWriteFailed(QStringLiteral("/full"));
    const FlowFailure unwritten = failure(full);
    EXPECT_EQ(unwritten.which(), Case::alert);
    EXPECT_EQ(unwritten.exitStatus(), ExitStatus::failed);
    EXPECT_EQ(unwritten.title(), u"Title");
    EXPECT_EQ(unwritten.reason(), full.fullDescription());
    EXPECT_TRUE(unwritten.text().contains(full.errorDescription()));
    EXPECT_TRUE(failure(std::runtime_error("odd")).reason().contains(u"odd"));
}

}  // namespace
}  // namespace kestrio

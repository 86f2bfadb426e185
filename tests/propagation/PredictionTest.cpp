#include <gtest/gtest.h>

#include <set>
#include <string>

#include "propagation/Prediction.h"

namespace {

TEST(FailureKindName, IsAnotherOneForEachKind)
{
    std::set<std::string_view> asNames;
    for (const FailureKind eKind :
         {FailureKind::NotInstalled, FailureKind::NotStarted, FailureKind::Timeout,
          FailureKind::BadInput, FailureKind::BadOutput, FailureKind::Busy, FailureKind::Cancelled,
          FailureKind::File}) {
        EXPECT_NE(FailureKindName(eKind), "");
        EXPECT_TRUE(asNames.insert(FailureKindName(eKind)).second) << FailureKindName(eKind);
    }
}

}  // namespace

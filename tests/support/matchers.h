#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// The words of gmock in which tests speak of texts and lists.
namespace zvr {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

}  // namespace zvr

// The text of a flush, built from the pending messages.
#include <gtest/gtest.h>

#include "platform/PendingList.h"

namespace {

TEST(PendingList, FlushTextIndentsEachFurtherMessage) {
  PendingList list;
  list.Append(L"a");
  list.Append(L"b\nc");
  list.Append(L"");
  EXPECT_EQ(list.DebugText(), L">LxDataAcces: a\n>   b\nc\n>   >   \n");
}

}  // namespace

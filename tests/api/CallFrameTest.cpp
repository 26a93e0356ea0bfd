// The call frame itself, driven with bodies of our own: what it writes for
// reports and exceptions, what it skips, and that it costs no allocation.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <new>
#include <stdexcept>

#include "CountingAllocator.h"
#include "DebugOutput.h"
#include "LxDataAccess.h"
#include "api/CallFrame.h"
#include "api/LibraryState.h"
#include "platform/Report.h"
#include "storage/ibpp/Exception.h"

using lxtest::Captured;
using lxtest::Quietly;

namespace {

int sentinel = 0;
const void* const kSomeHandle = &sentinel;

TEST(CallFrame, ReportsBecomeOneWriteIndentedPerMessageNotPerLine) {
  auto [result, writes] = Captured([] {
    return CallFrame("test_Two").Call([] {
      Report(L"первое", "CTest::_First");
      Report(L"второе\nбез отступа", "CTest::_Second");
      Report(L"третье", "CTest::_Third");
      return 5;
    });
  });
  EXPECT_EQ(result, 5);
  ASSERT_EQ(writes.size(), 1u);
  EXPECT_EQ(writes[0], ">LxDataAcces: первое [CTest::_First]\n"
                       ">   второе\nбез отступа [CTest::_Second]\n"
                       ">   >   третье [CTest::_Third]\n");
}

TEST(CallFrame, BodyRunsOnlyWhenEveryHandleAndStringIsPresent) {
  int calls = 0;
  auto body = [&] { return ++calls; };
  EXPECT_FAILS(CallFrame("test_Handles").Handle(nullptr, "one").Handle(kSomeHandle, "two").Call(body),
               "Передан нулевой указатель на объект one (fun: test_Handles)");
  EXPECT_FAILS(CallFrame("test_Handles").Handle(kSomeHandle, "one").Handle(nullptr, "two").Call(body),
               "Передан нулевой указатель на объект two (fun: test_Handles)");
  // A null string fails silently, after the handles.
  const wchar_t* text = L"text";
  const wchar_t* const none = nullptr;
  EXPECT_FAILS(
      CallFrame("test_Strings").Handle(kSomeHandle, "h").Strings(text, none).Call([&] { return ++calls == 1; }));
  EXPECT_EQ(calls, 0);
  // A null handle is still named when a string is null too.
  EXPECT_FAILS(CallFrame("test_Strings").Handle(nullptr, "h").Strings(none).Call([] { return true; }),
               "Передан нулевой указатель на объект h (fun: test_Strings)");
}

TEST(CallFrame, OnlyADatabaseExceptionGivesItsTextBehindTheFunctionName) {
  auto body = []() -> const wchar_t* {
    Report(L"до сбоя", "CTest::_Before");
    throw IBPP::Exception("connection refused\nsecond line");
  };
  EXPECT_FAILS(CallFrame("test_Database").Call(body), "до сбоя [CTest::_Before]",
               " (fun: test_Database)\nconnection refused\nsecond line");
  // Any other exception is unknown and its text unread.
  EXPECT_FAILS(CallFrame("test_Runtime").Call([]() -> bool { throw std::runtime_error("must not appear"); }),
               " (fun: test_Runtime) Неизвестное исключение");
  EXPECT_FAILS(CallFrame("test_Memory").Call([]() -> int { throw std::bad_alloc(); }),
               " (fun: test_Memory) Неизвестное исключение");
  EXPECT_FAILS(CallFrame("test_Int").Call([]() -> void* { throw 42; }), " (fun: test_Int) Неизвестное исключение");
}

TEST(CallFrame, NextCallStartsWithAnEmptyList) {
  Captured([] { return CallFrame("test_Fail").Call([] { Report(L"old", "CTest::_Old"); return false; }); });
  EXPECT_FALSE(Pending().Empty()) << "the list keeps its content until the next call";
  EXPECT_EQ(Captured([] { return CallFrame("test_Quiet").Call([] { return true; }); }), Quietly(true));
  EXPECT_TRUE(Pending().Empty());
  // A nested frame on the same thread does not deadlock; it empties the list
  // at its start, so the outer report is gone.
  EXPECT_EQ(Captured([] {
              return CallFrame("test_Outer").Call([] {
                Report(L"outer", "CTest::_Outer");
                return CallFrame("test_Inner").Call([] { return 3; });
              });
            }),
            Quietly(3));
}

TEST(CallFrame, QuietSuccessAllocatesNothing) {
  // Fill the list once so that its capacity is there, as after any report.
  Captured([] { return CallFrame("test_Warm").Call([] { Report(L"warm", "CTest::_Warm"); return 0; }); });
  const long before = lxtest::AllocationCount();
  const int result = CallFrame("test_Quiet").Handle(kSomeHandle, "h").Handle(kSomeHandle, "i").Call([] { return 7; });
  const long allocations = lxtest::AllocationCount() - before;
  EXPECT_EQ(result, 7);
  EXPECT_EQ(allocations, 0);
}

TEST(CallFrame, ProgressRecordIsKeptWithoutTheFrameLock) {
  std::promise<void> entered;
  std::promise<void> release;
  auto holder = std::async(std::launch::async, [&] {
    return CallFrame("test_Holder").Call([&] {
      entered.set_value();
      release.get_future().wait();
      return true;
    });
  });
  entered.get_future().wait();

  LxProgressControl control{};
  control.head[0] = 0xAB;
  control.tail[7] = 0xCD;
  auto setter = std::async(std::launch::async, [&] { lxSetProgressControl(&control); });
  const bool returnedWhileLocked = setter.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
  release.set_value();
  EXPECT_TRUE(holder.get());
  ASSERT_TRUE(returnedWhileLocked);
  EXPECT_TRUE(Progress().set);
  EXPECT_EQ(Progress().record.head[0], 0xAB);
  EXPECT_EQ(Progress().record.tail[7], 0xCD);
  lxClearProgressControl();
  EXPECT_FALSE(Progress().set);
}

}  // namespace

// Parsing and evaluation of typical formulas. A formula is parsed once when
// its owner loads and evaluated on every read, so evaluation is the figure
// that matters. The "allocs" counter is heap allocations per iteration, from
// a counting replacement of the global operator new; for integer and double
// arithmetic it must stay 0.
#include <benchmark/benchmark.h>

#include <string>

#include "tests/support/CountingAllocator.h"
#include "tests/support/FakeFormulaSource.h"
#include "formula/FormulaParser.h"
#include "formula/NumberText.h"

namespace {

// A standard size's attributes as a formula would find them.
lxtest::FakeFormulaSource SizeSource() {
  return {{{3, Value{16}}, {12, Value{12}}, {13, Value{80}}, {14, Value{1.75}}},
          {{L"Длина", Value{80}}, {L"Тип", Value{L"Болт М12"}}},
          lxtest::FakeFormulaSource::Log::Silent};
}

enum class Entry { Text, Condition };

FormulaPtr Parse(Entry entry, std::wstring_view text) {
  return entry == Entry::Text ? ParseTextFormula(text) : ParseConditionFormula(text, 0, text.size());
}

void ReportAllocations(benchmark::State& state, long before) {
  state.counters["allocs"] = benchmark::Counter(static_cast<double>(lxtest::AllocationCount() - before),
                                                benchmark::Counter::kAvgIterations);
}

void BM_Parse(benchmark::State& state, Entry entry, const wchar_t* text) {
  const long before = lxtest::AllocationCount();
  for (auto _ : state) {
    FormulaPtr tree = Parse(entry, text);
    benchmark::DoNotOptimize(tree.get());
  }
  ReportAllocations(state, before);
}

void BM_Evaluate(benchmark::State& state, Entry entry, const wchar_t* text) {
  const FormulaPtr tree = Parse(entry, text);
  lxtest::FakeFormulaSource source = SizeSource();
  Value result;
  const long before = lxtest::AllocationCount();
  for (auto _ : state) {
    tree->Evaluate(result, source, kDefaultNumberFormat);
    benchmark::DoNotOptimize(result);
  }
  ReportAllocations(state, before);
}

constexpr const wchar_t* kDesignation = L"Болт М{A12}x{A13}";
constexpr const wchar_t* kArithmetic = L"{A3*2+1}";
constexpr const wchar_t* kDoubleArithmetic = L"{A14*A13/2,5-1}";
constexpr const wchar_t* kCondition = L"Длина > 10 && Тип == \"Болт*\"";
constexpr const wchar_t* kNumericCondition = L"A3 >= 10 && A14 < 2";

BENCHMARK_CAPTURE(BM_Parse, designation, Entry::Text, kDesignation);
BENCHMARK_CAPTURE(BM_Parse, arithmetic, Entry::Text, kArithmetic);
BENCHMARK_CAPTURE(BM_Parse, condition, Entry::Condition, kCondition);

BENCHMARK_CAPTURE(BM_Evaluate, designation, Entry::Text, kDesignation);
BENCHMARK_CAPTURE(BM_Evaluate, arithmetic, Entry::Text, kArithmetic);
BENCHMARK_CAPTURE(BM_Evaluate, double_arithmetic, Entry::Text, kDoubleArithmetic);
BENCHMARK_CAPTURE(BM_Evaluate, condition, Entry::Condition, kCondition);
BENCHMARK_CAPTURE(BM_Evaluate, numeric_condition, Entry::Condition, kNumericCondition);

}  // namespace

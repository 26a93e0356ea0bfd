// libFuzzer target of the formula engine: both parse entries, evaluation of
// whatever they build over a fixed data source, and the value conversions.
//
// The first byte chooses what the rest is: a formula text, a condition (and
// the range of it to read), or raw material for the conversions and pattern
// matchers. Text is read as UTF-8 so that the corpus stays legible; bytes
// that aren't valid UTF-8 become the code point of the same number, so every
// input means something. Beyond the sanitizers, the target aborts when an
// evaluation breaks one of the engine's invariants.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "formula/CLogicFormula.h"
#include "formula/FormulaError.h"
#include "formula/FormulaParser.h"
#include "formula/Matching.h"
#include "formula/NumberText.h"
#include "formula/ValueCompare.h"
#include "formula/ValueConversion.h"
#include "tests/support/FakeFormulaSource.h"

namespace {

class Input {
 public:
  Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  bool Empty() const { return position_ >= size_; }
  uint8_t Byte() { return Empty() ? 0 : data_[position_++]; }

  // One character of UTF-8, or the byte itself when it starts no valid one.
  wchar_t Character() {
    const uint8_t lead = Byte();
    int continuation = lead >= 0xF0 && lead <= 0xF4 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
    if (lead >= 0x80 && lead < 0xC2) return static_cast<wchar_t>(lead);
    if (position_ + continuation > size_) return static_cast<wchar_t>(lead);
    uint32_t code = continuation == 0 ? lead : lead & (0x3F >> continuation);
    for (int i = 0; i < continuation; ++i) {
      const uint8_t next = data_[position_ + i];
      if ((next & 0xC0) != 0x80) return static_cast<wchar_t>(lead);
      code = (code << 6) | (next & 0x3F);
    }
    position_ += continuation;
    return static_cast<wchar_t>(code);
  }

  std::wstring Rest() {
    std::wstring text;
    while (!Empty()) text.push_back(Character());
    return text;
  }

  std::wstring UpTo(wchar_t separator) {
    std::wstring text;
    while (!Empty()) {
      const wchar_t c = Character();
      if (c == separator) break;
      text.push_back(c);
    }
    return text;
  }

  double Double() {
    uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = (bits << 8) | Byte();
    double number;
    std::memcpy(&number, &bits, sizeof number);
    return number;
  }

 private:
  const uint8_t* data_;
  size_t size_;
  size_t position_ = 0;
};

// Every kind of value and the corners of the integers.
lxtest::FakeFormulaSource FixedSource() {
  return {{
              {1, Value{7}},          {2, Value{2.5}},          {3, Value{L"3"}},       {4, Value{L"Болт*"}},
              {5, Value{INT32_MIN}},  {6, Value{INT32_MAX}},    {7, Value{-1}},         {8, Value{0}},
              {9, Value{1e300}},      {10, Value{-0.0}},        {11, Value{L""}},       {12, Value{1e-7}},
              {13, Value{std::wstring(L"a\0b", 3)}},
          },
          {
              {L"Длина", Value{12}}, {L"Тип", Value{L"Болт М12"}}, {L"elevation", Value{3.5}}, {L"x", Value{L"*"}},
          },
          lxtest::FakeFormulaSource::Log::Silent};
}

bool SameResult(const Value& first, const Value& second) {
  if (IsDouble(first) && IsDouble(second)) {
    const double a = std::get<LX_VALUE_DOUBLE>(first);
    const double b = std::get<LX_VALUE_DOUBLE>(second);
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
  }
  return first == second;
}

void Fail(int line) {
  std::fprintf(stderr, "formula invariant broken at FormulaFuzz.cpp:%d\n", line);
  std::abort();
}

#define Require(invariant) \
  do {                     \
    if (!(invariant)) Fail(__LINE__); \
  } while (false)

void EvaluateTree(const CFormula& tree, const NumberFormat& format) {
  lxtest::FakeFormulaSource source = FixedSource();
  Value first;
  Value second;
  try {
    tree.Evaluate(first, source, format);
  } catch (const FormulaError&) {
    // The same tree must fail the same way again.
    bool failedAgain = false;
    try {
      tree.Evaluate(second, source, format);
    } catch (const FormulaError&) {
      failedAgain = true;
    }
    Require(failedAgain);
    return;
  }
  tree.Evaluate(second, source, format);
  Require(SameResult(first, second));
  if (dynamic_cast<const CLogicFormula*>(&tree) != nullptr) {
    Require(IsInteger(first) && (std::get<LX_VALUE_INT>(first) == 0 || std::get<LX_VALUE_INT>(first) == 1));
  }
  (void)ValueToText(first, format);
  if (!tree.CanEditValue()) Require(!tree.SetValue(source, first));
}

NumberFormat FormatFrom(uint8_t selector) {
  static constexpr uint64_t kPrecisions[] = {2, 0, 1, 3, 6, 8, 17, kKeepPrintedDigits};
  return NumberFormat{(selector & 0x10) != 0, kPrecisions[(selector >> 5) & 7]};
}

void FuzzTextFormula(Input& input, const NumberFormat& format) {
  const std::wstring text = input.Rest();
  try {
    FormulaPtr tree = ParseTextFormula(text);
    Require(tree != nullptr);
    EvaluateTree(*tree, format);
  } catch (const FormulaError&) {
  }
}

void FuzzCondition(Input& input, const NumberFormat& format) {
  const size_t skipStart = input.Byte() % 4;
  const size_t cutEnd = input.Byte() % 4;
  const std::wstring text = input.Rest();
  const size_t start = std::min(skipStart, text.size());
  const size_t end = text.size() - std::min(cutEnd, text.size() - start);
  try {
    if (FormulaPtr tree = ParseConditionFormula(text, start, end)) EvaluateTree(*tree, format);
  } catch (const FormulaError&) {
  }
}

void FuzzConversions(Input& input, const NumberFormat& format) {
  const double number = input.Double();
  const std::wstring text = DoubleToText(number, format.precision, true, format.trimZeros);
  Require(!text.empty());
  if (std::isfinite(number) && format.precision != 0 && format.precision != kKeepPrintedDigits) {
    // A cut text reads back to the number within one unit of its last digit,
    // plus the rounding of the sixth digit that the fixed print makes; what
    // is below 1e-5 prints as zero.
    const double back = StringToDouble(text, std::nan(""));
    const double lastDigit = std::pow(10.0, -static_cast<double>(std::min<uint64_t>(format.precision, 6)));
    Require(std::fabs(back - number) <= lastDigit + 1e-6 + 1e-5 + std::fabs(number) * 1e-15);
  }
  const std::wstring pattern = input.UpTo(L'\n');
  const std::wstring subject = input.Rest();
  (void)MatchWildcard(subject.c_str(), pattern.c_str());
  Require(MatchWildcard(subject.c_str(), L"*"));
  const bool like = MatchLike(subject, pattern);
  if (pattern.find(L'*') == std::wstring::npos) Require(like == (subject == pattern));
  const Value asText{subject};
  (void)ValueToInt(asText);
  (void)StringToDouble(subject, 0.0);
  Require(ValuesEqual(MakeValueView(asText), MakeValueView(asText)));
  const Value asNumber{number};
  (void)CompareValues(MakeValueView(asNumber), MakeValueView(asText));
  (void)ValuesEqual(MakeValueView(asNumber), MakeValueView(asText));
  (void)ValueToInt(asNumber);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  const uint8_t selector = input.Byte();
  const NumberFormat format = FormatFrom(selector);
  switch (selector % 3) {
    case 0:
      FuzzTextFormula(input, format);
      break;
    case 1:
      FuzzCondition(input, format);
      break;
    default:
      FuzzConversions(input, format);
      break;
  }
  return 0;
}

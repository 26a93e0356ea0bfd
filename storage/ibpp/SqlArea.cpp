#include "storage/ibpp/SqlArea.h"

#include "storage/ibpp/StatusVector.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <new>

namespace IBPP::detail {
namespace {

constexpr const char* kWhere = "Statement";
constexpr int kInitialVariables = 8;

short BaseType(short type) { return static_cast<short>(type & ~1); }

// Bytes that a variable of this described type needs.
std::size_t StorageBytes(short type, short length) {
  switch (BaseType(type)) {
    case SQL_VARYING:
      return static_cast<std::size_t>(length) + sizeof(short);
    default:
      return length > 0 ? static_cast<std::size_t>(length) : sizeof(std::int64_t);
  }
}

bool SameIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 'a' + 'A');
    if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 'a' + 'A');
    if (x != y) return false;
  }
  return true;
}

double PowerOfTen(int exponent) { return std::pow(10.0, exponent); }

}  // namespace

SqlArea::SqlArea() { Allocate(kInitialVariables); }

void SqlArea::Allocate(int variables) {
  void* memory = std::calloc(1, XSQLDA_LENGTH(variables));
  if (memory == nullptr) throw std::bad_alloc();
  descriptor_.reset(static_cast<XSQLDA*>(memory));
  descriptor_->version = SQLDA_VERSION1;
  descriptor_->sqln = static_cast<ISC_SHORT>(variables);
}

void SqlArea::Grow() { Allocate(descriptor_->sqld); }

XSQLVAR& SqlArea::Var(int index) const {
  if (index < 0 || index >= descriptor_->sqld) ThrowUsageError(kWhere, "no such column or parameter number");
  return descriptor_->sqlvar[index];
}

void SqlArea::Bind() {
  const int count = descriptor_->sqld;
  buffers_.assign(count, {});
  indicators_.assign(count, 0);
  described_.clear();
  for (int i = 0; i < count; ++i) {
    XSQLVAR& var = descriptor_->sqlvar[i];
    described_.push_back({var.sqltype, var.sqlsubtype, var.sqllen, var.sqlscale});
    var.sqldata = Buffer(i, StorageBytes(var.sqltype, var.sqllen));
    var.sqlind = &indicators_[i];
  }
}

char* SqlArea::Buffer(int index, std::size_t bytes) {
  auto& buffer = buffers_[index];
  const std::size_t words = (bytes + sizeof(std::int64_t) - 1) / sizeof(std::int64_t);
  if (buffer.size() < words) buffer.assign(words, 0);
  return reinterpret_cast<char*>(buffer.data());
}

int SqlArea::Find(std::string_view name) const {
  for (int i = 0; i < descriptor_->sqld; ++i) {
    const XSQLVAR& var = descriptor_->sqlvar[i];
    if (SameIgnoringAsciiCase(std::string_view(var.aliasname, var.aliasname_length), name)) return i;
  }
  return -1;
}

std::string SqlArea::Label(int index) const {
  const XSQLVAR& var = Var(index);
  return std::string(var.aliasname, var.aliasname_length);
}

void SqlArea::Coerce(int index, short type, short length, short subType) {
  XSQLVAR& var = Var(index);
  var.sqltype = static_cast<short>(type | 1);
  var.sqllen = length;
  var.sqlsubtype = subType;
  var.sqlscale = 0;
  var.sqldata = Buffer(index, StorageBytes(type, length));
  indicators_[index] = 0;
}

void SqlArea::SetNull(int index) {
  XSQLVAR& var = Var(index);  // checks the index before described_ is read
  const Described& own = described_[index];
  var.sqltype = static_cast<short>(own.type | 1);
  var.sqllen = own.length;
  var.sqlsubtype = own.subType;
  var.sqlscale = own.scale;
  var.sqldata = Buffer(index, StorageBytes(own.type, own.length));
  indicators_[index] = -1;
}

void SqlArea::SetInt(int index, std::int32_t value) {
  Coerce(index, SQL_LONG, sizeof value, 0);
  std::memcpy(Var(index).sqldata, &value, sizeof value);
}

void SqlArea::SetDouble(int index, double value) {
  Coerce(index, SQL_DOUBLE, sizeof value, 0);
  std::memcpy(Var(index).sqldata, &value, sizeof value);
}

void SqlArea::SetText(int index, std::string_view bytes) {
  Var(index);
  if (bytes.size() > 32767) ThrowUsageError(kWhere, "a text parameter holds at most 32767 bytes");
  // A text parameter keeps its own character set; anything else takes the
  // bytes as they are (NONE) and lets the server convert.
  const Described& own = described_[index];
  const short base = BaseType(own.type);
  const short charSet = (base == SQL_TEXT || base == SQL_VARYING) ? own.subType : 0;
  Coerce(index, SQL_TEXT, static_cast<short>(bytes.size()), charSet);
  if (!bytes.empty()) std::memcpy(Var(index).sqldata, bytes.data(), bytes.size());
}

void SqlArea::SetBlob(int index, BlobId id) {
  Var(index);
  const short base = BaseType(described_[index].type);
  Coerce(index, SQL_BLOB, sizeof(ISC_QUAD), base == SQL_BLOB ? described_[index].subType : 0);
  ISC_QUAD quad;
  quad.gds_quad_high = id.high;
  quad.gds_quad_low = id.low;
  std::memcpy(Var(index).sqldata, &quad, sizeof quad);
}

bool SqlArea::IsNull(int index) const {
  const XSQLVAR& var = Var(index);
  return (var.sqltype & 1) != 0 && *var.sqlind < 0;
}

bool SqlArea::ReadExact(int index, std::int64_t& value, short& scale) const {
  const XSQLVAR& var = Var(index);
  scale = var.sqlscale;
  switch (BaseType(var.sqltype)) {
    case SQL_SHORT: {
      std::int16_t v;
      std::memcpy(&v, var.sqldata, sizeof v);
      value = v;
      return true;
    }
    case SQL_LONG: {
      std::int32_t v;
      std::memcpy(&v, var.sqldata, sizeof v);
      value = v;
      return true;
    }
    case SQL_INT64:
      std::memcpy(&value, var.sqldata, sizeof value);
      return true;
    case SQL_BOOLEAN:
      value = *reinterpret_cast<const unsigned char*>(var.sqldata) != 0 ? 1 : 0;
      scale = 0;
      return true;
    default:
      return false;
  }
}

bool SqlArea::GetInt(int index, std::int32_t& value) const {
  value = 0;
  std::int64_t exact = 0;
  short scale = 0;
  if (!ReadExact(index, exact, scale)) ThrowType(index, "an integer");
  if (IsNull(index)) return true;
  if (scale != 0) exact = std::llround(static_cast<double>(exact) * PowerOfTen(scale));
  if (exact < std::numeric_limits<std::int32_t>::min() || exact > std::numeric_limits<std::int32_t>::max())
    ThrowUsageError(kWhere, "column " + Label(index) + " holds a value beyond 32 bits");
  value = static_cast<std::int32_t>(exact);
  return false;
}

bool SqlArea::GetDouble(int index, double& value) const {
  value = 0.0;
  const XSQLVAR& var = Var(index);
  const short base = BaseType(var.sqltype);
  if (base == SQL_DOUBLE || base == SQL_FLOAT || base == SQL_D_FLOAT) {
    if (IsNull(index)) return true;
    if (base == SQL_FLOAT) {
      float v;
      std::memcpy(&v, var.sqldata, sizeof v);
      value = v;
    } else {
      std::memcpy(&value, var.sqldata, sizeof value);
    }
    return false;
  }
  std::int64_t exact = 0;
  short scale = 0;
  if (!ReadExact(index, exact, scale)) ThrowType(index, "a double");
  if (IsNull(index)) return true;
  value = static_cast<double>(exact) * PowerOfTen(scale);
  return false;
}

bool SqlArea::GetText(int index, std::string& value) const {
  std::string_view bytes;
  const bool isNull = GetText(index, bytes);
  value.assign(bytes);
  return isNull;
}

bool SqlArea::GetText(int index, std::string_view& value) const {
  value = {};
  const XSQLVAR& var = Var(index);
  const short base = BaseType(var.sqltype);
  if (base != SQL_TEXT && base != SQL_VARYING) ThrowType(index, "a string");
  if (IsNull(index)) return true;
  if (base == SQL_TEXT) {
    value = std::string_view(var.sqldata, static_cast<std::size_t>(var.sqllen));
  } else {
    short length;
    std::memcpy(&length, var.sqldata, sizeof length);
    value = std::string_view(var.sqldata + sizeof length, static_cast<std::size_t>(length));
  }
  return false;
}

bool SqlArea::GetBlob(int index, BlobId& value) const {
  value = BlobId{};
  const XSQLVAR& var = Var(index);
  if (BaseType(var.sqltype) != SQL_BLOB) ThrowType(index, "a blob");
  if (IsNull(index)) return true;
  ISC_QUAD quad;
  std::memcpy(&quad, var.sqldata, sizeof quad);
  value = BlobId{quad.gds_quad_high, quad.gds_quad_low};
  return false;
}

void SqlArea::ThrowType(int index, const char* wanted) const {
  ThrowUsageError(kWhere, "column " + Label(index) + " cannot be read as " + wanted);
}

}  // namespace IBPP::detail

// SqlArea: an XSQLDA (the client library's description of a statement's
// parameters or columns) together with the buffers its variables point at,
// and the conversions between those buffers and the layer's value types.
//
// Parameters are written by changing a variable's type to the type of the
// value given (the server converts it to the parameter's own type); columns
// are read in the type the server described. Internal to the layer; one per
// side of a Statement. Not thread-safe.
#pragma once

#include "storage/ibpp/Handles.h"

#include <ibase.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace IBPP::detail {

class SqlArea {
 public:
  SqlArea();

  XSQLDA* Descriptor() { return descriptor_.get(); }
  // After a prepare or describe: whether every variable found room.
  bool Complete() const { return descriptor_->sqld <= descriptor_->sqln; }
  // Makes room for all described variables; describe again afterwards.
  void Grow();
  // Points every described variable at a buffer fitting its described type
  // and at a null indicator; remembers the described types.
  void Bind();

  int Count() const { return descriptor_->sqld; }
  // 0-based index of the column whose label is name (ASCII case ignored), or -1.
  int Find(std::string_view name) const;
  std::string Label(int index) const;

  // Parameters; index is 0-based.
  void SetNull(int index);
  void SetInt(int index, std::int32_t value);
  void SetDouble(int index, double value);
  void SetText(int index, std::string_view bytes);
  void SetBlob(int index, BlobId id);

  // Columns; index is 0-based. Each returns true when the value is null, and
  // then leaves the zero value (0, 0.0, empty, no blob).
  bool IsNull(int index) const;
  bool GetInt(int index, std::int32_t& value) const;
  bool GetDouble(int index, double& value) const;
  bool GetText(int index, std::string& value) const;
  // Points into the variable's buffer.
  bool GetText(int index, std::string_view& value) const;
  bool GetBlob(int index, BlobId& value) const;

 private:
  struct Described {
    short type;
    short subType;
    short length;
    short scale;
  };
  struct FreeDeleter {
    void operator()(XSQLDA* area) const { std::free(area); }
  };

  void Allocate(int variables);
  XSQLVAR& Var(int index) const;
  // Gives variable index a buffer of at least bytes bytes.
  char* Buffer(int index, std::size_t bytes);
  void Coerce(int index, short type, short length, short subType);
  // Integer columns with their scale, as a scaled integer and its scale.
  bool ReadExact(int index, std::int64_t& value, short& scale) const;
  [[noreturn]] void ThrowType(int index, const char* wanted) const;

  std::unique_ptr<XSQLDA, FreeDeleter> descriptor_;
  // One buffer per variable; int64 elements keep every type aligned.
  std::vector<std::vector<std::int64_t>> buffers_;
  std::vector<short> indicators_;
  std::vector<Described> described_;
};

}  // namespace IBPP::detail

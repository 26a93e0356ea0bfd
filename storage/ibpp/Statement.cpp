#include "storage/ibpp/Statement.h"

#include "storage/ibpp/Blob.h"
#include "storage/ibpp/Database.h"
#include "storage/ibpp/SqlArea.h"
#include "storage/ibpp/StatusVector.h"
#include "storage/ibpp/Transaction.h"

#include <string>
#include <vector>

namespace IBPP {
namespace {

constexpr const char* kWhere = "Statement";

}  // namespace

class Statement::Impl {
 public:
  Impl(Database& database, Transaction& transaction) : database_(database), transaction_(transaction) {}

  ~Impl() {
    if (handle_ == 0) return;
    detail::StatusVector status;
    isc_dsql_free_statement(status.Get(), &handle_, DSQL_drop);
  }

  void Prepare(std::string_view sql) {
    if (sql.size() > 65535) detail::ThrowUsageError(kWhere, "SQL text longer than 65535 bytes");
    Allocate();
    CloseCursor();
    prepared_ = false;
    rowAvailable_ = false;

    detail::StatusVector status;
    isc_dsql_prepare(status.Get(), transaction_.Handle(), &handle_, static_cast<unsigned short>(sql.size()),
                     sql.data(), Database::kDialect, columns_.Descriptor());
    status.ThrowIfFailed();
    if (!columns_.Complete()) {
      columns_.Grow();
      isc_dsql_describe(status.Get(), &handle_, Database::kDialect, columns_.Descriptor());
      status.ThrowIfFailed();
    }
    columns_.Bind();

    isc_dsql_describe_bind(status.Get(), &handle_, Database::kDialect, parameters_.Descriptor());
    status.ThrowIfFailed();
    if (!parameters_.Complete()) {
      parameters_.Grow();
      isc_dsql_describe_bind(status.Get(), &handle_, Database::kDialect, parameters_.Descriptor());
      status.ThrowIfFailed();
    }
    parameters_.Bind();
    parameterSet_.assign(parameters_.Count(), false);
    type_ = QueryType();
    prepared_ = true;
  }

  void Execute() {
    if (!prepared_) detail::ThrowUsageError(kWhere, "Execute before Prepare");
    for (std::size_t i = 0; i < parameterSet_.size(); ++i) {
      if (!parameterSet_[i])
        detail::ThrowUsageError(kWhere, "parameter " + std::to_string(i + 1) + " has not been set");
    }
    CloseCursor();
    rowAvailable_ = false;

    detail::StatusVector status;
    XSQLDA* input = parameters_.Count() > 0 ? parameters_.Descriptor() : nullptr;
    if (type_ == isc_info_sql_stmt_exec_procedure && columns_.Count() > 0) {
      // EXECUTE PROCEDURE and INSERT ... RETURNING: the row comes back now.
      isc_dsql_execute2(status.Get(), transaction_.Handle(), &handle_, Database::kDialect, input,
                        columns_.Descriptor());
      status.ThrowIfFailed();
      rowAvailable_ = true;
      return;
    }
    isc_dsql_execute(status.Get(), transaction_.Handle(), &handle_, Database::kDialect, input);
    status.ThrowIfFailed();
    cursorOpen_ = type_ == isc_info_sql_stmt_select || type_ == isc_info_sql_stmt_select_for_upd;
  }

  bool Fetch() {
    if (!cursorOpen_) detail::ThrowUsageError(kWhere, "Fetch without an open cursor");
    detail::StatusVector status;
    const ISC_STATUS result = isc_dsql_fetch(status.Get(), &handle_, Database::kDialect, columns_.Descriptor());
    if (result == 100) {
      CloseCursor();
      rowAvailable_ = false;
      return false;
    }
    if (result != 0) {
      rowAvailable_ = false;
      status.ThrowIfFailed();
    }
    rowAvailable_ = true;
    return true;
  }

  detail::SqlArea& ParametersToSet(int parameter) {
    if (!prepared_) detail::ThrowUsageError(kWhere, "Set before Prepare");
    if (parameter < 1 || parameter > parameters_.Count())
      detail::ThrowUsageError(kWhere, "no parameter number " + std::to_string(parameter));
    parameterSet_[parameter - 1] = true;
    return parameters_;
  }

  const detail::SqlArea& Row() const {
    if (!rowAvailable_) detail::ThrowUsageError(kWhere, "Get without a current row");
    return columns_;
  }

  int ColumnIndex(int column) const {
    if (column < 1 || column > columns_.Count())
      detail::ThrowUsageError(kWhere, "no column number " + std::to_string(column));
    return column - 1;
  }

  int ColumnIndex(std::string_view name) const {
    const int index = columns_.Find(name);
    if (index < 0) detail::ThrowUsageError(kWhere, "no column named " + std::string(name));
    return index;
  }

  int Parameters() const { return prepared_ ? parameters_.Count() : 0; }
  int Columns() const { return prepared_ ? columns_.Count() : 0; }

 private:
  void Allocate() {
    if (handle_ != 0) return;
    detail::StatusVector status;
    isc_dsql_allocate_statement(status.Get(), database_.Handle(), &handle_);
    if (status.Failed()) {
      handle_ = 0;
      status.ThrowIfFailed();
    }
  }

  // A commit closes the server's cursor behind our back, so a failure here
  // only means there was nothing left to close.
  void CloseCursor() {
    if (!cursorOpen_) return;
    cursorOpen_ = false;
    detail::StatusVector status;
    isc_dsql_free_statement(status.Get(), &handle_, DSQL_close);
  }

  int QueryType() {
    const char item = isc_info_sql_stmt_type;
    char answer[16];
    detail::StatusVector status;
    isc_dsql_sql_info(status.Get(), &handle_, 1, &item, sizeof answer, answer);
    status.ThrowIfFailed();
    if (answer[0] != isc_info_sql_stmt_type) detail::ThrowUsageError(kWhere, "statement type unknown");
    const short length = static_cast<short>(isc_vax_integer(answer + 1, 2));
    return static_cast<int>(isc_vax_integer(answer + 3, length));
  }

  Database& database_;
  Transaction& transaction_;
  isc_stmt_handle handle_ = 0;
  detail::SqlArea parameters_;
  detail::SqlArea columns_;
  std::vector<bool> parameterSet_;
  int type_ = 0;
  bool prepared_ = false;
  bool cursorOpen_ = false;
  bool rowAvailable_ = false;
};

Statement::Statement(Database& database, Transaction& transaction)
    : impl_(std::make_unique<Impl>(database, transaction)) {}

Statement::~Statement() = default;
Statement::Statement(Statement&& other) noexcept = default;
Statement& Statement::operator=(Statement&& other) noexcept = default;

void Statement::Prepare(std::string_view sql) { impl_->Prepare(sql); }
void Statement::Execute() { impl_->Execute(); }

void Statement::Execute(std::string_view sql) {
  impl_->Prepare(sql);
  impl_->Execute();
}

bool Statement::Fetch() { return impl_->Fetch(); }
int Statement::Parameters() const { return impl_->Parameters(); }
int Statement::Columns() const { return impl_->Columns(); }

void Statement::SetNull(int parameter) { impl_->ParametersToSet(parameter).SetNull(parameter - 1); }
void Statement::Set(int parameter, std::int32_t value) { impl_->ParametersToSet(parameter).SetInt(parameter - 1, value); }
void Statement::Set(int parameter, double value) { impl_->ParametersToSet(parameter).SetDouble(parameter - 1, value); }

void Statement::Set(int parameter, std::string_view bytes) {
  impl_->ParametersToSet(parameter).SetText(parameter - 1, bytes);
}

void Statement::Set(int parameter, const Blob& blob) {
  if (blob.Id().IsEmpty()) detail::ThrowUsageError(kWhere, "a blob parameter must be created first");
  impl_->ParametersToSet(parameter).SetBlob(parameter - 1, blob.Id());
}

bool Statement::IsNull(int column) const { return impl_->Row().IsNull(impl_->ColumnIndex(column)); }
bool Statement::Get(int column, std::int32_t& value) const { return impl_->Row().GetInt(impl_->ColumnIndex(column), value); }
bool Statement::Get(int column, double& value) const { return impl_->Row().GetDouble(impl_->ColumnIndex(column), value); }
bool Statement::Get(int column, std::string& value) const { return impl_->Row().GetText(impl_->ColumnIndex(column), value); }
bool Statement::Get(int column, std::string_view& value) const {
  return impl_->Row().GetText(impl_->ColumnIndex(column), value);
}

bool Statement::Get(int column, Blob& blob) const {
  BlobId id;
  const bool isNull = impl_->Row().GetBlob(impl_->ColumnIndex(column), id);
  blob.SetId(id);
  return isNull;
}

bool Statement::IsNull(std::string_view column) const { return impl_->Row().IsNull(impl_->ColumnIndex(column)); }

bool Statement::Get(std::string_view column, std::int32_t& value) const {
  return impl_->Row().GetInt(impl_->ColumnIndex(column), value);
}

bool Statement::Get(std::string_view column, double& value) const {
  return impl_->Row().GetDouble(impl_->ColumnIndex(column), value);
}

bool Statement::Get(std::string_view column, std::string& value) const {
  return impl_->Row().GetText(impl_->ColumnIndex(column), value);
}

bool Statement::Get(std::string_view column, Blob& blob) const {
  BlobId id;
  const bool isNull = impl_->Row().GetBlob(impl_->ColumnIndex(column), id);
  blob.SetId(id);
  return isNull;
}

}  // namespace IBPP

#include "DirectClient.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <stdexcept>

namespace lxtest {
namespace {

void Check(const ISC_STATUS* status, const char* what) {
  if (status[0] == 1 && status[1] != 0) throw std::runtime_error(std::string("client call failed: ") + what);
}

XSQLDA* Area(std::vector<char>& bytes, int variables) {
  bytes.assign(XSQLDA_LENGTH(variables), 0);
  XSQLDA* area = reinterpret_cast<XSQLDA*>(bytes.data());
  area->version = SQLDA_VERSION1;
  area->sqln = static_cast<short>(variables);
  return area;
}

}  // namespace

ClientAttachment::ClientAttachment(const std::string& path) {
  const std::string user = "SYSDBA";
  std::vector<char> dpb{isc_dpb_version1, isc_dpb_utf8_filename, 0, isc_dpb_user_name, static_cast<char>(user.size())};
  dpb.insert(dpb.end(), user.begin(), user.end());
  ISC_STATUS_ARRAY status{};
  isc_attach_database(status, static_cast<short>(path.size()), path.c_str(), &handle_, static_cast<short>(dpb.size()),
                      dpb.data());
  Check(status, "attach");
}

ClientAttachment::~ClientAttachment() {
  ISC_STATUS_ARRAY status{};
  if (handle_ != 0) isc_detach_database(status, &handle_);
}

ClientTransaction::ClientTransaction(ClientAttachment& attachment) {
  static char tpb[] = {isc_tpb_version3, isc_tpb_write, isc_tpb_read_committed, isc_tpb_no_rec_version, isc_tpb_nowait};
  ISC_STATUS_ARRAY status{};
  isc_start_transaction(status, &handle_, 1, attachment.Handle(), sizeof tpb, tpb);
  Check(status, "start");
}

ClientTransaction::~ClientTransaction() {
  ISC_STATUS_ARRAY status{};
  if (handle_ != 0) isc_rollback_transaction(status, &handle_);
}

ClientQuery::ClientQuery(ClientAttachment& attachment, ClientTransaction& transaction, const char* sql)
    : transaction_(transaction) {
  ISC_STATUS_ARRAY status{};
  isc_dsql_allocate_statement(status, attachment.Handle(), &handle_);
  Check(status, "allocate");
  XSQLDA* output = Area(outputArea_, 1);
  isc_dsql_prepare(status, transaction_.Handle(), &handle_, 0, sql, 3, output);
  Check(status, "prepare");
  const int columns = output->sqld;
  output = Area(outputArea_, columns);
  isc_dsql_describe(status, &handle_, 1, output);
  Check(status, "describe");
  buffers_.resize(static_cast<std::size_t>(columns));
  nulls_.resize(static_cast<std::size_t>(columns));
  for (int i = 0; i < columns; ++i) {
    XSQLVAR& column = output->sqlvar[i];
    buffers_[i].assign(static_cast<std::size_t>(column.sqllen) / sizeof(std::int64_t) + 2, 0);
    column.sqldata = reinterpret_cast<char*>(buffers_[i].data());
    column.sqlind = &nulls_[i];
  }
  XSQLDA* input = Area(inputArea_, 1);
  isc_dsql_describe_bind(status, &handle_, 1, input);
  Check(status, "describe bind");
  if (input->sqld == 1) {
    input->sqlvar[0].sqltype = SQL_LONG + 1;
    input->sqlvar[0].sqllen = sizeof parameter_;
    input->sqlvar[0].sqldata = reinterpret_cast<char*>(&parameter_);
    input->sqlvar[0].sqlind = &parameterNull_;
  }
}

ClientQuery::~ClientQuery() {
  ISC_STATUS_ARRAY status{};
  if (handle_ != 0) isc_dsql_free_statement(status, &handle_, DSQL_drop);
}

std::int64_t ClientQuery::Run() {
  ISC_STATUS_ARRAY status{};
  isc_dsql_execute(status, transaction_.Handle(), &handle_, 1, nullptr);
  Check(status, "execute");
  return FetchAll();
}

std::int64_t ClientQuery::Run(std::int32_t parameter) {
  parameter_ = parameter;
  ISC_STATUS_ARRAY status{};
  isc_dsql_execute(status, transaction_.Handle(), &handle_, 1, reinterpret_cast<XSQLDA*>(inputArea_.data()));
  Check(status, "execute");
  return FetchAll();
}

std::int64_t ClientQuery::FetchAll() {
  XSQLDA* output = reinterpret_cast<XSQLDA*>(outputArea_.data());
  ISC_STATUS_ARRAY status{};
  std::int64_t rows = 0;
  ISC_STATUS fetched = 0;
  std::string text;
  while ((fetched = isc_dsql_fetch(status, &handle_, 1, output)) == 0) {
    // Read every column as a client would: integers and doubles by value,
    // text copied out of its buffer.
    for (int i = 0; i < output->sqld; ++i) {
      const XSQLVAR& column = output->sqlvar[i];
      if ((column.sqltype & 1) && nulls_[i] < 0) continue;
      switch (column.sqltype & ~1) {
        case SQL_VARYING: {
          short length = 0;
          std::memcpy(&length, column.sqldata, sizeof length);
          text.assign(column.sqldata + sizeof length, static_cast<std::size_t>(length));
          benchmark::DoNotOptimize(text.data());
          break;
        }
        case SQL_TEXT:
          text.assign(column.sqldata, static_cast<std::size_t>(column.sqllen));
          benchmark::DoNotOptimize(text.data());
          break;
        default:
          benchmark::DoNotOptimize(buffers_[i][0]);
          break;
      }
    }
    ++rows;
  }
  if (fetched != 100) Check(status, "fetch");
  return rows;
}

}  // namespace lxtest

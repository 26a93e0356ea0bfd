#include "DirectClient.h"

#include <benchmark/benchmark.h>

#include <algorithm>
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
  Execute(parameter);
  return FetchAll();
}

void ClientQuery::Execute(std::int32_t parameter) {
  parameter_ = parameter;
  ISC_STATUS_ARRAY status{};
  // A cursor stays open after its last row; a new execution needs it closed.
  // Closing one that isn't open only fails, which changes nothing.
  isc_dsql_free_statement(status, &handle_, DSQL_close);
  isc_dsql_execute(status, transaction_.Handle(), &handle_, 1, reinterpret_cast<XSQLDA*>(inputArea_.data()));
  Check(status, "execute");
}

bool ClientQuery::Fetch() {
  ISC_STATUS_ARRAY status{};
  const ISC_STATUS fetched = isc_dsql_fetch(status, &handle_, 1, reinterpret_cast<XSQLDA*>(outputArea_.data()));
  if (fetched == 100) return false;
  Check(status, "fetch");
  return true;
}

const XSQLVAR& ClientQuery::Column(int column) const {
  return reinterpret_cast<const XSQLDA*>(outputArea_.data())->sqlvar[column - 1];
}

std::int32_t ClientQuery::Int(int column) const {
  std::int32_t value = 0;
  std::memcpy(&value, Column(column).sqldata, sizeof value);
  return value;
}

std::string ClientQuery::Text(int column) const {
  short length = 0;
  std::memcpy(&length, Column(column).sqldata, sizeof length);
  return std::string(Column(column).sqldata + sizeof length, static_cast<std::size_t>(length));
}

ISC_QUAD ClientQuery::BlobId(int column) const {
  ISC_QUAD id{};
  std::memcpy(&id, Column(column).sqldata, sizeof id);
  return id;
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

std::vector<unsigned char> ReadClientBlob(ClientAttachment& attachment, ClientTransaction& transaction,
                                          ISC_QUAD id) {
  ISC_STATUS_ARRAY status{};
  isc_blob_handle blob = 0;
  isc_open_blob2(status, attachment.Handle(), transaction.Handle(), &blob, &id, 0, nullptr);
  Check(status, "open blob");
  const char items[] = {isc_info_blob_total_length, isc_info_blob_max_segment};
  char info[64] = {};
  isc_blob_info(status, &blob, sizeof items, items, sizeof info, info);
  Check(status, "blob info");
  ISC_LONG total = 0;
  ISC_LONG largest = 0;
  for (char* item = info; *item != isc_info_end;) {
    const short length = static_cast<short>(isc_vax_integer(item + 1, 2));
    const ISC_LONG value = isc_vax_integer(item + 3, length);
    if (*item == isc_info_blob_total_length) total = value;
    if (*item == isc_info_blob_max_segment) largest = value;
    item += 3 + length;
  }
  std::vector<unsigned char> bytes(static_cast<std::size_t>(total));
  for (std::size_t done = 0; done < bytes.size();) {
    unsigned short read = 0;
    const auto room = static_cast<unsigned short>(std::min<std::size_t>(bytes.size() - done, largest));
    const ISC_STATUS result =
        isc_get_segment(status, &blob, &read, room, reinterpret_cast<char*>(bytes.data() + done));
    if (result != 0 && result != isc_segment) Check(status, "get segment");
    if (read == 0) throw std::runtime_error("blob ended before its stated length");
    done += read;
  }
  isc_close_blob(status, &blob);
  Check(status, "close blob");
  return bytes;
}

}  // namespace lxtest

// A command document of 1,000 create_spec commands, one per size of a
// generated catalog (each its own template), each writing 3 specifications
// of 10 columns, against the same reads, deletes and inserts run on the
// bare client in one transaction. Both sides replace rows the previous run
// left, so every iteration deletes 3,000 specifications and 30,000 columns
// and writes as many.
#include <benchmark/benchmark.h>
#include <ibase.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "DirectClient.h"
#include "GeneratedCatalog.h"
#include "LxDataAccess.h"
#include "platform/TextCodec.h"

namespace {

constexpr std::int32_t kCommands = 1000;
constexpr int kSpecs = 3;
constexpr int kColumns = 10;

std::string LibName(int spec) { return "lib" + std::to_string(spec); }
std::string Formula(int spec, int column) {
  return "{A" + std::to_string(21 + column) + "}*" + std::to_string(spec + 1) + "+x";
}

// The catalog, the provider on it, and what the document names.
struct Setup {
  std::unique_ptr<lxtest::GeneratedCatalog> catalog;
  LxDataProvider* provider = nullptr;
  std::wstring document;
  std::vector<std::int32_t> templates;
};

Setup& TheSetup() {
  static Setup setup = [] {
    Setup made;
    CatalogShape shape;
    shape.packets = 1;
    shape.depth = 0;
    shape.templatesPerFolder = kCommands;
    shape.sizesPerTemplate = 1;
    shape.idSpecification = false;
    made.catalog = std::make_unique<lxtest::GeneratedCatalog>("bench-command", shape);
    LxProviderPool* pool = lxAddLibraryProviderPool(L"CommandBench", L"/bench/command.ulb");
    made.provider = pool_AddProvider(pool, L"", made.catalog->Path().c_str(), L"SYSDBA", L"");
    if (made.provider == nullptr) throw std::runtime_error("attach failed");
    LxPacket* packet = provider_GetPacket(made.provider, 0);
    LxFolderTable* table = folder_GetTable(packet_GetRootFolder(packet));
    if (table == nullptr || table_GetStdSizeCount(table) != kCommands) throw std::runtime_error("unexpected catalog");
    std::wstring specs;
    for (int s = 0; s < kSpecs; ++s) {
      specs += L"<spec libName=\"" + Utf8ToWide(LibName(s)) + L"\" styleNum=\"" + std::to_wstring(s) +
               L"\" firstPart=\"1\" secondPart=\"2\">";
      for (int c = 0; c < kColumns; ++c)
        specs += L"<column num=\"" + std::to_wstring(c + 1) + L"\" formula=\"" + Utf8ToWide(Formula(s, c)) + L"\"/>";
      specs += L"</spec>";
    }
    made.document = L"<commands>";
    for (std::int32_t i = 0; i < kCommands; ++i) {
      LxStdSize* size = table_GetStdSize(table, i);
      made.templates.push_back(stdsize_GetTemplateID(size));
      made.document += L"<command type=\"create_spec\"><stdSize packet=\"" + std::wstring(packet_GetName(packet)) +
                       L"\" id=\"" + stdsize_GetID(size) + L"\"/>" + specs + L"</command>";
    }
    made.document += L"</commands>";
    // Both sides measure the steady state: rows to replace on every run.
    if (!provider_RunCommand(made.provider, made.document.c_str())) throw std::runtime_error("first run failed");
    return made;
  }();
  return setup;
}

void Check(const ISC_STATUS* status, const char* what) {
  if (status[0] == 1 && status[1] != 0) throw std::runtime_error(std::string("client call failed: ") + what);
}

// One prepared statement with integer and text parameters bound in their
// native types, and at most one integer column returned.
class Writer {
 public:
  Writer(lxtest::ClientAttachment& attachment, lxtest::ClientTransaction& transaction, const char* sql,
         const std::string& kinds)
      : transaction_(transaction), kinds_(kinds), ints_(kinds.size()), texts_(kinds.size()), nulls_(kinds.size()) {
    ISC_STATUS_ARRAY status{};
    isc_dsql_allocate_statement(status, attachment.Handle(), &handle_);
    Check(status, "allocate");
    outputArea_.assign(XSQLDA_LENGTH(1), 0);
    XSQLDA* output = Output();
    output->version = SQLDA_VERSION1;
    output->sqln = 1;
    isc_dsql_prepare(status, transaction_.Handle(), &handle_, 0, sql, 3, output);
    Check(status, "prepare");
    returns_ = output->sqld == 1;
    output->sqlvar[0].sqltype = SQL_LONG + 1;
    output->sqlvar[0].sqllen = sizeof result_;
    output->sqlvar[0].sqldata = reinterpret_cast<char*>(&result_);
    output->sqlvar[0].sqlind = &resultNull_;
    inputArea_.assign(XSQLDA_LENGTH(kinds.size()), 0);
    XSQLDA* input = Input();
    input->version = SQLDA_VERSION1;
    input->sqln = static_cast<short>(kinds.size());
    isc_dsql_describe_bind(status, &handle_, 1, input);
    Check(status, "describe bind");
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      XSQLVAR& parameter = input->sqlvar[i];
      parameter.sqlind = &nulls_[i];
      if (kinds[i] == 'i') {
        parameter.sqltype = SQL_LONG + 1;
        parameter.sqllen = sizeof(std::int32_t);
        parameter.sqlscale = 0;
        parameter.sqldata = reinterpret_cast<char*>(&ints_[i]);
      } else {
        parameter.sqltype = SQL_TEXT + 1;
        parameter.sqlsubtype = 0;
      }
    }
  }
  ~Writer() {
    ISC_STATUS_ARRAY status{};
    isc_dsql_free_statement(status, &handle_, DSQL_drop);
  }
  void Int(std::size_t index, std::int32_t value) { ints_[index] = value; }
  void Text(std::size_t index, const std::string& value) {
    texts_[index] = value;
    Input()->sqlvar[index].sqldata = texts_[index].data();
    Input()->sqlvar[index].sqllen = static_cast<short>(texts_[index].size());
  }
  std::int32_t Execute() {
    ISC_STATUS_ARRAY status{};
    isc_dsql_execute2(status, transaction_.Handle(), &handle_, 3, Input(), returns_ ? Output() : nullptr);
    Check(status, "execute");
    return returns_ ? result_ : 0;
  }

 private:
  XSQLDA* Input() { return reinterpret_cast<XSQLDA*>(inputArea_.data()); }
  XSQLDA* Output() { return reinterpret_cast<XSQLDA*>(outputArea_.data()); }

  lxtest::ClientTransaction& transaction_;
  isc_stmt_handle handle_ = 0;
  std::string kinds_;
  std::vector<char> inputArea_;
  std::vector<char> outputArea_;
  std::vector<std::int32_t> ints_;
  std::vector<std::string> texts_;
  std::vector<short> nulls_;
  bool returns_ = false;
  std::int32_t result_ = 0;
  short resultNull_ = 0;
};

void BM_LibraryCommandDocument(benchmark::State& state) {
  Setup& setup = TheSetup();
  for (auto _ : state) {
    if (!provider_RunCommand(setup.provider, setup.document.c_str())) state.SkipWithError("document failed");
  }
  state.counters["commands_per_s"] =
      benchmark::Counter(static_cast<double>(kCommands) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_LibraryCommandDocument)->Unit(benchmark::kMillisecond)->MinTime(5);

// What the document does, on the bare client: per template, read the ids
// of its records, delete their columns and them, insert the new ones; one
// commit at the end.
void BM_DirectCommandStatements(benchmark::State& state) {
  Setup& setup = TheSetup();
  const std::string path = WideToUtf8(setup.catalog->Path());
  for (auto _ : state) {
    lxtest::ClientAttachment attachment(path);
    lxtest::ClientTransaction transaction(attachment);
    lxtest::ClientQuery ids(attachment, transaction, "SELECT ID FROM SPECIFICATION WHERE IDOBJECT = ?");
    Writer deleteColumns(attachment, transaction, "DELETE FROM SPECIFICATIONCOLUMN WHERE SPECIFICATIONID = ?", "i");
    Writer deleteSpecs(attachment, transaction, "DELETE FROM SPECIFICATION WHERE IDOBJECT = ?", "i");
    Writer insertSpec(attachment, transaction,
                      "INSERT INTO SPECIFICATION (LIBNAME, STYLENUMBER, IDOBJECT, FIRSTPART, SECONDPART) "
                      "VALUES(?,?,?,?,?) RETURNING ID",
                      "tiiii");
    Writer insertColumn(attachment, transaction,
                        "INSERT INTO SPECIFICATIONCOLUMN (COLNUMBER, FORMULA, SPECIFICATIONID) VALUES(?,?,?)", "iti");
    for (const std::int32_t templateId : setup.templates) {
      std::vector<std::int32_t> old;
      ids.Execute(templateId);
      while (ids.Fetch()) old.push_back(ids.Int(1));
      for (const std::int32_t id : old) {
        deleteColumns.Int(0, id);
        deleteColumns.Execute();
      }
      if (!old.empty()) {
        deleteSpecs.Int(0, templateId);
        deleteSpecs.Execute();
      }
      for (int s = 0; s < kSpecs; ++s) {
        insertSpec.Text(0, LibName(s));
        insertSpec.Int(1, s);
        insertSpec.Int(2, templateId);
        insertSpec.Int(3, 1);
        insertSpec.Int(4, 2);
        const std::int32_t specId = insertSpec.Execute();
        for (int c = 0; c < kColumns; ++c) {
          insertColumn.Int(0, c + 1);
          insertColumn.Text(1, Formula(s, c));
          insertColumn.Int(2, specId);
          insertColumn.Execute();
        }
      }
    }
    ISC_STATUS_ARRAY status{};
    isc_commit_transaction(status, transaction.Handle());
    Check(status, "commit");
  }
  state.counters["commands_per_s"] =
      benchmark::Counter(static_cast<double>(kCommands) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_DirectCommandStatements)->Unit(benchmark::kMillisecond)->MinTime(5);

}  // namespace

// CatalogGeneratorOperation: the SQL of the catalog generator. One object is
// one operation scope (one attachment, one transaction) that reserves ids,
// reads what the new rows refer to, and writes rows through statements
// prepared once and executed for every row. Ids are written explicitly, from
// ranges reserved on the catalog's own generators, so later inserts by the
// library draw ids behind them. ATTRIBUTEVALUE and OBJECTPROJECTION are the
// exceptions: their triggers always assign the id.
//
// The writer commits through a CommitGuard on this scope; until then nothing
// is visible to others. Not thread-safe: one thread uses one scope.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "formula/Value.h"
#include "storage/BaseOperation.h"
#include "tools/CatalogGenerator/IdRange.h"

class CDataProvider;

// The tables whose ids the generator writes itself.
enum class IdTable { Folder, Packet, Object, ObjectAttribute, StandardSize, ConcreteValue, Model, Fragment };

struct TemplateAttributeRow {
  std::int32_t id = 0;
  std::int32_t templateId = 0;
  std::int32_t nameId = 0;
  std::int32_t descriptionId = 0;
  std::int32_t number = 0;
  std::int32_t type = 0;
  const std::wstring* measure = nullptr;
  const std::wstring* varName = nullptr;
  const std::wstring* formula = nullptr;
  // CONCRETEVALUEID; none for attributes without a common value.
  std::optional<std::int32_t> valueId;
};

// One value of a size: the template's attribute row and what it holds.
struct SizeValueRow {
  std::int32_t templateAttributeId = 0;
  Value value;
};

class CatalogGeneratorOperation : public BaseOperation {
 public:
  explicit CatalogGeneratorOperation(CDataProvider* provider);
  ~CatalogGeneratorOperation() override;

  // Switches the nested-bounds trigger of FOLDER, in a scope and committed
  // transaction of its own; metadata changes must be committed before the
  // inserts that rely on them start.
  static void SetFolderBoundTrigger(CDataProvider* provider, bool active);
  static bool FolderBoundTriggerActive(CDataProvider* provider);

  // Reserves `count` ids on the table's generator, first moving the
  // generator past the table's largest id if rows were written with ids of
  // their own. Generators are outside transactions: the reservation stays
  // even if this scope rolls back, which leaves only a gap.
  IdRange ReserveIds(IdTable table, std::int64_t count);
  // The largest bound in FOLDER, 0 when it has no row.
  std::int32_t HighestFolderBound();
  // What every template refers to: the first representation, the object
  // types in id order. std::runtime_error when either table is empty.
  std::int32_t FirstRepresentationId();
  std::vector<std::int32_t> ObjectTypeIds();
  // The dictionary rows for a text, made if missing (GET_ATTR_NAME,
  // GET_ATTR_DESCR), and the size of each dictionary.
  std::int32_t AttributeNameId(const std::wstring& name);
  std::int32_t AttributeDescriptionId(const std::wstring& description);
  std::int64_t AttributeNameRows();
  std::int64_t AttributeDescriptionRows();

  // The rows. A folder without parent passes parentId < 0.
  void InsertFolder(std::int32_t id, std::int32_t parentId, std::int32_t left, std::int32_t right,
                    const std::wstring& name);
  void InsertPacket(std::int32_t id, std::int32_t rootFolderId, const std::wstring& name);
  // No model: modelId 0.
  void InsertTemplate(std::int32_t id, std::int32_t folderId, std::int32_t packetId, std::int32_t objectTypeId,
                      std::int32_t representationId, std::int32_t modelId, const std::wstring& name);
  void InsertTemplateAttribute(const TemplateAttributeRow& row);
  void InsertSize(std::int32_t id, std::int32_t templateId, const std::wstring& identifier);
  // A CONCRETEVALUE row; the value must be an integer, a double or a text.
  void InsertValue(std::int32_t id, const Value& value);
  // The values of one size: a CONCRETEVALUE row for each, with ids from
  // firstValueId up in this order, and the ATTRIBUTEVALUE row that links it
  // to the size, all in one execution.
  void InsertSizeValues(std::int32_t sizeId, std::int32_t firstValueId, const std::vector<SizeValueRow>& values);
  // Content rows; the bytes are in their stored form and go into blobs
  // written whole in this scope.
  void InsertModel(std::int32_t id, std::span<const unsigned char> model, std::span<const unsigned char> thumbnail,
                   const std::wstring& digest, std::int32_t version);
  void InsertFragment(std::int32_t id, std::span<const unsigned char> fragment,
                      std::span<const unsigned char> thumbnail, const std::wstring& digest);
  void InsertProjection(std::int32_t templateId, std::int32_t fragmentId, std::int32_t projectionId,
                        std::int32_t viewType);

 private:
  enum Insert {
    kFolder,
    kPacket,
    kTemplate,
    kTemplateAttribute,
    kSize,
    kValue,
    kModel,
    kFragment,
    kProjection,
    kInserts
  };

  IBPP::Statement& Prepared(Insert insert);
  IBPP::Statement& SizeValuesBlock(std::size_t values);
  void SetValue(IBPP::Statement& statement, int firstParameter, const Value& value);
  void SetBlob(IBPP::Statement& statement, int parameter, std::span<const unsigned char> bytes);
  std::int64_t ScalarInt(const std::string& query);
  std::int32_t DictionaryId(const char* procedure, const std::wstring& text);

  // Prepared on first use; released before the scope detaches, since the
  // base class ends the scope after these members are gone.
  std::array<std::optional<IBPP::Statement>, kInserts> inserts_;
  // By the number of values they write.
  std::map<std::size_t, IBPP::Statement> sizeValueBlocks_;
};

#include "storage/DataLoad.h"

#include <algorithm>
#include <future>

#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "platform/Concurrency.h"
#include "storage/CDataProvider.h"
#include "storage/DbText.h"

namespace {

constexpr std::size_t kMinimumChunk = 250;

constexpr const char* kPacketTemplateAttributes =
    "SELECT OA.OBJECTID, OA.NUMBER, OA.OLD_NUMBER, OA.ATTRTYPE, OA.ATTRIBUTENAMEID, OA.ATTRIBUTEDESCRIPTIONID, "
    "OA.MEASURE, OA.VARNAME, OA.FORMULA, OA.CONCRETEVALUEID, CV.INTVAL, CV.DOUBLEVAL, CV.STRVAL FROM OBJECT O JOIN "
    "OBJECTATTRIBUTE OA ON O.ID=OA.OBJECTID LEFT JOIN CONCRETEVALUE CV ON CV.ID = OA.CONCRETEVALUEID WHERE "
    "O.PACKETID = ? ";
constexpr const char* kKeyTemplateAttributes =
    "SELECT OA.OBJECTID, OA.NUMBER, OA.OLD_NUMBER, OA.ATTRTYPE, OA.ATTRIBUTENAMEID, OA.ATTRIBUTEDESCRIPTIONID, "
    "OA.MEASURE, OA.VARNAME, OA.FORMULA, OA.CONCRETEVALUEID, CV.INTVAL, CV.DOUBLEVAL, CV.STRVAL FROM OBJECTATTRIBUTE "
    "OA  LEFT JOIN CONCRETEVALUE CV ON CV.ID = OA.CONCRETEVALUEID WHERE OA.OBJECTID = ? ";
constexpr const char* kPacketSizeValues =
    "SELECT AV.STANDARDSIZEID, OA.NUMBER, OA.ATTRTYPE, CV.DOUBLEVAL, CV.STRVAL, CV.INTVAL FROM OBJECT O JOIN "
    "OBJECTATTRIBUTE OA ON O.ID = OA.OBJECTID JOIN ATTRIBUTEVALUE AV ON OA.ID = AV.OBJECTATTRIBUTEID JOIN "
    "CONCRETEVALUE CV ON CV.ID = AV.CONCRETEVALUEID WHERE O.PACKETID = ?";
constexpr const char* kKeySizeValues =
    "SELECT AV.STANDARDSIZEID, OA.NUMBER, OA.ATTRTYPE, CV.DOUBLEVAL, CV.STRVAL, CV.INTVAL FROM OBJECTATTRIBUTE OA "
    "JOIN ATTRIBUTEVALUE AV ON OA.ID = AV.OBJECTATTRIBUTEID JOIN CONCRETEVALUE CV ON CV.ID = AV.CONCRETEVALUEID "
    "WHERE AV.STANDARDSIZEID = ?";

// The scope of a chunk: an attachment and transaction of its own.
class ChunkOperation : public BaseOperation {
 public:
  explicit ChunkOperation(CDataProvider* provider) : BaseOperation(provider) {}
  using BaseOperation::NewStatement;
};

const std::wstring& DictionaryText(const std::map<std::int32_t, std::wstring>& dictionary, std::int32_t id) {
  static const std::wstring kNone;
  const auto found = dictionary.find(id);
  return found == dictionary.end() ? kNone : found->second;
}

// Finds the row's owner, reusing the previous row's when the key repeats.
template <typename Owner>
Owner* Lookup(const std::unordered_map<std::int32_t, Owner*>& byId, std::int32_t id, std::int32_t& lastId,
              Owner*& last) {
  if (last != nullptr && id == lastId) return last;
  const auto found = byId.find(id);
  if (found == byId.end()) return nullptr;
  lastId = id;
  last = found->second;
  return last;
}

// Reads the rows of the current cursor into the templates' records.
bool ReadTemplateAttributeRows(IBPP::Statement& statement, const CDataProvider& provider,
                               const DataLoad::Templates& templates) {
  std::int32_t lastId = 0;
  CTemplate* last = nullptr;
  while (statement.Fetch()) {
    std::int32_t templateId = 0;
    statement.Get(1, templateId);
    CTemplate* owner = Lookup(templates.byId, templateId, lastId, last);
    if (owner == nullptr) return false;
    TemplateAttribute record;
    std::int32_t type = 0;
    std::int32_t nameId = 0;
    std::int32_t descriptionId = 0;
    statement.Get(2, record.number);
    statement.Get(3, record.oldNumber);
    statement.Get(4, type);
    statement.Get(5, nameId);
    statement.Get(6, descriptionId);
    GetDbText(statement, 7, record.measure);
    GetDbText(statement, 8, record.varName);
    GetDbText(statement, 9, record.formula);
    record.name = DictionaryText(provider.AttributeNames(), nameId);
    record.description = DictionaryText(provider.AttributeDescriptions(), descriptionId);
    if (type >= LX_VALUE_INT && type <= LX_VALUE_STRING) SetDefaultOfType(record.value, type);
    if (!statement.IsNull(10)) {
      if (type == LX_VALUE_INT) {
        std::int32_t integer = 0;
        statement.Get(11, integer);
        record.value = integer;
      } else if (type == LX_VALUE_DOUBLE) {
        double number = 0.0;
        statement.Get(12, number);
        record.value = number;
      } else if (type == LX_VALUE_STRING) {
        std::wstring text;
        GetDbText(statement, 13, text);
        record.value = std::move(text);
      }
    }
    owner->Records().push_back(std::move(record));
  }
  return true;
}

// Reads the rows of the current cursor into the sizes' own values.
bool ReadSizeValueRows(IBPP::Statement& statement, const DataLoad::Sizes& sizes) {
  std::int32_t lastId = 0;
  CStandartSize* last = nullptr;
  while (statement.Fetch()) {
    std::int32_t sizeId = 0;
    statement.Get(1, sizeId);
    CStandartSize* size = Lookup(sizes.byId, sizeId, lastId, last);
    if (size == nullptr) return false;
    std::int32_t number = 0;
    std::int32_t type = 0;
    statement.Get(2, number);
    if (statement.Get(3, type)) return false;
    Value value;
    if (type == LX_VALUE_INT) {
      std::int32_t integer = 0;
      statement.Get(6, integer);
      value = integer;
    } else if (type == LX_VALUE_DOUBLE) {
      double number = 0.0;
      statement.Get(4, number);
      value = number;
    } else if (type == LX_VALUE_STRING) {
      std::wstring text;
      GetDbText(statement, 5, text);
      value = std::move(text);
    } else {
      return false;
    }
    size->Values()[number] = std::move(value);
  }
  return true;
}

// Runs `readRows` for every key of one chunk on an attachment of its own.
template <typename Owner, typename ReadRows>
bool LoadChunk(CDataProvider* provider, const char* perKeyQuery, const std::vector<Owner*>& order,
               DataLoad::Chunk chunk, ReadRows&& readRows) {
  ChunkOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(perKeyQuery);
  for (std::size_t i = chunk.first; i < chunk.last; ++i) {
    statement.Set(1, order[i]->GetId());
    statement.Execute();
    if (!readRows(statement)) return false;
  }
  return true;
}

// Splits the keys into chunks, runs all but the first as tasks and the first
// here, and collects every result in chunk order. A task's exception comes
// back out of get(); the futures' destructors join whatever is still
// running, so no task outlives this call, whichever way it is left.
template <typename Owner, typename ReadRows>
bool LoadChunked(CDataProvider* provider, const char* perKeyQuery, const std::vector<Owner*>& order,
                 ReadRows readRows) {
  const std::vector<DataLoad::Chunk> chunks = DataLoad::SplitIntoChunks(order.size(), HardwareThreads());
  std::vector<std::future<bool>> tasks;
  tasks.reserve(chunks.size());
  for (std::size_t i = 1; i < chunks.size(); ++i) {
    tasks.push_back(std::async(std::launch::async, [=, &order] {
      return LoadChunk(provider, perKeyQuery, order, chunks[i], readRows);
    }));
  }
  bool loaded = chunks.empty() || LoadChunk(provider, perKeyQuery, order, chunks.front(), readRows);
  for (std::future<bool>& task : tasks) loaded = task.get() && loaded;
  return loaded;
}

}  // namespace

std::vector<DataLoad::Chunk> DataLoad::SplitIntoChunks(std::size_t keys, unsigned threads) {
  return ::SplitIntoChunks(keys, threads, kMinimumChunk);
}

bool DataLoad::chunkLoadTemplateAttributes(CDataProvider* provider, IBPP::Statement& packetStatement,
                                           std::int32_t packetId, const Templates& templates) {
  auto readRows = [provider, &templates](IBPP::Statement& statement) {
    return ReadTemplateAttributeRows(statement, *provider, templates);
  };
  if (templates.order.size() < kChunkedFrom) {
    packetStatement.Prepare(kPacketTemplateAttributes);
    packetStatement.Set(1, packetId);
    packetStatement.Execute();
    return readRows(packetStatement);
  }
  return LoadChunked(provider, kKeyTemplateAttributes, templates.order, readRows);
}

bool DataLoad::chunkLoadStdSizeAttributes(CDataProvider* provider, IBPP::Statement& packetStatement,
                                          std::int32_t packetId, const Sizes& sizes) {
  auto readRows = [&sizes](IBPP::Statement& statement) { return ReadSizeValueRows(statement, sizes); };
  if (sizes.order.size() < kChunkedFrom) {
    packetStatement.Prepare(kPacketSizeValues);
    packetStatement.Set(1, packetId);
    packetStatement.Execute();
    return readRows(packetStatement);
  }
  return LoadChunked(provider, kKeySizeValues, sizes.order, readRows);
}

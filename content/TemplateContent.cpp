#include "content/TemplateContent.h"

#include <span>

#include "catalog/CFolderTable.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/ICatalogStore.h"
#include "content/ByteData.h"
#include "content/CSpec.h"
#include "content/IContentStore.h"
#include "platform/Digest.h"
#include "platform/Report.h"
#include "platform/TextCodec.h"

namespace {

IContentStore& StoreOf(CStandartSize* size) { return size->GetTemplate()->GetTable()->Store().Content(); }

}  // namespace

std::int32_t GetSpecificationCount(CStandartSize* size) {
  return static_cast<std::int32_t>(StoreOf(size).GetSpecs(size->GetTemplate()).size());
}

CSpec* GetSpecification(CStandartSize* size, std::int32_t index) {
  const SpecList& specs = StoreOf(size).GetSpecs(size->GetTemplate());
  if (index < 0 || static_cast<std::size_t>(index) >= specs.size()) {
    ReportIndexOutOfRange(index, static_cast<std::int64_t>(specs.size()), "CStandartSize::_GetSpecification");
    return nullptr;
  }
  return specs[static_cast<std::size_t>(index)].get();
}

bool GetRepresentationData(CStandartSize* size, unsigned char** data, std::int32_t* length) {
  const ByteData* block = StoreOf(size).GetRepresentation(size->GetTemplate()->GetId());
  if (block == nullptr) {
    Report(L"Проблема получения representation из кэша", "CStandartSize::_GetRepresentationData");
    return false;
  }
  *data = block->Data();
  *length = block->Size();
  return true;
}

bool SetRepresentationData(CStandartSize* size, const unsigned char* data, std::int32_t length) {
  const std::span<const unsigned char> bytes(data, static_cast<std::size_t>(std::max(length, 0)));
  const std::wstring digest = Utf8ToWide(Md5Hex(bytes));
  IContentStore& store = StoreOf(size);
  const bool written = store.SetTemplateRepresentationData(size->GetTemplate(), data, length, digest);
  // Whatever happened, the next read goes to the catalog.
  store.ForgetRepresentation();
  if (!written) Report(L"Проблема записи  representation", "CStandartSize::_SetRepresentationData");
  return written;
}

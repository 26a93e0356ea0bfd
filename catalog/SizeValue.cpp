#include "catalog/SizeValue.h"

#include "catalog/CAttribute.h"
#include "catalog/CStandartSize.h"
#include "catalog/CTemplate.h"
#include "catalog/CStdSizeFormulaHelper.h"

const Value* GetSizeValue(const CAttribute& attribute, CStandartSize& size, const NumberFormat& format,
                          IFormulaDataSource* source) {
  if (const CFormula* tree = attribute.GetFormulaTree()) {
    Value result;
    if (source != nullptr) {
      tree->Evaluate(result, *source, format);
    } else {
      CStdSizeFormulaHelper ownSource(&size);
      tree->Evaluate(result, ownSource, format);
    }
    Value& stored = size.Calculated()[attribute.GetNumber()];
    stored = std::move(result);
    return &stored;
  }
  const auto own = size.Values().find(attribute.GetNumber());
  if (own != size.Values().end()) return &own->second;
  const TemplateAttribute* record = size.GetTemplate()->FindRecord(attribute.GetNumber());
  if (record == nullptr || IsEmpty(record->value)) return nullptr;
  return &record->value;
}

// GetSizeValue: the one place that decides what an attribute's value on a
// standard size is. A formula of the attribute beats everything; then the
// size's own value, whatever its kind; then the template's common value,
// where an empty one counts as none.
#pragma once

#include "formula/Value.h"

class CAttribute;
class CStandartSize;
class IFormulaDataSource;

// The stored value, or null when the cell has none. A formula's result is
// stored in the size's calculated values and stays valid until the next
// evaluation of the attribute on that size. Without a source, a formula is
// evaluated through a fresh one for this size.
const Value* GetSizeValue(const CAttribute& attribute, CStandartSize& size, const NumberFormat& format,
                          IFormulaDataSource* source);

#include "formula/FormulaCycle.h"

#include "platform/DebugChannel.h"

void ReportFormulaCycle(bool& reported, const std::wstring& sizeIdentifier) {
  if (reported) return;
  reported = true;
  WriteDebugText(L">LxDataAcces: Зацикливание формулы в " + sizeIdentifier);
}

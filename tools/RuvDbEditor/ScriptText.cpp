#include "ScriptText.h"

#include <stdexcept>

#include "platform/TextCodec.h"

std::string ToDatabaseText(const std::string& utf8Statement) {
  const std::wstring wide = Utf8ToWide(utf8Statement);
  std::string narrow = WideToCp1251(wide);
  if (Cp1251ToWide(narrow) != wide) {
    throw std::runtime_error("a character outside code page 1251 in: " +
                             utf8Statement.substr(0, utf8Statement.find('\n')));
  }
  return narrow;
}

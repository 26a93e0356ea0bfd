// CLayer: one layer of a placed object's drawing, an attribute of the size's
// table whose var name begins with "LAYER". Whether it shows is the value of
// that attribute on the object: anything but zero.
//
// Owned by the object's CLayers; dies when the layers are rebuilt or the
// object rebinds or goes. Used under the frame lock.
#pragma once

#include <cstdint>
#include <string>

class CObject;

class CLayer {
 public:
  CLayer(std::int32_t number, std::wstring attributeName, std::wstring layerName, CObject* object)
      : number_(number), attributeName_(std::move(attributeName)), layerName_(std::move(layerName)), object_(object) {}

  std::int32_t GetNumber() const { return number_; }
  const std::wstring& GetName() const { return layerName_; }
  // The attribute's value on the object under the default format; a failed
  // read has left its message and counts as empty.
  bool GetVisible() const;

  // Whether `varName` names a layer, and its number: what follows "LAYER"
  // as a whole decimal integer, else 0.
  static bool IsLayerName(const std::wstring& varName);
  static std::int32_t NumberOf(const std::wstring& varName);

 private:
  std::int32_t number_;
  std::wstring attributeName_;
  std::wstring layerName_;
  CObject* object_;
};

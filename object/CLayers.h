// CLayers: the layers of a placed object, the array whose handle
// object_GetLayers gives. The array stays for the object's life; each
// rebuild destroys its entries and makes new ones, sorted by number (equal
// numbers keep the table's column order).
//
// Owned by its object. Used under the frame lock.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "object/CLayer.h"

class CFolderTable;
class CObject;

class CLayers {
 public:
  // Refills the array from the layer columns of `table` for `object`.
  void Rebuild(const CFolderTable& table, CObject* object);

  std::int32_t Count() const { return static_cast<std::int32_t>(layers_.size()); }
  // The entry at `index`, or null with a report.
  CLayer* _GetLayer(std::int32_t index) const;

 private:
  std::vector<std::unique_ptr<CLayer>> layers_;
};

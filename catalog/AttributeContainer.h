// AttributeContainer: the columns of one table, in the order clients index
// them, with indexes by number and by name. A column whose name or number
// changes is taken out and entered again, so it moves to the end.
//
// Owns its attributes. Not thread-safe: used under the frame lock, or by the
// packet loader on the calling thread.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class CAttribute;

class AttributeContainer {
 public:
  AttributeContainer();
  ~AttributeContainer();
  AttributeContainer(const AttributeContainer&) = delete;
  AttributeContainer& operator=(const AttributeContainer&) = delete;

  // Takes the attribute, binds its update callback to this container.
  CAttribute* Add(std::unique_ptr<CAttribute> attribute);
  // Takes the attribute out and gives it back.
  std::unique_ptr<CAttribute> Remove(CAttribute* attribute);
  void OnAttributeUpdate(CAttribute* attribute);

  std::size_t Count() const { return attributes_.size(); }
  CAttribute* At(std::size_t index) const { return attributes_[index].get(); }
  bool Contains(const CAttribute* attribute) const;
  // First by name order whose name is equal under FoldEquals; null if none.
  CAttribute* FindByName(const std::wstring& name) const;
  // The first attribute of this number, or null.
  CAttribute* FindByNumber(std::int32_t number) const;
  // The largest number; the smallest int32_t when there is no attribute.
  std::int32_t LargestNumber() const;

 private:
  void Index(CAttribute* attribute);
  void Unindex(CAttribute* attribute);

  std::vector<std::unique_ptr<CAttribute>> attributes_;
  std::multimap<std::int32_t, CAttribute*> byNumber_;
  std::multimap<std::wstring, CAttribute*> byName_;
};

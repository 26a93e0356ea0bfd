// CObject: a part placed in a client's document. It is bound to one standard
// size and lays values of its own over the size's, by attribute name; any
// attribute without an own value still reads through to the size. It also
// keeps the chosen view, binary values of the client's, and the names that
// find its size again when the client loads it from a buffer.
//
// Owned by the client through its handle. Holds no claim on its size: the
// size must outlive the object's use. An object with no size (a load that
// kept a missing size) refuses everything but rebinding, saving and the
// plain fields. No lock of its own: used under the frame lock.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "formula/Value.h"
#include "platform/TextCodec.h"

class CAttribute;
class CLayers;
class CSpec;
class CStandartSize;
class CStdPrj;

class CObject {
 public:
  // Own values and binary values by attribute name, in UTF-16 order, the
  // order they are saved in.
  using ValueMap = std::map<std::wstring, Value, Utf16Less>;
  using BlockMap = std::map<std::wstring, std::vector<unsigned char>, Utf16Less>;

  static constexpr std::uint32_t kNoViewType = 0xFFFFFFFF;
  static constexpr const wchar_t* kLastChangeDate = L"USS_LAST_CHANGE_DATE";

  CObject();
  ~CObject();

  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;

  CStandartSize* GetStdSize() const { return stdSize_; }
  const std::wstring& GetPacketName() const { return packetName_; }
  const std::wstring& GetStdSizeId() const { return stdSizeId_; }
  const std::wstring& GetLibraryId() const { return libraryId_; }
  void SetLibraryId(std::wstring libraryId) { libraryId_ = std::move(libraryId); }
  const std::wstring& GetViewName() const { return viewName_; }
  std::uint32_t GetViewType() const { return viewType_; }
  const ValueMap& Values() const { return values_; }
  const BlockMap& BufValues() const { return bufValues_; }

  // For the loader, which restores what a buffer held as it stands.
  void SetIdentity(std::wstring packetName, std::wstring stdSizeId);
  void SetView(std::wstring viewName, std::uint32_t viewType);
  ValueMap& Values() { return values_; }
  BlockMap& BufValues() { return bufValues_; }

  // Binds the object to `size` (the common step of creating, initialising
  // and loading): drops results, layers and binary values, and own values
  // when `resetValues` is set; stamps the row's last change date when
  // `stampDate` is set; checks the view. Nothing changes, not even the
  // library id, when `size` is the present size. The loader leaves the view
  // check out when the buffer's own view replaces whatever it would choose.
  bool BindStdSize(CStandartSize* size, const std::wstring& libraryId, bool stampDate, bool resetValues,
                   bool checkView = true);
  // Makes this object a copy of `source`, which must have a size.
  bool _Initialize(const CObject& source);
  // Moves the object to another size and changes nothing else, so the view
  // and layers may name what the new size lacks.
  void ChangeStdSize(CStandartSize* size);

  // The value the object shows: the attribute's formula, else its own value,
  // else the size's. `out` points into the object or the size.
  bool _GetValue(CAttribute* attribute, ValueView& out, const NumberFormat& format);
  bool _GetValueByName(const std::wstring& name, ValueView& out, const NumberFormat& format);
  // Sets an own value, or writes through a formula that is a bare
  // reference; nothing reaches the database.
  bool _SetValue(CAttribute* attribute, const Value& value);
  // Text converted to the attribute's type first when that is a number.
  bool _SetValueText(CAttribute* attribute, const std::wstring& text);
  bool _RestoreValue(CAttribute* attribute);
  // Keeps only a last change date of kind string.
  bool _RestoreAllValues();
  std::unique_ptr<CObject> _Clone() const;
  bool _GetSpecValue(CSpec* spec, std::int32_t columnNumber, ValueView& out, const NumberFormat& format);

  // Same size and equal own values; binary values and views do not count.
  bool CompareByValues(const CObject& other) const;
  // Database stem, packet name and size identifier, run together; empty
  // without a size.
  std::wstring GenerateCacheId() const;

  // Binary values: a null or empty block removes the entry.
  void SetBufValue(const std::wstring& name, const unsigned char* data, std::int32_t size);
  bool GetBufValue(const std::wstring& name, unsigned char** data, std::int32_t* size);

  // Views and layers (CObjectView.cpp).
  CStdPrj* _GetProjection();
  bool _SetProjection(CStdPrj* projection);
  std::int32_t GetProjectionType() const;
  CLayers* _GetLayers();

  // Where the formula helper keeps the results it computes.
  std::map<std::int32_t, Value>& Calculated() { return calculatedValues_; }

 private:
  // False with the refusal of an object without a size, for `method`.
  bool Bound(const char* method) const;
  // Bound, and the attribute is a column of the size's table.
  bool MayUse(const CAttribute* attribute, const char* method) const;
  // An own value, or a write through the attribute's formula.
  bool Assign(const CAttribute* attribute, const Value& value);
  // Destroys the layers; handles of them die.
  void DropLayers();
  // Drops results, layers and binary values.
  void DropDerived();
  // Keeps the view if the size has it, else takes the size's first one.
  void CheckView();
  // Stores the size's last change date as an own value, if it has one.
  void StampLastChangeDate();
  // Copies every field a copy shares; results and layers start empty.
  void CopyFrom(const CObject& source);

  CStandartSize* stdSize_ = nullptr;
  std::wstring packetName_;
  std::wstring stdSizeId_;
  std::unique_ptr<CLayers> layers_;
  std::wstring viewName_;
  std::uint32_t viewType_ = 0;
  ValueMap values_;
  BlockMap bufValues_;
  std::map<std::int32_t, Value> calculatedValues_;
  std::map<std::int32_t, Value> specValues_;
  std::wstring libraryId_;
};

// CStandartSize: one row of a folder table, a concrete part known by its
// identifier. Holds its own values (ATTRIBUTEVALUE rows); values common to
// its template stand on the template's records. Owned by its template.
//
// Not thread-safe: used under the frame lock, or, during a packet load, by
// the one loader thread whose chunk holds this size's key.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

#include "formula/Value.h"

class CStdFiles;
class CStdModel;
class CStdProjs;
class CTemplate;

class CStandartSize {
 public:
  CStandartSize(std::int32_t id, std::wstring identifier, CTemplate* ownerTemplate);
  ~CStandartSize();

  CStandartSize(const CStandartSize&) = delete;
  CStandartSize& operator=(const CStandartSize&) = delete;

  std::int32_t GetId() const { return id_; }
  const std::wstring& GetIdentifier() const { return identifier_; }
  CTemplate* GetTemplate() const { return ownerTemplate_; }
  void SetTemplate(CTemplate* ownerTemplate) { ownerTemplate_ = ownerTemplate; }

  // The size's own values by attribute number.
  std::unordered_map<std::int32_t, Value>& Values() { return values_; }
  const std::unordered_map<std::int32_t, Value>& Values() const { return values_; }
  // Results of the last evaluation of each calculated attribute, so that a
  // view handed to a client has something to point at. Not a cache.
  std::map<std::int32_t, Value>& Calculated() { return calculated_; }

  // Sets the object type of the template, which all its sizes share.
  bool _SetType(const std::wstring& type);

  // The model, projections and files of this size, made by the content layer
  // on first request and kept for the size's life. Held as shared pointers
  // only so that their deleters are bound where they are made: the catalog
  // owns them without seeing their classes.
  std::shared_ptr<CStdModel>& ModelSlot() { return model_; }
  std::shared_ptr<CStdProjs>& ProjectionsSlot() { return projections_; }
  std::shared_ptr<CStdFiles>& FilesSlot() { return files_; }

  // Sizes compare by value: id, identifier, template and own values.
  bool SameAs(const CStandartSize& other) const;

 private:
  std::int32_t id_;
  std::wstring identifier_;
  CTemplate* ownerTemplate_;
  std::unordered_map<std::int32_t, Value> values_;
  std::map<std::int32_t, Value> calculated_;
  std::shared_ptr<CStdModel> model_;
  std::shared_ptr<CStdProjs> projections_;
  std::shared_ptr<CStdFiles> files_;
};

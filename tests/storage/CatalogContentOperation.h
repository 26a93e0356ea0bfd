// CatalogContentOperation: the rows of a catalog and what its triggers and
// stored procedures do with new ones, for the tests of the empty catalog.
// Nothing here commits: every change ends with the scope, so one scope can
// try things out on the empty catalog and leave it as it was.
#pragma once

#include "storage/BaseOperation.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

class CatalogContentOperation : public BaseOperation {
 public:
  explicit CatalogContentOperation(CDataProvider* provider) : BaseOperation(provider) {}

  // First rows, texts widened from code page 1251, as "ID: text" or
  // "NAME|TAG|VAL" lines in key order.
  std::vector<std::wstring> BaseParams();
  std::vector<std::wstring> InfoRows();
  std::vector<std::wstring> ObjectTypes();
  std::vector<std::wstring> Projections();
  struct Representation {
    std::int32_t id = 0;
    std::string digest;
    std::vector<unsigned char> stored;
  };
  std::vector<Representation> Representations();

  // Identifier triggers.
  std::int32_t AddAttributeName(std::optional<std::int32_t> id, const std::wstring& name);
  std::int32_t AddTemplateRow(std::optional<std::int32_t> id);

  // Folder tree.
  std::int32_t AddFolder(const std::wstring& name, std::optional<std::int32_t> parent);
  // "left,right" of a folder.
  std::string FolderBounds(std::int32_t id);
  void MakeFolderItsOwnParent(std::int32_t id);
  void DeleteFolder(std::int32_t id);

  // Packets, templates (OBJECT rows) and their standard sizes.
  std::int32_t AddPacket(std::int32_t folder, const std::wstring& name);
  void DeletePacket(std::int32_t id);
  std::int32_t AddTemplate(std::int32_t folder, std::int32_t packet, const std::wstring& name);
  std::int32_t AddStandardSize(std::int32_t templateId, const std::wstring& identifier);
  std::int32_t CountTemplates();
  std::int32_t CountStandardSizes();

  // Projections.
  std::int32_t AddProjection(const std::wstring& name);
  void RenameProjection(std::int32_t id, const std::wstring& name);
  void DeleteProjection(std::int32_t id);
  std::int32_t AddFragment();
  void AddObjectProjection(std::int32_t templateId, std::int32_t projection, std::int32_t fragment,
                           std::int32_t viewType);

  // Stored procedures.
  std::int32_t GetAttributeNameId(const std::wstring& name);
  std::int32_t GetAttributeDescriptionId(const std::wstring& description);
  std::optional<std::int32_t> GetConcreteValue(std::optional<std::int32_t> integer, std::optional<double> real,
                                               std::optional<std::wstring> text);
  std::int32_t CountConcreteValues();
  std::int32_t CreateObjectAttribute(std::int32_t templateId, std::int32_t number, const std::wstring& name,
                                     const std::wstring& description, std::optional<std::int32_t> integer);
  // CONCRETEVALUEID of an OBJECTATTRIBUTE row.
  std::optional<std::int32_t> AttributeValueId(std::int32_t attribute);
  void SetSizeValue(std::int32_t number, std::int32_t size, std::int32_t value);
  // The INTVAL of each ATTRIBUTEVALUE row of the size.
  std::vector<std::int32_t> SizeValues(std::int32_t size);
  std::int32_t InsertAdditionalFile(const std::wstring& name, const std::wstring& extension,
                                    std::span<const unsigned char> bytes, const std::string& digest,
                                    std::int32_t size);
  // "files,extensions,links".
  std::string FileCounts();
};

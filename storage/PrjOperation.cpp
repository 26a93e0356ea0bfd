#include "storage/PrjOperation.h"

#include "catalog/CFolderTable.h"
#include "content/CStdPrj.h"
#include "content/CStdProjs.h"
#include "content/ProjectionTypes.h"
#include "platform/Report.h"
#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/ModelOperation.h"
#include "storage/OperationSupport.h"

namespace {

constexpr const char* kInsertProjection =
    "INSERT INTO OBJECTPROJECTION (OBJECTID, FRAGMENTID, PROJECTIONID, VIEW_TYPE) VALUES(?,?,?,?)";

std::int32_t TemplateIdOf(const CStdProjs* list) { return list->GetStdSize()->GetTemplate()->GetId(); }
std::int32_t TemplateIdOf(const CStdPrj& projection) { return projection.GetStdSize()->GetTemplate()->GetId(); }

}  // namespace

bool PrjOperation::LoadProjections(CStdProjs* list) {
  PrjOperation operation(ProviderOf(list->GetStdSize()));
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "SELECT   P.ID,   P.NAME,   OP.FRAGMENTID,   OP.VIEW_TYPE,   FR.DIGEST FROM OBJECTPROJECTION OP   INNER JOIN "
      "FRAGMENT FR ON OP.FRAGMENTID = FR.ID   INNER JOIN PROJECTION P ON OP.PROJECTIONID = P.ID WHERE OP.OBJECTID = ? "
      "ORDER BY OP.VIEW_TYPE, P.ID");
  statement.Set(1, TemplateIdOf(list));
  statement.Execute();
  while (statement.Fetch()) {
    CStdPrj::Row row;
    row.projectionId = ReadInt(statement, 1);
    GetDbText(statement, 2, row.name);
    row.fragmentId = ReadInt(statement, 3);
    row.viewType = ReadInt(statement, 4);
    GetDbText(statement, 5, row.digest);
    const std::int32_t type = PublicProjectionType(GetProjectionTypeByName(row.name));
    list->Append(std::make_unique<CStdPrj>(list, std::move(row), type));
  }
  return true;
}

void PrjOperation::InsertProjection(IBPP::Statement& statement, std::int32_t templateId, std::int32_t fragmentId,
                                    std::int32_t projectionId, std::int32_t viewType) {
  statement.Prepare(kInsertProjection);
  statement.Set(1, templateId);
  statement.Set(2, fragmentId);
  statement.Set(3, projectionId);
  statement.Set(4, viewType);
  statement.Execute();
}

std::unique_ptr<CStdPrj> PrjOperation::CopyProjection(CStdProjs* list, const CStdPrj& other) {
  if (!SplitOffSize(list->GetStdSize(), "PrjOperation::CopyProjection")) return nullptr;
  PrjOperation operation(ProviderOf(list->GetStdSize()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  operation.InsertProjection(statement, TemplateIdOf(list), other.GetFragmentId(), other.GetProjectionId(),
                             other.GetViewType());
  CStdPrj::Row row{other.GetProjectionId(), other.GetName(), other.GetFragmentId(), other.GetViewType(),
                   other.GetDigest()};
  auto copy = std::make_unique<CStdPrj>(list, std::move(row), other.GetType());
  guard.Commit();
  return copy;
}

std::int32_t PrjOperation::AddFragment(CDataProvider* provider, const std::wstring& path,
                                       const std::wstring& iconPath, const std::wstring& digest) {
  PrjOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("SELECT ID FROM FRAGMENT WHERE DIGEST = ?");
  SetDbText(statement, 1, digest);
  statement.Execute();
  if (statement.Fetch()) return ReadInt(statement, "ID");

  IBPP::Blob fragment = operation.NewBlob();
  IBPP::Blob icon = operation.NewBlob();
  for (auto [file, blob] : {std::pair{&path, &fragment}, std::pair{&iconPath, &icon}}) {
    if (!ModelOperation::SaveFileToBlob(*file, *blob)) {
      Report(L"Проблемы при сохранении файла в блоб " + *file, "PrjOperation::AddFragment");
      return 0;
    }
  }
  statement.Prepare("INSERT INTO FRAGMENT (FRAGMENT, THUMBNAIL, DIGEST) VALUES(?,?,?) RETURNING ID");
  statement.Set(1, fragment);
  statement.Set(2, icon);
  SetDbText(statement, 3, digest);
  statement.Execute();
  const std::int32_t id = ReadInt(statement, "ID");
  guard.Commit();
  return id;
}

std::int32_t PrjOperation::ResolveProjection(IBPP::Statement& statement, std::int32_t type, std::wstring& name) {
  if (type >= 1 && type <= 6) {
    name = StandardProjectionName(type);
    return type;
  }
  statement.Prepare("SELECT ID FROM PROJECTION WHERE NAME = ?");
  SetDbText(statement, 1, name);
  statement.Execute();
  if (statement.Fetch()) return ReadInt(statement, "ID");
  statement.Prepare("INSERT INTO PROJECTION (NAME) VALUES(?) RETURNING ID");
  SetDbText(statement, 1, name);
  statement.Execute();
  return ReadInt(statement, "ID");
}

std::unique_ptr<CStdPrj> PrjOperation::AddProjection(CStdProjs* list, std::int32_t fragmentId,
                                                     const std::wstring& digest, const std::wstring& name,
                                                     std::int32_t type, std::int32_t viewType) {
  if (!SplitOffSize(list->GetStdSize(), "PrjOperation::AddProjection")) return nullptr;
  PrjOperation operation(ProviderOf(list->GetStdSize()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  CStdPrj::Row row{0, name, fragmentId, viewType, digest};
  row.projectionId = operation.ResolveProjection(statement, type, row.name);
  operation.InsertProjection(statement, TemplateIdOf(list), fragmentId, row.projectionId, viewType);
  const std::int32_t publicType = PublicProjectionType(row.projectionId);
  auto added = std::make_unique<CStdPrj>(list, std::move(row), publicType);
  guard.Commit();
  return added;
}

bool PrjOperation::DeleteProjection(CStdPrj* projection) {
  if (!SplitOffSize(projection->GetStdSize(), "PrjOperation::DeleteProjection")) return false;
  PrjOperation operation(ProviderOf(projection->GetStdSize()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "DELETE FROM OBJECTPROJECTION prj WHERE prj.OBJECTID = ? AND prj.FRAGMENTID = ? AND prj.PROJECTIONID = ? AND "
      "prj.VIEW_TYPE = ?");
  statement.Set(1, TemplateIdOf(*projection));
  statement.Set(2, projection->GetFragmentId());
  statement.Set(3, projection->GetProjectionId());
  statement.Set(4, projection->GetViewType());
  statement.Execute();
  guard.Commit();
  return true;
}

bool PrjOperation::UpdateProjectionType(CStdPrj* projection, std::int32_t type, const std::wstring& name,
                                        std::int32_t& projectionId, std::wstring& resolvedName) {
  PrjOperation operation(ProviderOf(projection->GetStdSize()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  std::wstring resolved = name;
  const std::int32_t id = operation.ResolveProjection(statement, type, resolved);
  statement.Prepare("update OBJECTPROJECTION set PROJECTIONID = ? where PROJECTIONID = ? AND VIEW_TYPE = ? AND OBJECTID = ?");
  statement.Set(1, id);
  statement.Set(2, projection->GetProjectionId());
  statement.Set(3, projection->GetViewType());
  statement.Set(4, TemplateIdOf(*projection));
  statement.Execute();
  guard.Commit();
  projectionId = id;
  resolvedName = std::move(resolved);
  return true;
}

bool PrjOperation::UpdateRow(const char* sql, std::int32_t value, const CStdPrj& projection) {
  PrjOperation operation(ProviderOf(projection.GetStdSize()));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(sql);
  statement.Set(1, value);
  statement.Set(2, projection.GetProjectionId());
  statement.Set(3, projection.GetViewType());
  statement.Set(4, TemplateIdOf(projection));
  statement.Execute();
  guard.Commit();
  return true;
}

bool PrjOperation::UpdateViewType(CStdPrj* projection, std::int32_t viewType) {
  return UpdateRow("update OBJECTPROJECTION set VIEW_TYPE = ? where PROJECTIONID = ? AND VIEW_TYPE = ? AND OBJECTID = ?",
                   viewType, *projection);
}

bool PrjOperation::UpdateFragment(CStdPrj* projection, const CStdPrj& other) {
  return UpdateRow("update OBJECTPROJECTION set FRAGMENTID = ? where PROJECTIONID = ? AND VIEW_TYPE = ? AND OBJECTID = ?",
                   other.GetFragmentId(), *projection);
}

bool PrjOperation::SaveFragmentAs(CDataProvider* provider, std::int32_t fragmentId, const std::wstring& path) {
  constexpr const char* kMethod = "PrjOperation::SaveFragmentAs";
  PrjOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  const ByteDataPtr data =
      operation.ReadContentById(statement, "SELECT FRAGMENT FROM FRAGMENT WHERE ID=?", fragmentId, 1,
                                L"Не смогли получить фрагмент ", L"Ошибка при чтении фрагмента из блоба", kMethod);
  if (!data) return false;
  if (data->SaveFile(path) == 0) {
    Report(L"Ошибка при записи фрагмента в файл " + path, kMethod);
    return false;
  }
  return true;
}

ByteDataPtr PrjOperation::GetIcon(CDataProvider* provider, std::int32_t fragmentId) {
  PrjOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  return operation.ReadContentById(statement, "SELECT THUMBNAIL FROM FRAGMENT WHERE ID = ?", fragmentId, 1,
                                   L"Не смогли получить иконку фрагмента ",
                                   L"Ошибка при чтении иконки проекции из блоба", "PrjOperation::GetIcon");
}

std::map<std::int32_t, ByteDataPtr> PrjOperation::LoadPacketThumbnails(CDataProvider* provider,
                                                                       std::int32_t packetId) {
  PrjOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare(
      "SELECT DISTINCT f.ID, f.THUMBNAIL  FROM FRAGMENT f  JOIN OBJECTPROJECTION op ON f.ID = op.FRAGMENTID  JOIN "
      "OBJECT o ON o.ID = op.OBJECTID  JOIN PACKET p ON p.ID = o.PACKETID  WHERE p.ID = ? ");
  statement.Set(1, packetId);
  statement.Execute();
  std::map<std::int32_t, ByteDataPtr> thumbnails;
  while (statement.Fetch()) {
    const std::int32_t id = ReadInt(statement, "ID");
    IBPP::Blob blob = operation.NewBlob();
    ByteDataPtr thumbnail = id == 0 ? nullptr : LoadBlobColumn(statement, 2, blob);
    if (!thumbnail) return {};
    thumbnails.try_emplace(id, std::move(thumbnail));
  }
  return thumbnails;
}

#include "storage/ModelOperation.h"

#include "catalog/CFolderTable.h"
#include "content/CStdModel.h"
#include "content/ModelInfo.h"
#include "platform/Report.h"
#include "storage/BlobTransfer.h"
#include "storage/CommitGuard.h"
#include "storage/DbText.h"
#include "storage/OperationSupport.h"

bool ModelOperation::HasOrientation() {
  IBPP::Statement probe = NewStatement();
  probe.Execute(
      "select 1 from RDB$RELATION_FIELDS rf where rf.RDB$RELATION_NAME = 'MODEL' and rf.RDB$FIELD_NAME = "
      "'ORIENTATION'");
  return probe.Fetch();
}

std::unique_ptr<ModelInfo> ModelOperation::GetModel(CStdModel* model, const std::wstring& path) {
  constexpr const char* kMethod = "ModelOperation::GetModel";
  const std::int32_t id = model->GetModelId();
  ModelOperation operation(ProviderOf(model->GetStdSize()));
  IBPP::Statement statement = operation.NewStatement();
  const ByteDataPtr data = operation.ReadContentById(
      statement,
      operation.HasOrientation() ? "SELECT MODEL, DIGEST, MODEL_VERSION, ORIENTATION FROM MODEL WHERE ID=?"
                                 : "SELECT MODEL, DIGEST, MODEL_VERSION, 0 AS ORIENTATION FROM MODEL WHERE ID=?",
      id, 1, L"Не смогли получить модель ", L"Ошибка при чтении модели из блоба", kMethod);
  if (!data) return nullptr;
  if (data->SaveFile(path) == 0) {
    Report(L"Ошибка при записи модели в файл " + path, kMethod);
    return nullptr;
  }
  auto info = std::make_unique<ModelInfo>();
  info->id = id;
  info->name = std::to_wstring(id);
  info->filePath = path;
  GetDbText(statement, 2, info->digest);
  info->version = ReadInt(statement, 3);
  info->orientation = ReadInt(statement, 4);
  return info;
}

ByteDataPtr ModelOperation::GetModelIcon(CDataProvider* provider, std::int32_t modelId) {
  ModelOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  return operation.ReadContentById(statement, "SELECT THUMBNAIL FROM MODEL WHERE ID=?", modelId, 1,
                                   L"Не смогли получить иконку модели ", L"Ошибка при чтении иконки модели из блоба",
                                   "ModelOperation::GetModelIcon");
}

std::int32_t ModelOperation::FindModelByDigest(CDataProvider* provider, const std::wstring& digest) {
  ModelOperation operation(provider);
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("SELECT ID FROM MODEL WHERE DIGEST=?");
  SetDbText(statement, 1, digest);
  statement.Execute();
  return statement.Fetch() ? ReadInt(statement, 1) : 0;
}

std::int32_t ModelOperation::CreateModel(CDataProvider* provider, const std::wstring& path,
                                         const std::wstring& iconPath, const std::wstring& digest,
                                         std::int32_t version) {
  constexpr const char* kMethod = "ModelOperation::CreateModel";
  ModelOperation operation(provider);
  CommitGuard guard(operation);
  IBPP::Blob model = operation.NewBlob();
  IBPP::Blob icon = operation.NewBlob();
  for (auto [file, blob] : {std::pair{&path, &model}, std::pair{&iconPath, &icon}}) {
    if (!SaveFileToBlob(*file, *blob)) {
      Report(L"Проблемы при сохранении файла в блоб " + *file, kMethod);
      return 0;
    }
  }
  IBPP::Statement statement = operation.NewStatement();
  statement.Prepare("INSERT INTO MODEL (MODEL, THUMBNAIL, DIGEST, MODEL_VERSION) VALUES( ?, ?, ?, ? ) RETURNING ID");
  statement.Set(1, model);
  statement.Set(2, icon);
  SetDbText(statement, 3, digest);
  statement.Set(4, version);
  statement.Execute();
  const std::int32_t id = ReadInt(statement, "ID");
  guard.Commit();
  return id;
}

bool ModelOperation::SetOtherModel(CStdModel* model, std::int32_t modelId) {
  CStandartSize* size = model->GetStdSize();
  if (!SplitOffSize(size, "ModelOperation::SetOtherModel")) return false;
  ModelOperation operation(ProviderOf(size));
  CommitGuard guard(operation);
  IBPP::Statement statement = operation.NewStatement();
  if (modelId != 0) {
    statement.Prepare("UPDATE OBJECT set MODELID = ? WHERE ID = ?");
    statement.Set(1, modelId);
    statement.Set(2, size->GetTemplate()->GetId());
  } else {
    statement.Prepare("UPDATE OBJECT set MODELID = NULL WHERE ID = ?");
    statement.Set(1, size->GetTemplate()->GetId());
  }
  statement.Execute();
  guard.Commit();
  return true;
}

bool ModelOperation::SaveFileToBlob(const std::wstring& path, IBPP::Blob& blob) {
  ByteData file;
  if (file.LoadFile(path) <= 0) {
    Report(L"Файл пустой или отсутствует " + path, "ModelOperation::SaveFileToBlob");
    return false;
  }
  file.Compress();
  WriteWholeBlob(blob, std::span<const unsigned char>(file.Data(), static_cast<std::size_t>(file.Size())));
  return file.Size() != 0;
}

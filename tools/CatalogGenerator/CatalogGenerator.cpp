#include "tools/CatalogGenerator/CatalogGenerator.h"

#include "storage/CDataProvider.h"
#include "storage/CommitGuard.h"
#include "tools/CatalogGenerator/CatalogGeneratorOperation.h"
#include "tools/CatalogGenerator/FolderBoundTriggerPause.h"
#include "tools/CatalogGenerator/ForcedWritesPause.h"

CatalogGenerator::CatalogGenerator(const CatalogShape& shape) : plan_(shape) {}

CatalogCounts CatalogGenerator::Generate(CDataProvider& provider, GenerationProgress progress) const {
  ForcedWritesPause forcedWrites(provider);
  FolderBoundTriggerPause boundTrigger(&provider);
  CatalogCounts written;
  {
    CatalogGeneratorOperation operation(&provider);
    CommitGuard guard(operation);
    written = CatalogWriter(operation, plan_, std::move(progress)).WriteAll();
    guard.Commit();
  }
  boundTrigger.Resume();
  forcedWrites.Resume();
  return written;
}

CatalogCounts CatalogGenerator::Generate(const std::wstring& server, const std::wstring& path,
                                         const std::wstring& user, const std::wstring& password,
                                         GenerationProgress progress) const {
  CDataProvider provider(server, path, user, password);
  return Generate(provider, std::move(progress));
}

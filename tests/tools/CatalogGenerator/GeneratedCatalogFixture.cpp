#include "GeneratedCatalogFixture.h"

#include "storage/CDataProvider.h"
#include "tools/CatalogGenerator/ForcedWritesPause.h"

namespace lxtest {

CatalogCounts GeneratedCatalogFixture::Generate(const CatalogShape& shape, GenerationProgress progress) {
  return CatalogGenerator(shape).Generate(connection_.server, database_, connection_.user, connection_.password,
                                          std::move(progress));
}

CatalogCounts GeneratedCatalogFixture::GenerateInto(const std::wstring& file, const CatalogShape& shape) {
  return CatalogGenerator(shape).Generate(connection_.server, file, connection_.user, connection_.password);
}

bool GeneratedCatalogFixture::BoundTriggerActive() {
  return Sql().Int(L"SELECT COUNT(*) FROM RDB$TRIGGERS WHERE RDB$TRIGGER_NAME = 'TR_GEN_FOLDER_BOUND' "
                   L"AND COALESCE(RDB$TRIGGER_INACTIVE, 0) = 0") == 1;
}

bool GeneratedCatalogFixture::ForcedWrites() {
  const CDataProvider provider(connection_.server, database_, connection_.user, connection_.password);
  return ForcedWritesPause::ForcedWrites(provider);
}

std::int32_t GeneratedCatalogFixture::BrokenBounds() {
  return Sql().Int(
             L"SELECT COUNT(*) FROM FOLDER C JOIN FOLDER P ON P.ID = C.ID_PARENT "
             L"WHERE NOT (P.LEFT_BOUND < C.LEFT_BOUND AND C.RIGHT_BOUND < P.RIGHT_BOUND)") +
         Sql().Int(
             L"SELECT COUNT(*) FROM FOLDER F WHERE F.RIGHT_BOUND - F.LEFT_BOUND + 1 <> 2 * "
             L"(SELECT COUNT(*) FROM FOLDER D WHERE D.LEFT_BOUND BETWEEN F.LEFT_BOUND AND F.RIGHT_BOUND)") +
         Sql().Int(
             L"SELECT COUNT(*) FROM FOLDER A JOIN FOLDER B ON A.ID <> B.ID AND (A.LEFT_BOUND = B.LEFT_BOUND "
             L"OR A.LEFT_BOUND = B.RIGHT_BOUND OR A.RIGHT_BOUND = B.RIGHT_BOUND)") +
         Sql().Int(L"SELECT COUNT(*) FROM FOLDER WHERE LEFT_BOUND = RIGHT_BOUND");
}

std::vector<std::wstring> GeneratedCatalogFixture::TextsOf(const std::wstring& file, const std::wstring& query) {
  return CatalogSql(connection_.server, file, connection_.user, connection_.password).Texts(query);
}

}  // namespace lxtest

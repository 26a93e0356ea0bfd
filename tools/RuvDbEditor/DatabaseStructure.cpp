#include "DatabaseStructure.h"

#include <optional>

#include "storage/ibpp/Database.h"
#include "storage/ibpp/StatusVector.h"

namespace {

constexpr const char* kUser = "SYSDBA";

// The answer of isc_database_info: items of tag, 2-byte length, value.
class InfoAnswer {
 public:
  InfoAnswer(const char* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

  std::optional<int> Number(char wanted) const {
    std::size_t at = 0;
    while (at + 3 <= size_ && bytes_[at] != isc_info_end) {
      const char item = bytes_[at];
      const auto length = static_cast<std::size_t>(isc_vax_integer(bytes_ + at + 1, 2));
      if (at + 3 + length > size_) break;
      if (item == wanted) return static_cast<int>(isc_vax_integer(bytes_ + at + 3, static_cast<short>(length)));
      at += 3 + length;
    }
    return std::nullopt;
  }

 private:
  const char* bytes_;
  std::size_t size_;
};

}  // namespace

DatabaseStructure DatabaseStructure::Read(const std::string& databasePath) {
  IBPP::Database database("", databasePath, kUser, "", "", "", "");
  database.Connect();
  const char items[] = {isc_info_ods_version, isc_info_ods_minor_version, isc_info_db_read_only, isc_info_end};
  char answer[64] = {};
  IBPP::detail::StatusVector status;
  isc_database_info(status.Get(), database.Handle(), sizeof items, items, sizeof answer, answer);
  status.ThrowIfFailed();
  const InfoAnswer info(answer, sizeof answer);
  const std::optional<int> major = info.Number(isc_info_ods_version);
  const std::optional<int> minor = info.Number(isc_info_ods_minor_version);
  const std::optional<int> readOnly = info.Number(isc_info_db_read_only);
  if (!major || !minor || !readOnly) IBPP::detail::ThrowUsageError("DatabaseStructure", "the engine gave no ODS version");
  database.Disconnect();
  return DatabaseStructure(OdsVersion{*major, *minor}, *readOnly != 0);
}

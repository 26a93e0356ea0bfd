// CSearchHelper: finds the standard sizes below a list of packets and folders
// whose values satisfy a condition. The walk runs in memory over the loaded
// catalog: every packet a location names is loaded on the calling thread
// first, then the folders are checked in parallel chunks whose results are
// joined in chunk order, so a result's order never depends on thread timing.
//
// Runs under the frame lock. The worker tasks take no lock, touch no
// database and report nothing; the condition tree is shared read-only and
// each size belongs to exactly one chunk.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "formula/CFormula.h"
#include "search/CSearchResult.h"

class CFolder;
class CPacket;
class CStandartSize;

class CSearchHelper {
 public:
  // The packet of this exact name in the first provider of the pool that has
  // one; null if none.
  using PacketLookup = std::function<CPacket*(const std::wstring& name)>;

  // Fewer folders than this run on the calling thread alone.
  static constexpr std::size_t kFoldersPerChunk = 50;

  // `packets`: items separated by ";", each a packet name followed by folder
  // names, each behind "\". Null, with a report, for an empty text and for a
  // packet or folder that is not there (what earlier items found is
  // dropped). A condition that does not parse throws FormulaError, as does a
  // worker's evaluation.
  static std::unique_ptr<CSearchResult> _Run(const PacketLookup& findPacket, const std::wstring& packets,
                                             const std::wstring& query);

  // Appends the matching sizes of `folders` to `found`: folders in list
  // order, templates in table order, sizes in template order. The folders'
  // packets must have been loaded (or have failed to load: such a folder
  // contributes nothing).
  static void SearchInFolders(const std::vector<CFolder*>& folders, const CFormula& condition,
                              std::vector<CStandartSize*>& found);

  // The folder and every folder below it, level by level, each one's
  // packet loaded on the way: the order in which a search meets folders.
  static std::vector<CFolder*> FolderList(CFolder* top);

 private:
  // The folder an item names, its packet loaded; null with a report.
  static CFolder* FindItemFolder(const PacketLookup& findPacket, const std::wstring& item);
};

#include "tools/CatalogGenerator/FolderBoundTriggerPause.h"

#include "tools/CatalogGenerator/CatalogGeneratorOperation.h"

FolderBoundTriggerPause::FolderBoundTriggerPause(CDataProvider* provider)
    : provider_(provider), wasActive_(CatalogGeneratorOperation::FolderBoundTriggerActive(provider)) {
  if (wasActive_) CatalogGeneratorOperation::SetFolderBoundTrigger(provider_, false);
}

// Often reached while an exception from the generation is under way; that
// one says more than a second failure here would.
FolderBoundTriggerPause::~FolderBoundTriggerPause() {
  if (resumed_) return;
  try {
    Resume();
  } catch (...) {
  }
}

// Marked only after success, so that a failed Resume() is tried once more
// when the pause ends.
void FolderBoundTriggerPause::Resume() {
  if (wasActive_) CatalogGeneratorOperation::SetFolderBoundTrigger(provider_, true);
  resumed_ = true;
}

// FolderBoundTriggerPause: keeps the nested-bounds trigger of FOLDER switched
// off while a generator writes folder rows whose bounds it computed itself.
// The trigger does work in proportion to the whole table on every insert,
// which makes a large tree quadratic.
//
// Construction switches the trigger off if it was on; Resume() or, failing
// that, destruction puts back the state that was found. Each switch is a
// committed transaction of its own. While paused, nobody else may insert
// folders into the catalog: their bounds would not be maintained.
//
// Lives on the stack of one generation; not thread-safe.
#pragma once

class CDataProvider;

class FolderBoundTriggerPause {
 public:
  explicit FolderBoundTriggerPause(CDataProvider* provider);
  // Resumes if Resume() was not called; a failure here is lost, so call
  // Resume() on the normal path.
  ~FolderBoundTriggerPause();

  FolderBoundTriggerPause(const FolderBoundTriggerPause&) = delete;
  FolderBoundTriggerPause& operator=(const FolderBoundTriggerPause&) = delete;

  // Puts the trigger back as found; an IBPP::Exception if that fails.
  void Resume();

 private:
  CDataProvider* provider_;
  // Whether the trigger was active when the pause began, and so must be
  // switched back on.
  bool wasActive_;
  bool resumed_ = false;
};

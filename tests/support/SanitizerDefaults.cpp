// Linked into every program of a sanitizer build, so that it holds however a
// program is started (a test, or a child process such as the editor tool).
//
// The Firebird client and engine are not ours and not instrumented: they
// keep memory for the life of the process (plugin registries, ICU and iconv
// tables, per-thread status), and they synchronise their own threads in ways
// the thread checker cannot see. Reports from inside them say nothing about
// this library, so they are suppressed; everything of ours is still checked.
#define LX_SANITIZER_HOOK extern "C" __attribute__((visibility("default"))) const char*

LX_SANITIZER_HOOK __lsan_default_suppressions() {
  return "leak:libfbclient.so\n"
         "leak:libEngine12.so\n"
         "leak:libicuuc.so\n"
         "leak:libicui18n.so\n"
         "leak:libfbintl.so\n";
}

// Quiet about what was suppressed: programs such as the editor tool must keep
// their standard error to their own one-line reasons. Thread storage is not
// scanned as a root: after the remote client failed an attach, the leak
// checker's tracer crashed at exit reading it (reporting nothing, aborting
// the program). Leaving those roots out can only add reports, never hide one.
LX_SANITIZER_HOOK __lsan_default_options() { return "print_suppressions=0 use_tls=0"; }

LX_SANITIZER_HOOK __tsan_default_suppressions() {
  // Not called_from_lib: the engine unloads its plugins at exit, which the
  // thread checker refuses for a library named that way.
  return "race:libEngine12.so\n"
         "race:libfbclient.so\n";
}

// The engine holds more locks at once than the deadlock detector can track,
// which would stop it with an internal check; races are still reported.
LX_SANITIZER_HOOK __tsan_default_options() { return "print_suppressions=0 detect_deadlocks=0"; }

// Linked into every program of a sanitizer build. The Firebird client and
// engine keep memory for the life of the process (plugin registries, ICU
// and iconv tables, per-thread status) and never free it; that is not ours
// to fix, and it must not fail a test or a child process such as the editor
// tool. Built in, so it holds however a program is started.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:libfbclient.so\n"
         "leak:libEngine12.so\n"
         "leak:libicuuc.so\n"
         "leak:libicui18n.so\n"
         "leak:libfbintl.so\n";
}

// Quiet about what was suppressed: programs such as the editor tool must keep
// their standard error to their own one-line reasons.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options() {
  return "print_suppressions=0";
}
